#include "profile/CProfile.h"

#include "base/Numbers.h"
#include "profile/ProfileFields.h"
#include "profile/ProfileRules.h"
#include "support/cIni.h"

namespace tovarek {

ErrorContext CProfile::PlaceOf(const ProfileField& field) const {
    ErrorContext place;
    place.record = "profile line " + std::to_string(field.line);
    place.field = field.name;
    if (!iniFile.empty()) {
        cIni ini;
        ini.iniFile(iniFile);
        place.file = iniFile;
        place.field = field.iniKey;
        place.line = ini.Text()->LineOf("Line" + std::to_string(field.line), field.iniKey);
    } else if (!xifFile.empty()) {
        place.file = xifFile;
        place.line = field.line;
    } else {
        place.file = loadedXmlFile_;
        place.line = xmlLines_[static_cast<std::size_t>(&field - kProfileFields.data())];
    }
    return place;
}

void CProfile::VerifyData() const {
    RaisingSink raise(*errorHandler);
    VerifyData(raise);
}

void CProfile::VerifyData(FindingSink& findings) const {
    for (const ProfileRule& rule : ProfileRules()) {
        if (rule.accepts(*this))
            continue;
        ErrorContext context = PlaceOf(FieldOf(rule.field));
        context.value = std::to_string(this->*rule.field);
        context.reason = rule.accepted;
        if (!iniFile.empty() && this->*rule.field == -1)
            context.reason += "; a missing key reads as -1";
        findings.Take({rule.error, std::move(context)});
    }
}

}  // namespace tovarek
