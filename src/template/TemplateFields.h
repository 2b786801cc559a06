// The tables of the template's fields: how each is called in INI and XML templates.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "template/CTemplate.h"

namespace tovarek {

// One field of a record. Exactly one of `number` and `text` is set. A name that is empty: that form has no
// such field.
template <class Record>
struct RecordField {
    std::string_view iniKey;   // in the record's numbered section
    std::string_view xmlName;  // child element of the record's element, upper case
    std::int32_t Record::*number = nullptr;
    std::string Record::*text = nullptr;
    std::int32_t iniDefault = 0;  // for a number whose key is missing
    std::string_view meaning;     // for people, in the words of the documents
};

// A field of the template itself: an INI section and key, and an XML element.
struct TemplateField {
    std::string_view iniSection;
    std::string_view iniKey;
    std::string_view xmlName;
    std::int32_t CTemplate::*number = nullptr;
    std::string CTemplate::*text = nullptr;
    std::string_view meaning;  // for people
};

std::span<const TemplateField> TemplateFields();
std::span<const RecordField<CNv>> NvFields();
std::span<const RecordField<CTag>> TagFields();
std::span<const RecordField<CCp>> CpFields();

// The largest counts; that of variables together with their maximum.
inline constexpr std::int32_t kMostNvs = 4096;
inline constexpr std::int32_t kMostTags = 14;

// Why a template is refused whose array sizes cannot be summed up.
inline constexpr const char* kTooManyEntries =
    "the array sizes add up to more entries of the variable table than can be counted";

// The one field whose XML form is a word: "INPUT" is 0, everything else 1.
inline constexpr std::string_view kDirectionElement = "DIRECTION";

// The lists of an XML template.
inline constexpr std::string_view kTemplateLists[] = {"NVS", "CPS", "TAGS"};

// The elements of an XML template that its loader saw: those outside of every list, and those that are
// records. `fields` are the ones among them and below them that are fields, by their names in the tables; of
// a record its number in its list, from 0, tells them, and they stand in the order of these.
struct TemplateElements {
    struct Field {
        std::size_t record = 0;
        std::string_view name;
        XmlNode element;
    };
    std::vector<XmlNode> own;
    std::vector<XmlNode> nvs;
    std::vector<XmlNode> tags;
    std::vector<XmlNode> cps;
    std::vector<Field> ownFields;
    std::vector<Field> nvFields;
    std::vector<Field> tagFields;
    std::vector<Field> cpFields;
};
TemplateElements ElementsOfTemplate(const XmlNode& node);

// What a record is called in messages, and its INI sections: the prefix and the record's number from 1, as
// many as `count` says.
template <class Record>
struct RecordNames;
template <>
struct RecordNames<CNv> {
    static constexpr std::string_view kind = "network variable";
    static constexpr std::string_view iniPrefix = "nv";
    static constexpr auto count = &CTemplate::numberStaticNvs;
    static constexpr auto elements = &TemplateElements::nvs;
    static constexpr auto fields = &TemplateElements::nvFields;
    static std::span<const RecordField<CNv>> Fields() { return NvFields(); }
};
template <>
struct RecordNames<CTag> {
    static constexpr std::string_view kind = "message tag";
    static constexpr std::string_view iniPrefix = "tag";
    static constexpr auto count = &CTemplate::numberOfMessageTags;
    static constexpr auto elements = &TemplateElements::tags;
    static constexpr auto fields = &TemplateElements::tagFields;
    static std::span<const RecordField<CTag>> Fields() { return TagFields(); }
};
template <>
struct RecordNames<CCp> {
    static constexpr std::string_view kind = "configuration property";
    static constexpr std::string_view iniPrefix = "cp";
    static constexpr auto count = &CTemplate::numberOfCps;
    static constexpr auto elements = &TemplateElements::cps;
    static constexpr auto fields = &TemplateElements::cpFields;
    static std::span<const RecordField<CCp>> Fields() { return CpFields(); }
};

// "network variable 3 (nviTemp)"; `position` counts from 0.
template <class Record>
std::string RecordTitle(const Record& record, std::size_t position) {
    std::string title(RecordNames<Record>::kind);
    title += ' ' + std::to_string(position + 1);
    if (!record.name.empty())
        title += " (" + record.name + ")";
    return title;
}

}  // namespace tovarek
