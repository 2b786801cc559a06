#include "cli/ProfileFit.h"

#include <algorithm>

#include "base/Nearest.h"
#include "base/Numbers.h"
#include "base/Text.h"
#include "cli/Assignments.h"

namespace tovarek {
namespace {

FieldValue FieldValueOf(const std::string& pair) {
    const std::size_t equals = std::min(pair.find('='), pair.size());
    const ProfileField* field = FieldNamed(pair.substr(0, equals));
    if (field == nullptr) {
        std::vector<std::string> names;
        names.reserve(kProfileFields.size());
        for (const ProfileField& each : kProfileFields)
            names.emplace_back(each.iniKey);
        throw WrongUse("--set '" + Excerpt(pair) +
                       "' names no field of a profile; give FIELD=VALUE, such as typeNeuron=0" +
                       DidYouMean(pair.substr(0, equals), names));
    }
    const auto value =
        ExactNumber<std::int32_t>(std::string_view(pair).substr(std::min(equals + 1, pair.size())));
    if (!value)
        throw WrongUse("--set '" + Excerpt(pair) + "' gives no number; give " + std::string(field->iniKey) +
                       "=NUMBER");
    return {field, *value};
}

std::string ReplacementText(const Replacement& replaced) {
    return "line " + std::to_string(replaced.field->line) + ", " + std::string(replaced.field->iniKey) +
           ": " + std::to_string(replaced.now) + " instead of " + std::to_string(replaced.old) + ": " +
           replaced.why;
}

}  // namespace

std::vector<std::string> FitOrAsk(const std::vector<std::string>& pairs, ProfileValues& profile) {
    std::vector<FieldValue> given;
    given.reserve(pairs.size());
    for (const std::string& pair : pairs)
        given.push_back(FieldValueOf(pair));
    Fitting fitting = FitProfile(profile, given);
    std::string missing;
    for (const Unfit& unfit : fitting.unfit)
        missing += (missing.empty() ? "" : "; ") + std::string(unfit.field->iniKey) + " is " +
                   std::to_string(unfit.value) + ", accepted: " + std::string(unfit.accepted);
    if (!missing.empty())
        throw WrongUse("XIF 4.0 has no such values, and nothing says which stand for them: " + missing +
                       ". Give --set FIELD=VALUE for each");
    std::vector<std::string> replaced;
    for (const Replacement& each : fitting.replaced)
        replaced.push_back(ReplacementText(each));
    return replaced;
}

}  // namespace tovarek
