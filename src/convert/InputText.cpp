#include "convert/InputText.h"

#include <set>

#include "base/Text.h"
#include "convert/FormWriters.h"
#include "template/TemplateFields.h"
#include "values/ValueTypes.h"

namespace tovarek {
namespace {

// Of a property that has no name where XML needs one.
std::string NameOfProperty(const CCp& cp, std::size_t position) {
    return cp.name.empty() ? "cp" + std::to_string(position + 1) : cp.name;
}

// ---- comments ----

std::string CommentOf(const CNv& nv, const ResourceNames& names) {
    if (nv.typeIndex < 1)
        return {};
    if (nv.typeIndex > kLargestStandardType)
        return "user type " + std::to_string(nv.typeIndex);
    return names.NvName({0, static_cast<std::uint16_t>(nv.typeIndex)});
}

std::string CommentOf(const CTag& /*tag*/, const ResourceNames& /*names*/) {
    return {};
}

// The values of a property, of an array one after the other; empty where they are no values of the type.
std::string ValuesText(const CCp& cp, const ValueType& type, const ResourceNames& names) {
    const std::size_t size = SizeOf(type.type);
    const std::optional<std::string> bytes = FromHex(cp.defaultValue);
    if (!bytes || size == 0 || bytes->empty() || bytes->size() % size != 0)
        return {};
    std::string text;
    for (std::size_t at = 0; at < bytes->size(); at += size) {
        DecodedValue value;
        std::vector<std::string> notes;
        if (!DecodeValue(type, std::string_view(*bytes).substr(at, size), names, value, notes).Ok())
            return {};
        text += (text.empty() ? "" : "; ") + WrittenValue(value);
    }
    return std::string(Excerpt(text));
}

std::string CommentOf(const CCp& cp, const ResourceNames& names) {
    CCp declared = cp;
    try {
        declared.AnalyseCP();
    } catch (const Error&) {
        return {};  // a number beyond 32 bits names no type
    }
    const StandardCatalog* catalog = names.Catalog();
    const CpType* type =
        declared.scope == 0 && catalog != nullptr ? catalog->Cp(declared.typeIndexInScope) : nullptr;
    if (type == nullptr)
        return {};
    const std::string name = catalog->CpName(declared.typeIndexInScope);
    const std::string values = ValuesText(cp, ValueTypeOf(name, *type, names), names);
    return name + (values.empty() ? "" : ": " + values);
}

// Tells of each key of a kind of record where it stands for the first time.
template <class Writer>
class KeyTeller {
  public:
    KeyTeller(Writer& out, KeyComments keys) : out_(out), keys_(keys) {}

    void Tell(std::string_view key, std::string_view meaning) {
        if (keys_ == KeyComments::yes && told_.insert(key).second)
            out_.Comment(meaning);
    }

