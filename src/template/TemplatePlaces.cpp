#include "template/TemplatePlaces.h"

#include <algorithm>

#include "base/Text.h"

namespace tovarek {
namespace {

// True for "nv7", with `prefix` "nv": a number from 1 without leading zeros.
bool IsNumbered(std::string_view section, std::string_view prefix) {
    if (section.size() <= prefix.size() || !CaselessEqual()(section.substr(0, prefix.size()), prefix))
        return false;
    const std::string_view digits = section.substr(prefix.size());
    return digits.front() != '0' && std::all_of(digits.begin(), digits.end(), IsDigit);
}

bool IsKnownSection(std::string_view name) {
    for (const TemplateField& field : TemplateFields())
        if (CaselessEqual()(field.iniSection, name))
            return true;
    return IsNumbered(name, RecordNames<CNv>::iniPrefix) || IsNumbered(name, RecordNames<CTag>::iniPrefix) ||
           IsNumbered(name, RecordNames<CCp>::iniPrefix);
}

InputPlace PlaceOfElement(const XmlNode& element, const std::string& typed) {
    return {.file = element.File(),
            .line = element.Line(),
            .column = element.Place().column,
            .width = element.Place().width,
            .typed = typed};
}

IsKnownName OneOf(const std::vector<std::string_view>& names) {
    return [&names](std::string_view name) {
        return std::any_of(names.begin(), names.end(),
                           [&](std::string_view other) { return CaselessEqual()(other, name); });
    };
}

}  // namespace

const TemplateSource& CTemplate::Source() const {
    if (!source_)
        source_ = std::make_shared<const TemplateSource>(
            TemplateSource{IniSource(iniFile, loadedIni_), loadedNode_, ElementsOfTemplate(loadedNode_),
                           !loadedIni_ || loadedIni_->Whole().find("-1") != std::string_view::npos});
    return *source_;
}

InputPlace TemplatePlaces::PlaceOf(const TemplateField& field, const std::string& value) const {
    std::vector<std::string_view> names;
    if (fromIni_) {
        for (const TemplateField& other : TemplateFields())
            if (other.iniSection == field.iniSection)
                names.push_back(other.iniKey);
        return source_.Source().ini.Find(field.iniSection, field.iniKey, IsKnownSection, OneOf(names));
    }
    const XmlNode& node = source_.Source().node;
    if (!node)
        return {.typed = value};
    // Records are counted, not declared.
    if (field.xmlName.empty())
        return PlaceOfElement(node, value);
    names.assign(std::begin(kTemplateLists), std::end(kTemplateLists));
    for (const TemplateField& other : TemplateFields())
        names.push_back(other.xmlName);
    return FindXmlPlace(node, source_.Source().elements.own, field.xmlName, OneOf(names));
}

InputPlace TemplatePlaces::IniRecordPlace(std::string_view prefix, std::size_t number, std::string_view key,
                                          const std::vector<std::string_view>& keys,
                                          const InputPlace& count) const {
    InputPlace place = source_.Source().ini.Find(std::string(prefix) + std::to_string(number), key,
                                                 IsKnownSection, OneOf(keys));
    if (place.missing != InputPart::group)
        return place;
    int existing = 0;
    source_.Source().ini.Text().ForEachSection(
        [&](std::string_view name) { existing += IsNumbered(name, prefix) ? 1 : 0; });
    place.absence = JoinSentences(place.absence, "line " + std::to_string(count.line) + " asks for " +
                                                     Excerpt(count.typed) + " sections [" +
                                                     std::string(prefix) + "1], [" + std::string(prefix) +
                                                     "2], ..., the file has " + std::to_string(existing));
    if (place.line == 0)
        place.line = count.line;
    return place;
}

InputPlace TemplatePlaces::XmlRecordPlace(const XmlNode& record, std::string_view name,
                                          const std::vector<std::string_view>& names,
                                          const std::string& value) {
    if (!record || name.empty())
        return PlaceOfElement(record, value);
    return FindXmlPlace(record, ElementsBelow(record), name, OneOf(names));
}

Finding TemplatePlaces::WarningAt(Warning warning, const InputPlace& place, std::string record,
                                  std::string_view field, const std::string& reason) {
    return {.context = {.record = std::move(record),
                        .field = std::string(field),
                        .value = Excerpt(place.typed),
                        .file = place.file,
                        .line = place.line,
                        .reason = reason},
            .warning = warning,
            .column = place.column,
            .width = place.width};
}

}  // namespace tovarek
