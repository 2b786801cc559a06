// The XML form of a template: fields as elements, and the lists NVS, CPS and TAGS, in which every child is a
// record that is named by its element.
#include <algorithm>
#include <string>

#include "base/Numbers.h"
#include "base/Text.h"
#include "support/CTools.h"
#include "template/CTemplate.h"
#include "template/TemplatePlaces.h"

namespace tovarek {
namespace {

class XmlTemplateLoader {
  public:
    // `elements` gets what was seen, where it is wanted.
    XmlTemplateLoader(CTemplate& target, FindingSink& findings, TemplateElements* elements = nullptr)
        : template_(target), findings_(findings), elements_(elements) {}

    void LoadChildren(const XmlNode& parent) {
        for (XmlNode child = parent.FirstChild(); child; child = child.NextSibling())
            if (child.IsElement())
                LoadElement(child);
    }

  private:
    enum class List { none, nvs, cps, tags };

    void LoadElement(const XmlNode& element) {
        const std::string name = UpperCase(element.Name());
        switch (list_) {
            case List::none:
                LoadTemplateElement(element, name);
                break;
            case List::nvs:
                LoadInList(element, name, template_.nvs, template_.numberStaticNvs);
                break;
            case List::cps:
                LoadInList(element, name, template_.cps, template_.numberOfCps);
                break;
            case List::tags:
                LoadInList(element, name, template_.tags, template_.numberOfMessageTags);
                break;
        }
    }

    void LoadTemplateElement(const XmlNode& element, const std::string& name) {
        if (elements_ != nullptr)
            elements_->own.push_back(element);
        for (const TemplateField& field : TemplateFields()) {
            if (field.xmlName.empty() || field.xmlName != name)
                continue;
            if (elements_ != nullptr)
                elements_->ownFields.push_back({0, field.xmlName, element});
            if (field.text == &CTemplate::userTypeFile)
                template_.userTypeFile = TrimBlanks(tools_.nodeTextValue(element));
            else if (field.text != nullptr)
                template_.*field.text = tools_.nodeTextValue(element);
            else
                template_.*field.number = Number(element, field.xmlName, [] { return "template"; });
        }
        if (name == "NVS")
            list_ = List::nvs;
        else if (name == "CPS")
            list_ = List::cps;
        else if (name == "TAGS")
            list_ = List::tags;
        LoadChildren(element);
        list_ = List::none;
    }

    // In a list the first level of elements are records; what is below them, at whatever depth, are their
    // fields.
    template <class Record>
    void LoadInList(const XmlNode& element, const std::string& name, std::vector<Record>& records,
                    std::int32_t& count) {
        if (inRecord_) {
            LoadField(element, name, records.back(), records.size() - 1);
            LoadChildren(element);
            return;
        }
        Record& record = records.emplace_back();
        record.name = element.Name();
        record.line = element.Line();
        if (elements_ != nullptr)
            (elements_->*RecordNames<Record>::elements).push_back(element);
        count = AddChecked(count, 1);
        SetIndex(record);
        inRecord_ = true;
        LoadChildren(element);
        inRecord_ = false;
        CountEntries(records.back());
    }

    template <class Record>
    void LoadField(const XmlNode& element, const std::string& name, Record& record, std::size_t position) {
        for (const RecordField<Record>& field : RecordNames<Record>::Fields()) {
            if (field.xmlName.empty() || field.xmlName != name)
                continue;
            if (elements_ != nullptr)
                (elements_->*RecordNames<Record>::fields).push_back({position, field.xmlName, element});
            if (field.text != nullptr)
                record.*field.text = tools_.nodeTextValue(element);
            else if (field.xmlName == kDirectionElement)
                record.*field.number = UpperCase(tools_.nodeTextValue(element)) == "INPUT" ? 0 : 1;
            else
                record.*field.number =
                    Number(element, field.xmlName, [&] { return RecordTitle(record, position); });
            return;
        }
    }

    // `title` names the record; it is asked only when the number is refused.
    template <class Title>
    std::int32_t Number(const XmlNode& element, std::string_view field, const Title& title) {
        std::int32_t number = 0;
        const auto place = [&] { return ErrorContext{.record = title()}; };
        TellingErrors(findings_, [&] {
            number = WithContext(
                place, [&] { return IntegerOfElement(element, tools_.nodeTextValue(element), field); });
        });
        return number;
    }

    void SetIndex(CNv& nv) const { nv.index = nvIndex_; }
    void SetIndex(CTag& tag) { tag.index = tagIndex_++; }
    void SetIndex(CCp& /*cp*/) const {}

    // A variable's array size is known only behind its children.
    void CountEntries(const CNv& nv) {
        const std::int64_t index = std::int64_t{nvIndex_} + std::max(nv.arraySize, 1);
        if (index > INT32_MAX)
            TellingErrors(findings_, [&] { RefuseIndex(template_, nv, template_.nvs.size() - 1); });
        else
            nvIndex_ = static_cast<std::int32_t>(index);
    }
    void CountEntries(const CTag& /*tag*/) const {}
    void CountEntries(const CCp& /*cp*/) const {}

    CTemplate& template_;
    FindingSink& findings_;
    TemplateElements* elements_;
    CTools tools_;
    List list_ = List::none;
    bool inRecord_ = false;
    std::int32_t nvIndex_ = 0;
    std::int32_t tagIndex_ = 0;
};

}  // namespace

TemplateElements ElementsOfTemplate(const XmlNode& node) {
    // Whatever was refused was told by the load itself.
    struct : FindingSink {
        void Take(Finding /*finding*/) override {}
    } nobody;
    CTemplate scratch;
    TemplateElements elements;
    XmlTemplateLoader(scratch, nobody, &elements).LoadChildren(node);
    return elements;
}

void CTemplate::LoadTemplateFromXmlNode(const XmlNode& node, FindingSink& findings) {
    loadedNode_ = node;
    maximumNumberOfNvs = -1;
    XmlTemplateLoader(*this, findings).LoadChildren(node);
    if (maximumNumberOfNvs < 0)
        maximumNumberOfNvs = numberStaticNvs;
}

}  // namespace tovarek
