// Where the values of a template stand in its file, for messages.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "support/InputPlace.h"
#include "template/TemplateFields.h"

namespace tovarek {

// What a template was loaded from: the INI file, or an XML element and those below it.
struct TemplateSource {
    IniSource ini;
    XmlNode node;
    TemplateElements elements;
    bool givesMinusOne;  // whether a value may be written as the -1 that stands for none
};

// Builds the contexts of faults in one template.
class TemplatePlaces {
  public:
    explicit TemplatePlaces(const CTemplate& source) : source_(source), fromIni_(!source.iniFile.empty()) {}

    // Of a field of the record at `position`, from 0.
    template <class Record, class Value>
    ErrorContext Of(const Record& record, std::size_t position, Value Record::*member,
                    const Expected& expected) const {
        const RecordField<Record>& field = FieldOf(RecordNames<Record>::Fields(), member);
        return ContextOf(PlaceOf<Record>(position, field, Text(record.*member)),
                         RecordTitle(record, position), NameOf(field), ReadAs(record.*member), expected);
    }

    // Of a field of the template itself.
    template <class Value>
    ErrorContext Of(Value CTemplate::*member, const Expected& expected) const {
        const TemplateField& field = FieldOf(TemplateFields(), member);
        return ContextOf(PlaceOf(field, Text(source_.*member)), "template", NameOf(field),
                         ReadAs(source_.*member), expected);
    }

    // A warning about a field of the record at `position`, from 0, or of the template itself.
    template <class Record, class Value>
    Finding Warn(Warning warning, const Record& record, std::size_t position, Value Record::*member,
                 const std::string& reason) const {
        const RecordField<Record>& field = FieldOf(RecordNames<Record>::Fields(), member);
        return WarningAt(warning, PlaceOf<Record>(position, field, Text(record.*member)),
                         RecordTitle(record, position), NameOf(field), reason);
    }
    Finding Warn(Warning warning, std::string CTemplate::*member, const std::string& reason) const {
        const TemplateField& field = FieldOf(TemplateFields(), member);
        return WarningAt(warning, PlaceOf(field, source_.*member), "template", NameOf(field), reason);
    }

    // Whether the file has the field.
    template <class Record, class Value>
    bool Has(std::size_t position, Value Record::*member) const {
        const RecordField<Record>& field = FieldOf(RecordNames<Record>::Fields(), member);
        if (NameOf(field).empty())
            return false;
        if (fromIni_)
            return source_.Source().ini.Text().HasKey(
                std::string(RecordNames<Record>::iniPrefix) + std::to_string(position + 1), field.iniKey);
        if (!source_.Source().node)
            return true;
        const std::vector<TemplateElements::Field>& fields =
            source_.Source().elements.*RecordNames<Record>::fields;
        const auto isBefore = [](const TemplateElements::Field& one, std::size_t record) {
            return one.record < record;
        };
        auto one = std::lower_bound(fields.begin(), fields.end(), position, isBefore);
        while (one != fields.end() && one->record == position && one->name != field.xmlName)
            ++one;
        return one != fields.end() && one->record == position;
    }

    // Whether an INI file does not have the record at all, or is not there itself.
    template <class Record>
    bool IsAbsent(std::size_t position) const {
        return fromIni_ && !source_.Source().ini.Text().HasSection(
                               std::string(RecordNames<Record>::iniPrefix) + std::to_string(position + 1));
    }

    // Whether the one before it is absent as well, so that all has been told.
    template <class Record>
    bool IsAbsentLikeTheLast(std::size_t position) const {
        return position > 0 && IsAbsent<Record>(position - 1) && IsAbsent<Record>(position);
    }

    // The field's value as the file has it; empty when it has none.
    template <class Record, class Value>
    std::string Typed(std::size_t position, Value Record::*member) const {
        return PlaceOf<Record>(position, FieldOf(RecordNames<Record>::Fields(), member), {}).typed;
    }

    // The element of the record in an XML template; a null node when there is none.
    template <class Record>
    XmlNode ElementOf(std::size_t position) const {
        const std::vector<XmlNode>& records = source_.Source().elements.*RecordNames<Record>::elements;
        return position < records.size() ? records[position] : XmlNode();
    }

  private:
    template <class Field, class Record>
    static const Field& FieldOf(std::span<const Field> fields, std::int32_t Record::*member) {
        return *std::find_if(fields.begin(), fields.end(),
                             [member](const Field& field) { return field.number == member; });
    }
    template <class Field, class Record>
    static const Field& FieldOf(std::span<const Field> fields, std::string Record::*member) {
        return *std::find_if(fields.begin(), fields.end(),
                             [member](const Field& field) { return field.text == member; });
    }
    static std::string Text(std::int32_t value) { return std::to_string(value); }
    static const std::string& Text(const std::string& value) { return value; }
    // Texts are taken as they stand.
    static std::string ReadAs(std::int32_t value) { return std::to_string(value); }
    static std::string ReadAs(const std::string& /*value*/) { return {}; }

    template <class Field>
    std::string_view NameOf(const Field& field) const {
        return fromIni_ || field.xmlName.empty() ? field.iniKey : field.xmlName;
    }

    template <class Record>
    InputPlace PlaceOf(std::size_t position, const RecordField<Record>& field,
                       const std::string& value) const {
        std::vector<std::string_view> names;
        for (const RecordField<Record>& other : RecordNames<Record>::Fields())
            names.push_back(fromIni_ ? other.iniKey : other.xmlName);
        if (fromIni_)
            return IniRecordPlace(RecordNames<Record>::iniPrefix, position + 1, field.iniKey, names,
                                  PlaceOf(FieldOf(TemplateFields(), RecordNames<Record>::count), {}));
        if (!source_.Source().node)
            return {.typed = value};
        return XmlRecordPlace(ElementOf<Record>(position), field.xmlName, names, value);
    }
    InputPlace PlaceOf(const TemplateField& field, const std::string& value) const;
    // `count`: the value that says how many such sections there are.
    InputPlace IniRecordPlace(std::string_view prefix, std::size_t number, std::string_view key,
                              const std::vector<std::string_view>& keys, const InputPlace& count) const;
    static InputPlace XmlRecordPlace(const XmlNode& record, std::string_view name,
                                     const std::vector<std::string_view>& names, const std::string& value);

    static Finding WarningAt(Warning warning, const InputPlace& place, std::string record,
                             std::string_view field, const std::string& reason);

    const CTemplate& source_;
    bool fromIni_;
};

// Tells runtime error 6 for `nv`, at `position` from 0, whose array size is the one too many.
inline void TellIndex(const CTemplate& source, const CNv& nv, std::size_t position, FindingSink& findings) {
    findings.Take({static_cast<std::int32_t>(RuntimeError::overflow),
                   TemplatePlaces(source).Of(nv, position, &CNv::arraySize, {.sentence = kTooManyEntries})});
}

}  // namespace tovarek
