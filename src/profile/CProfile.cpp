#include "profile/CProfile.h"

#include <algorithm>
#include <set>

#include "base/Text.h"
#include "profile/ProfileFields.h"
#include "profile/ProfileRules.h"
#include "support/CTools.h"
#include "support/IniText.h"

namespace tovarek {
namespace {

std::string SectionOf(int line) {
    return "Line" + std::to_string(line);
}

std::string LineElement(int line) {
    return "XIF_LINE" + std::to_string(line);
}

bool IsLine(std::string_view name, std::string (*nameOf)(int line)) {
    for (int line = kFirstProfileLine; line <= kLastProfileLine; ++line)
        if (CaselessEqual()(name, nameOf(line)))
            return true;
    return false;
}

std::size_t IndexOf(const ProfileField& field) {
    return static_cast<std::size_t>(&field - kProfileFields.data());
}

}  // namespace

InputPlace CProfile::PlaceOf(const ProfileField& field) const {
    if (!iniFile.empty()) {
        const auto isKnownKey = [&](std::string_view name) {
            for (const ProfileField& other : kProfileFields)
                if (other.line == field.line && CaselessEqual()(other.iniKey, name))
                    return true;
            return false;
        };
        return IniSource(iniFile, loadedIni_)
            .Find(
                SectionOf(field.line), field.iniKey,
                [](std::string_view name) { return IsLine(name, SectionOf); }, isKnownKey);
    }
    if (!xifFile.empty())
        return {.file = xifFile, .line = field.line, .typed = tokens_[IndexOf(field)]};
    return XmlPlaceOf(field);
}

InputPlace CProfile::XmlPlaceOf(const ProfileField& field) const {
    if (const XmlNode& element = elements_[IndexOf(field)])
        return {.file = element.File(),
                .line = element.Line(),
                .column = element.Place().column,
                .width = element.Place().width,
                .typed = CTools().nodeTextValue(element)};
    if (!loadedXml_)
        return {.typed = std::to_string(this->*field.value)};
    const std::vector<XmlNode> all = ElementsBelow(loadedXml_);
    const std::string wanted = LineElement(field.line);
    InputPlace place = FindXmlPlace(loadedXml_, all, wanted,
                                    [](std::string_view name) { return IsLine(name, LineElement); });
    if (place.missing == InputPart::none) {
        for (const XmlNode& element : all)
            if (UpperCase(element.Name()) == wanted)
                place = FindXmlPlace(
                    element, ElementsBelow(element), UpperCase(field.name), [](std::string_view name) {
                        return std::any_of(kProfileFields.begin(), kProfileFields.end(),
                                           [&](const auto& other) { return UpperCase(other.name) == name; });
                    });
    } else {
        place.missing = InputPart::group;
    }
    if (place.missing != InputPart::none)
        place.absence = JoinSentences(
            place.absence,
            wasLoaded_ ? "its value " + std::to_string(this->*field.value) + " stays from an earlier load"
                       : "without it the value is " + std::to_string(this->*field.value));
    return place;
}

ErrorContext CProfile::ContextOfFault(const ProfileField& field, std::string_view read,
                                      const Expected& expected) const {
    std::string record = "profile line " + std::to_string(field.line);
    if (!xifFile.empty() && iniFile.empty())
        record += ", number " + std::to_string(field.token);
    return ContextOf(PlaceOf(field), std::move(record), iniFile.empty() ? field.name : field.iniKey, read,
                     expected);
}

void CProfile::VerifyData() const {
    RaisingSink raise(*errorHandler);
    VerifyData(raise);
}

void CProfile::VerifyData(FindingSink& findings) const {
    std::set<int> missingLines;
    for (const ProfileRule& rule : ProfileRules()) {
        if (rule.accepts(*this))
            continue;
        const ProfileField& field = FieldOf(FaultyField(rule, *this));
        const InputPlace place = PlaceOf(field);
        if (place.missing == InputPart::group && !missingLines.insert(field.line).second)
            continue;  // everything else of the line is missing for the same reason
        findings.Take({rule.error,
                       ContextOfFault(field, std::to_string(this->*field.value), {.values = rule.accepted})});
        if (place.missing == InputPart::file || (place.missing == InputPart::group && HasNoLine()))
            return;
    }
}

bool CProfile::HasNoLine() const {
    return std::none_of(kProfileFields.begin(), kProfileFields.end(), [&](const ProfileField& field) {
        return field.token == 1 && PlaceOf(field).missing != InputPart::group;
    });
}

bool CProfile::IsRefused(const ProfileField& field) const {
    for (const ProfileRule& rule : ProfileRules())
        if (FieldOf(FaultyField(rule, *this)).value == field.value && !rule.accepts(*this))
            return true;
    return false;
}

}  // namespace tovarek
