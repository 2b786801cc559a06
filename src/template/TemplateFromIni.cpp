// The INI form of a template: sections "general", "nvs", "tags" and "cps", and one numbered section per
// record.
#include <algorithm>
#include <map>

#include "base/Numbers.h"
#include "support/cIni.h"
#include "template/CTemplate.h"
#include "template/TemplatePlaces.h"

namespace tovarek {
namespace {

// The counts of a template are taken as they stand and may be anything. Reading stops where validation is
// bound to refuse the template all the same: behind the first record that is one too many.
constexpr std::int32_t kMostNvsRead = 4097;
constexpr std::int32_t kMostTagsRead = 15;

template <class Record>
void ReadRecord(const IniText& text, std::int64_t number, IniSection& section, Record& record) {
    std::string name(RecordNames<Record>::iniPrefix);
    AppendInteger(name, number);
    text.ReadSection(name, section);
    for (const RecordField<Record>& field : RecordNames<Record>::Fields()) {
        if (field.iniKey.empty())
            continue;
        if (field.text != nullptr)
            record.*field.text = section.StringValue(field.iniKey, "");
        else
            record.*field.number = section.LongValue(field.iniKey, field.iniDefault);
    }
    text.KeepPlain(section);
}

// The variables behind the last one that is read: `lastRead` entries of the table are taken already, the rest
// of `count` sections adds one each and more where a section declares an array. Tells runtime error 6 for
// the first variable, by its number, that is beyond what can be counted.
void CountEntriesBehind(const IniText& text, const CTemplate& source, std::int32_t lastRead,
                        std::int64_t taken, FindingSink& findings) {
    const std::int32_t count = source.numberStaticNvs;
    IniSection section;
    std::map<std::int32_t, std::int32_t> arrays;
    text.ForEachSection([&](std::string_view name) {
        const std::int32_t number = NumberBehind(name, RecordNames<CNv>::iniPrefix);
        if (number <= lastRead || number > count)
            return;
        text.ReadSection(name, section);
        if (const std::int32_t arraySize = section.LongValue("arraySize", 0); arraySize > 1)
            arrays.emplace(number, arraySize);
    });
    taken -= lastRead;  // the number of a variable counts its own entry and those of all in front of it
    for (const auto& [number, arraySize] : arrays) {
        taken += arraySize - 1;
        if (taken + number <= INT32_MAX)
            continue;
        CNv nv;
        ReadRecord(text, number, section, nv);
        return TellIndex(source, nv, static_cast<std::size_t>(number) - 1, findings);
    }
    if (taken + count > INT32_MAX)
        findings.Take(
            {static_cast<std::int32_t>(RuntimeError::overflow),
             TemplatePlaces(source).Of(&CTemplate::numberStaticNvs, {.sentence = kTooManyEntries})});
}

// Records grow by copying; a count that the file cannot fill must not reserve anything.
std::size_t RecordsToExpect(const IniText& text, std::int32_t count) {
    return std::min(static_cast<std::size_t>(std::max(count, 0)), text.SectionCount() + 1);
}

void ReadNvs(const IniText& text, const CTemplate& source, std::vector<CNv>& nvs, FindingSink& findings) {
    const std::int32_t read = std::min(source.numberStaticNvs, kMostNvsRead);
    IniSection section;
    std::int64_t index = 0;
    nvs.reserve(RecordsToExpect(text, read));
    for (std::int32_t number = 1; number <= read; ++number) {
        CNv& nv = nvs.emplace_back();
        nv.index = static_cast<std::int32_t>(index);
        ReadRecord(text, number, section, nv);
        index += std::max(nv.arraySize, 1);
        if (index > INT32_MAX)
            return TellIndex(source, nv, nvs.size() - 1, findings);
    }
    if (source.numberStaticNvs > read)
        CountEntriesBehind(text, source, read, index, findings);
}

void ReadTags(const IniText& text, std::int32_t count, std::vector<CTag>& tags) {
    IniSection section;
    for (std::int32_t number = 1; number <= std::min(count, kMostTagsRead); ++number) {
        CTag& tag = tags.emplace_back();
        ReadRecord(text, number, section, tag);
        tag.index = number - 1;
    }
}

void ReadCps(const IniText& text, std::int32_t count, std::vector<CCp>& cps) {
    IniSection section;
    cps.reserve(RecordsToExpect(text, count));
    for (std::int64_t number = 1; number <= count; ++number) {
        CCp& cp = cps.emplace_back();
        ReadRecord(text, number, section, cp);
        if (cp.arraySize == 1)
            cp.arraySize = 0;
        // Validation ends at the first property without a declaration at the latest.
        if (cp.declaration.empty())
            break;
    }
}

}  // namespace

void CTemplate::LoadTemplateFromIni(FindingSink& findings) {
    cIni ini;
    ini.iniFile(iniFile);
    loadedIni_ = ini.Text();
    const IniText& text = *loadedIni_;
    IniSection section;
    for (const TemplateField& field : TemplateFields()) {
        text.ReadSection(field.iniSection, section);
        if (field.text != nullptr)
            this->*field.text = section.StringValue(field.iniKey, "");
        else
            this->*field.number = section.LongValue(field.iniKey, 0);
    }
    ReadNvs(text, *this, nvs, findings);
    ReadTags(text, numberOfMessageTags, tags);
    ReadCps(text, numberOfCps, cps);
}

}  // namespace tovarek
