// What of a profile is read otherwise than it was written.
#include <string>

#include "profile/CProfile.h"
#include "profile/ProfileFields.h"
#include "support/Readings.h"

namespace tovarek {
namespace {

// Values that a profile in INI form may lack without an error, since no check looks at -1 there; it is
// written.
constexpr std::int32_t ProfileValues::*kUnchecked[] = {&ProfileValues::transceiverInterface,
                                                       &ProfileValues::generalData0};

std::string RecordOf(const ProfileField& field) {
    return "profile line " + std::to_string(field.line);
}

}  // namespace

void CProfile::TellReadings(Readings& readings) const {
    if (!iniFile.empty())
        TellIniReadings(readings.Ini(iniFile), readings.Findings());
}

void CProfile::TellIniReadings(IniReading& ini, FindingSink& findings) const {
    for (const ProfileField& field : kProfileFields)
        ini.Integer(
            "Line" + std::to_string(field.line), field.iniKey, [&] { return RecordOf(field); }, {}, findings);
    for (const auto value : kUnchecked)
        for (const ProfileField& field : kProfileFields) {
            const std::string section = "Line" + std::to_string(field.line);
            if (field.value != value || !ini.HasSection(section) || ini.HasKey(section, field.iniKey))
                continue;
            findings.Take({.context = {.record = RecordOf(field),
                                       .field = std::string(field.iniKey),
                                       .file = iniFile,
                                       .line = ini.LineOf(section),
                                       .reason = std::string(field.iniKey) +
                                                 " is missing and is written as -1: give it a value"},
                           .warning = Warning::missingValue,
                           .part = LinePart::all});
        }
}

}  // namespace tovarek
