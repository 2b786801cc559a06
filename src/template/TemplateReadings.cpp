// What of a template is read otherwise than it was written.
#include <algorithm>
#include <cstdint>
#include <string>

#include "support/Readings.h"
#include "template/CTemplate.h"
#include "template/FieldMeanings.h"
#include "template/TemplateFields.h"

namespace tovarek {
namespace {

template <class Record>
void TellIniRecords(const std::vector<Record>& records, const CCatalog* catalog, IniReading& ini,
                    FindingSink& findings) {
    for (std::size_t i = 0; i < records.size(); ++i) {
        const std::string section = std::string(RecordNames<Record>::iniPrefix) + std::to_string(i + 1);
        if (ini.IsPlain(section))
            continue;
        const IniReading::Title title = [&records, i] { return RecordTitle(records[i], i); };
        for (const RecordField<Record>& field : RecordNames<Record>::Fields()) {
            if (field.iniKey.empty())
                continue;
            // One question tells that the section is wanted.
            if (!ini.HasSection(section)) {
                ini.Text(section, field.iniKey, title, findings);
                break;
            }
            if (field.text != nullptr)
                ini.Text(section, field.iniKey, title, findings);
            else
                ini.Integer(
                    section, field.iniKey, title,
                    [&](std::string_view typed, std::int32_t read) {
                        return ExplainNumber(catalog, {field.iniKey, {}}, typed, read);
                    },
                    findings);
        }
    }
}

template <class Record>
void TellCount(std::int32_t most, IniReading& ini) {
    for (const TemplateField& field : TemplateFields())
        if (field.number == RecordNames<Record>::count)
            ini.Numbered(RecordNames<Record>::iniPrefix, field.iniSection, field.iniKey, most);
}

}  // namespace

void CTemplate::TellReadings(Readings& readings) const {
    if (!iniFile.empty())
        TellIniReadings(readings.Ini(iniFile, loadedIni_), readings.Findings());
    else if (loadedNode_)
        TellXmlReadings(readings.Xml(loadedNode_), readings.Findings());
    TellTexts(readings.Findings());
}

void CTemplate::TellIniReadings(IniReading& ini, FindingSink& findings) const {
    const IniReading::Title title = [] { return std::string("template"); };
    const std::int32_t maximum = std::max(maximumNumberOfNvs, 0);
    TellCount<CNv>(std::min(maximum, kMostNvs - maximum), ini);
    TellCount<CTag>(kMostTags, ini);
    TellCount<CCp>(INT32_MAX, ini);
    for (const TemplateField& field : TemplateFields()) {
        if (field.text != nullptr)
            ini.Text(field.iniSection, field.iniKey, title, findings);
        else
            ini.Integer(field.iniSection, field.iniKey, title, {}, findings);
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
