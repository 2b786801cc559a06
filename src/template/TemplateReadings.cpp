// What of a template is read otherwise than it was written.
#include <string>

#include "base/Nearest.h"
#include "base/Text.h"
#include "control/StandardCatalog.h"
#include "support/Readings.h"
#include "template/CTemplate.h"
#include "template/TemplateFields.h"

namespace tovarek {
namespace {

// What a number of a field means, and the words that people write in its place.
struct Meaning {
    std::string_view iniKey;
    std::int32_t value;
    std::string_view meaning;
    std::string_view words;  // in capitals, each with blanks around it
};
constexpr Meaning kMeanings[] = {
    {"direction", 0, "an input", " INPUT IN "},
    {"direction", 1, "an output", " OUTPUT OUT "},
    {"defaultService", 0, "acknowledged", " ACKNOWLEDGED ACKD ACK "},
    {"defaultService", 1, "repeated", " REPEATED UNACKD_RPT RPT "},
    {"defaultService", 2, "unacknowledged", " UNACKNOWLEDGED UNACKD UNACK "},
    {"type", 0, "a user type", ""},
};
// Of every other field.
constexpr Meaning kFlags[] = {
    {"", 0, "", " NO FALSE OFF "},
    {"", 1, "", " YES TRUE ON "},
};

std::string Mend(std::string_view key, std::int32_t value) {
    return "write " + std::string(key) + "=" + std::to_string(value);
}

// The standard type that a word means.
std::string TypeMend(const CCatalog* catalog, std::string_view key, std::string_view typed) {
    const StandardCatalog* const standard = catalog == nullptr ? nullptr : catalog->types.Catalog();
    if (standard == nullptr)
        return {};
    std::vector<std::string> names;
    for (const CatalogEntry& entry : standard->NvTypes())
        names.push_back(entry.name);
    const std::string name = Nearest(typed, names);
    if (name.empty())
        return {};
    const std::int32_t number = standard->NvIndex(name);
    return name + " is " + std::to_string(number) + ": " + Mend(key, number);
}

std::string WordMend(std::string_view key, std::string_view typed, bool hasMeanings) {
    const std::string word = " " + UpperCase(typed) + " ";
    for (const Meaning& row : kMeanings)
        if (row.iniKey == key && row.words.find(word) != std::string_view::npos)
            return "for " + std::string(row.meaning) + " " + Mend(key, row.value);
    for (const Meaning& row : kFlags)
        if (!hasMeanings && row.words.find(word) != std::string_view::npos)
            return Mend(key, row.value);
    return {};
}

// What is told of a value that is no number: what it is read as, and what to write.
std::string Explain(const CCatalog* catalog, std::string_view key, std::string_view typed,
                    std::int32_t read) {
    std::string meaning;
    bool hasMeanings = false;
    for (const Meaning& row : kMeanings) {
        hasMeanings = hasMeanings || row.iniKey == key;
        if (row.iniKey == key && row.value == read)
            meaning = row.meaning;
    }
    std::string mend;
    if (!typed.empty())
        mend = key == "type" ? TypeMend(catalog, key, typed) : WordMend(key, typed, hasMeanings);
    return mend.empty() || meaning.empty() ? meaning + mend : meaning + "; " + mend;
}

template <class Record>
void TellIniRecords(const std::vector<Record>& records, const CCatalog* catalog, IniReading& ini,
                    FindingSink& findings) {
    for (std::size_t i = 0; i < records.size(); ++i) {
        const std::string section = std::string(RecordNames<Record>::iniPrefix) + std::to_string(i + 1);
        const std::string title = RecordTitle(records[i], i);
        for (const RecordField<Record>& field : RecordNames<Record>::Fields()) {
            if (field.iniKey.empty())
                continue;
            if (field.text != nullptr)
                ini.Text(section, field.iniKey, title, findings);
            else
                ini.Integer(
                    section, field.iniKey, title,
                    [&](std::string_view typed, std::int32_t read) {
                        return Explain(catalog, field.iniKey, typed, read);
                    },
                    findings);
        }
    }
    for (const TemplateField& field : TemplateFields())
        if (field.number == RecordNames<Record>::count)
            ini.Numbered(RecordNames<Record>::iniPrefix, field.iniSection, field.iniKey);
}

}  // namespace

void CTemplate::TellReadings(Readings& readings) const {
    if (!iniFile.empty())
        TellIniReadings(readings.Ini(iniFile), readings.Findings());
}

void CTemplate::TellIniReadings(IniReading& ini, FindingSink& findings) const {
    for (const TemplateField& field : TemplateFields()) {
        if (field.text != nullptr)
            ini.Text(field.iniSection, field.iniKey, "template", findings);
        else
            ini.Integer(field.iniSection, field.iniKey, "template", {}, findings);
    }
    TellIniRecords(nvs, catalog, ini, findings);
    TellIniRecords(tags, catalog, ini, findings);
    TellIniRecords(cps, catalog, ini, findings);
    for (std::size_t i = 0; i < tags.size(); ++i) {
        const std::string section = std::string(RecordNames<CTag>::iniPrefix) + std::to_string(i + 1);
        if (!ini.HasSection(section) || ini.HasKey(section, "bindable"))
            continue;
        findings.Take(
            {.context = {.record = RecordTitle(tags[i], i),
                         .field = "bindable",
                         .file = iniFile,
                         .line = ini.LineOf(section),
                         .reason = "the tag has no bindable, so it is not bindable; an XML template "
                                   "takes it as bindable: write bindable=0 or bindable=1"},
             .warning = Warning::missingValue,
             .part = LinePart::all});
    }
}

}  // namespace tovarek
