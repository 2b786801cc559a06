// Losses are found by reading what was written: whatever a form does to a text, no difference stays silent.
#include <algorithm>

#include "base/Text.h"
#include "convert/FormWriters.h"
#include "convert/InputText.h"
#include "profile/CProfile.h"
#include "profile/ProfileFields.h"
#include "template/TemplateFields.h"

namespace tovarek {
namespace {

constexpr std::size_t kLongestIniText = 999;

// Why a text cannot be held.
std::string ReasonOf(std::string_view text, InputForm form) {
    if (form == InputForm::xml)
        return "an XML text holds no control characters, and none of nothing but white space";
    if (CharacterCount(text) > kLongestIniText)
        return "a text of an INI file ends after 999 characters; an XML template has no such bound";
    if (text.find_first_of("\r\n") != std::string_view::npos)
        return "a text of an INI file has no line breaks; an XML template may";
    if (Trim(text).size() != text.size())
        return "a text of an INI file has no blanks at its ends; an XML template may";
    return "an INI file does not hold this text";
}

class TemplateComparison {
  public:
    TemplateComparison(const CTemplate& given, const CTemplate& held, InputForm form,
                       std::vector<Loss>& losses)
        : given_(given), held_(held), form_(form), losses_(losses) {}

    void Compare() {
        for (const TemplateField& field : TemplateFields())
            if (field.text != nullptr)
                Text("template", field.iniKey, given_.*field.text, held_.*field.text);
            else
                Number("template", field.iniKey, given_.*field.number, held_.*field.number);
        Records(given_.nvs, held_.nvs);
        Records(given_.tags, held_.tags);
        Records(given_.cps, held_.cps);
    }

  private:
    template <class Record>
    void Records(const std::vector<Record>& given, const std::vector<Record>& held) {
        for (std::size_t i = 0; i < given.size(); ++i) {
            const std::string title = RecordTitle(given[i], i);
            if (i >= held.size()) {
                losses_.push_back({title, "", "", "the written file has no such record"});
                continue;
            }
            Name(title, given[i], held[i]);
            for (const RecordField<Record>& field : RecordNames<Record>::Fields())
                if (field.text != nullptr && field.text != &Record::name)
                    Text(title, field.iniKey, given[i].*field.text, held[i].*field.text);
                else if (field.number != nullptr && Counts(given[i], field.number))
                    Number(title, field.iniKey, given[i].*field.number, held[i].*field.number);
        }
    }

    template <class Record>
    void Name(const std::string& title, const Record& given, const Record& held) {
        if (given.name == held.name || (std::is_same_v<Record, CCp> && given.name.empty()))
            return;
        if (std::is_same_v<Record, CCp> && form_ == InputForm::ini)
            losses_.push_back({title, "name", given.name, "properties of an INI template have no names"});
        else if (form_ == InputForm::xml)
            losses_.push_back({title, "name", given.name,
                               "no XML element can have this name; it became '" + Excerpt(held.name) + "'"});
        else
            Text(title, "name", given.name, held.name);
    }

    // What something else overrules is no loss.
    static bool Counts(const CNv& nv, std::int32_t CNv::*member) {
        return member != &CNv::length || nv.typeIndex < 1 || nv.typeIndex > kLargestStandardType;
    }
    static bool Counts(const CTag& /*tag*/, std::int32_t CTag::* /*member*/) { return true; }
    static bool Counts(const CCp& /*cp*/, std::int32_t CCp::*member) { return member == &CCp::typeIndex; }

    void Text(const std::string& record, std::string_view field, const std::string& given,
              const std::string& held) {
        if (given != held)
            losses_.push_back({record, std::string(field), Excerpt(given), ReasonOf(given, form_)});
    }
    void Number(const std::string& record, std::string_view field, std::int32_t given, std::int32_t held) {
        if (given != held)
            losses_.push_back({record, std::string(field), std::to_string(given),
                               "the written file reads as " + std::to_string(held)});
    }

    const CTemplate& given_;
    const CTemplate& held_;
    InputForm form_;
    std::vector<Loss>& losses_;
};

// What the written file is read as.
template <class Input>
Input Read(const std::string& path, InputForm form, std::string_view element) {
    const CErrorHandler errorHandler;
    Input held;
    held.errorHandler = &errorHandler;
    (form == InputForm::ini ? held.iniFile : held.xmlFile) = path;
    held.xmlNodeName = element;
    held.Load();
    held.errorHandler = nullptr;
    return held;
}

}  // namespace

void TellProfileLosses(const ProfileValues& given, const std::string& path, InputForm form,
                       std::vector<Loss>& losses) {
    const auto held = Read<CProfile>(path, form, kProfileElement);
    for (const ProfileField& field : kProfileFields)
        if (given.*field.value != held.*field.value)
            losses.push_back({"line " + std::to_string(field.line), std::string(field.iniKey),
                              std::to_string(given.*field.value),
                              "the written file reads as " + std::to_string(held.*field.value)});
}

void TellTemplateLosses(const CTemplate& given, const std::string& path, InputForm form,
                        std::vector<Loss>& losses) {
    const auto held = Read<CTemplate>(path, form, kTemplateElement);
    TemplateComparison(given, held, form, losses).Compare();
}

}  // namespace tovarek