  private:
    Writer& out_;
    KeyComments keys_;
    std::set<std::string_view> told_;
};

// ---- which fields are written ----

// Records say what has no default; the length of a standard type comes from the catalog.
bool IsWanted(const CNv& nv, const RecordField<CNv>& field, std::int32_t missing) {
    if (field.number == &CNv::length)
        return nv.typeIndex < 1 || nv.typeIndex > kLargestStandardType;
    return field.number == &CNv::direction || field.number == &CNv::typeIndex || nv.*field.number != missing;
}
bool IsWanted(const CTag& tag, const RecordField<CTag>& field, std::int32_t missing) {
    return tag.*field.number != missing;
}
// Length and array size are overruled by the declaration.
bool IsWanted(const CCp& cp, const RecordField<CCp>& field, std::int32_t missing) {
    return field.number == &CCp::typeIndex && cp.typeIndex != missing;
}

// ---- INI ----

// A property has its name in the comment alone.
template <class Record>
void WriteIniRecords(IniWriter& out, const std::vector<Record>& records, const ResourceNames& names,
                     KeyComments keys) {
    KeyTeller teller(out, keys);
    for (std::size_t i = 0; i < records.size(); ++i) {
        const Record& record = records[i];
        std::string comment = CommentOf(record, names);
        if constexpr (std::is_same_v<Record, CCp>)
            comment.insert(0, record.name + (record.name.empty() || comment.empty() ? "" : ", "));
        out.Section(std::string(RecordNames<Record>::iniPrefix) + std::to_string(i + 1), comment);
        for (const RecordField<Record>& field : RecordNames<Record>::Fields()) {
            if (field.iniKey.empty())
                continue;
            const bool isText = field.text != nullptr;
            if (isText ? (record.*field.text).empty() : !IsWanted(record, field, field.iniDefault))
                continue;
            teller.Tell(field.iniKey, field.meaning);
            out.Key(field.iniKey, isText ? record.*field.text : std::to_string(record.*field.number));
        }
    }
}

// A section of the template's own fields; nothing where all of them are defaults.
void WriteIniFields(IniWriter& out, const CTemplate& device, std::string_view section, KeyComments keys) {
    KeyTeller teller(out, keys);
    bool isOpen = false;
    for (const TemplateField& field : TemplateFields()) {
        if (field.iniSection != section)
            continue;
        const std::string value =
            field.text != nullptr ? device.*field.text : std::to_string(device.*field.number);
        if (value.empty() || (field.number != nullptr && device.*field.number == 0))
            continue;
        if (!isOpen)
            out.Section(section);
        isOpen = true;
        teller.Tell(field.iniKey, field.meaning);
        out.Key(field.iniKey, value);
    }
}

std::string TemplateIni(const CTemplate& device, const ResourceNames& names, KeyComments keys) {
    IniWriter out;
    for (const std::string_view section : {"general", "nvs", "tags", "cps"})
        WriteIniFields(out, device, section, keys);
    WriteIniRecords(out, device.nvs, names, keys);
    WriteIniRecords(out, device.tags, names, keys);
    WriteIniRecords(out, device.cps, names, keys);
    return out.Take();
}

// ---- XML ----

template <class Record>
void WriteXmlRecords(XmlWriter& out, const std::vector<Record>& records, std::string_view list,
                     const ResourceNames& names, KeyComments keys) {
    if (records.empty())
        return;
    KeyTeller teller(out, keys);
    out.Open(list);
    for (std::size_t i = 0; i < records.size(); ++i) {
        const Record& record = records[i];
        std::string name = record.name;
        if constexpr (std::is_same_v<Record, CCp>)
            name = NameOfProperty(record, i);
        if (const std::string comment = CommentOf(record, names); !comment.empty())
            out.Comment(comment);
        out.Open(name);
        for (const RecordField<Record>& field : RecordNames<Record>::Fields()) {
            if (field.xmlName.empty())
                continue;
            const bool isText = field.text != nullptr;
            if (isText ? (record.*field.text).empty() : !IsWanted(record, field, Record().*field.number))
                continue;
            teller.Tell(field.xmlName, field.meaning);
            if (isText)
                out.Element(field.xmlName, record.*field.text);
            else if (field.xmlName == kDirectionElement)
                out.Element(field.xmlName, record.*field.number == 0 ? "input" : "output");
            else
                out.Element(field.xmlName, std::to_string(record.*field.number));
        }
        out.Close(name);
    }
    out.Close(list);
}

std::string TemplateXml(const CTemplate& device, const ResourceNames& names, KeyComments keys) {
    XmlWriter out;
    KeyTeller teller(out, keys);
    out.Open(kTemplateElement);
    for (const TemplateField& field : TemplateFields()) {
        if (field.xmlName.empty())
            continue;
        const bool isText = field.text != nullptr;
        // Without it the maximum is the number of variables.
        if (isText ? (device.*field.text).empty()
                   : device.*field.number == static_cast<std::int32_t>(device.nvs.size()))
            continue;
        teller.Tell(field.xmlName, field.meaning);
        out.Element(field.xmlName, isText ? device.*field.text : std::to_string(device.*field.number));
    }
    WriteXmlRecords(out, device.nvs, "NVS", names, keys);
    WriteXmlRecords(out, device.tags, "TAGS", names, keys);
    WriteXmlRecords(out, device.cps, "CPS", names, keys);
    out.Close(kTemplateElement);
    return out.Take();
}

}  // namespace

std::string TemplateText(const CTemplate& device, InputForm form, const ResourceNames& names,
                         KeyComments keys) {
    return form == InputForm::ini ? TemplateIni(device, names, keys) : TemplateXml(device, names, keys);
}

}  // namespace tovarek
