// The XML form of a template: fields as elements, and the lists NVS, CPS and TAGS, in which every child is a
// record that is named by its element.
#include <algorithm>
#include <string>
#include <utility>

#include "base/Numbers.h"
#include "base/Text.h"
#include "support/CTools.h"
#include "support/InputPlace.h"
#include "template/CTemplate.h"
#include "template/TemplatePlaces.h"

namespace tovarek {
namespace {

class XmlTemplateLoader {
  public:
    // `elements` gets what was seen, where it is wanted.
    XmlTemplateLoader(CTemplate& target, FindingSink& findings, TemplateElements* elements = nullptr)
        : template_(target), findings_(findings), elements_(elements) {}

    // The fields of the template itself, at whatever depth outside of the lists.
    void Load(const XmlNode& parent) {
        for (XmlNode child = parent.FirstChild(); child; child = child.NextSibling()) {
            if (!child.IsElement())
                continue;
            const std::string name = UpperCase(child.Name());
            LoadTemplateField(child, name);
            if (name == "NVS")
                LoadRecords(child, template_.nvs);
            else if (name == "CPS")
                LoadRecords(child, template_.cps);
            else if (name == "TAGS")
                LoadRecords(child, template_.tags);
            else
                Load(child);
        }
    }

  private:
    void LoadTemplateField(const XmlNode& element, const std::string& name) {
        if (elements_ != nullptr)
            elements_->own.push_back(element);
        for (const TemplateField& field : TemplateFields()) {
            if (field.xmlName.empty() || field.xmlName != name)
                continue;
            if (elements_ != nullptr)
                elements_->ownFields.push_back({0, field.xmlName, element});
            const std::string text = tools_.nodeTextValue(element);
            if (field.text == &CTemplate::userTypeFile)
                template_.userTypeFile = TrimBlanks(text);
            else if (field.text != nullptr)
                template_.*field.text = text;
            else if (const auto number = FittingInt32(text))
                template_.*field.number = *number;
            else
                template_.*field.number = Refuse(element, text, field.xmlName, "template");
        }
    }

    // In a list the first level of elements are records; what is below them, at whatever depth, are their
    // fields.
    template <class Record>
    void LoadRecords(const XmlNode& list, std::vector<Record>& records) {
        std::int32_t& count = template_.*RecordNames<Record>::count;
        for (XmlNode element = list.FirstChild(); element; element = element.NextSibling()) {
            if (!element.IsElement())
                continue;
            Record& record = records.emplace_back();
            record.name = element.Name();
            record.line = element.Line();
            if (elements_ != nullptr)
                (elements_->*RecordNames<Record>::elements).push_back(element);
            count = AddChecked(count, 1);
            SetIndex(record);
            for (const XmlNode& child : ElementsBelow(element))
                LoadField(child, record, records.size() - 1);
            CountEntries(record);
        }
    }

    template <class Record>
    void LoadField(const XmlNode& element, Record& record, std::size_t position) {
        const std::string name = UpperCase(element.Name());
        for (const RecordField<Record>& field : RecordNames<Record>::Fields()) {
            if (field.xmlName.empty() || field.xmlName != name)
                continue;
            if (elements_ != nullptr)
                (elements_->*RecordNames<Record>::fields).push_back({position, field.xmlName, element});
            const std::string text = tools_.nodeTextValue(element);
            if (field.text != nullptr)
                record.*field.text = text;
            else if (field.xmlName == kDirectionElement)
                record.*field.number = UpperCase(text) == "INPUT" ? 0 : 1;
            else if (const auto number = FittingInt32(text))
                record.*field.number = *number;
            else
                record.*field.number = Refuse(element, text, field.xmlName, RecordTitle(record, position));
            return;
        }
    }

    // Tells a number beyond 32 bits; it counts as 0.
    std::int32_t Refuse(const XmlNode& element, std::string_view text, std::string_view field,
                        std::string record) {
        ErrorContext context = OverflowIn(element, text, field);
        context.record = std::move(record);
        findings_.Take({static_cast<std::int32_t>(RuntimeError::overflow), std::move(context)});
        return 0;
    }

    void SetIndex(CNv& nv) const { nv.index = nvIndex_; }
    void SetIndex(CTag& tag) { tag.index = tagIndex_++; }
    void SetIndex(CCp& /*cp*/) const {}

    // A variable's array size is known only behind its children.
    void CountEntries(const CNv& nv) {
        const std::int64_t index = std::int64_t{nvIndex_} + std::max(nv.arraySize, 1);
        if (index > INT32_MAX)
            TellIndex(template_, nv, template_.nvs.size() - 1, findings_);
        else
            nvIndex_ = static_cast<std::int32_t>(index);
    }
    void CountEntries(const CTag& /*tag*/) const {}
    void CountEntries(const CCp& /*cp*/) const {}

    CTemplate& template_;
    FindingSink& findings_;
    TemplateElements* elements_;
    CTools tools_;
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
    XmlTemplateLoader(scratch, nobody, &elements).Load(node);
    return elements;
}

void CTemplate::LoadTemplateFromXmlNode(const XmlNode& node, FindingSink& findings) {
    loadedNode_ = node;
    maximumNumberOfNvs = -1;
    // Who listens to warnings asks for every element afterwards.
    TemplateElements elements;
    const bool isAsked = findings.WantsWarnings();
    XmlTemplateLoader(*this, findings, isAsked ? &elements : nullptr).Load(node);
    if (isAsked)
        source_ = std::make_shared<const TemplateSource>(
            TemplateSource{IniSource(iniFile), node, std::move(elements), true});
    if (maximumNumberOfNvs < 0)
        maximumNumberOfNvs = numberStaticNvs;
}

}  // namespace tovarek
