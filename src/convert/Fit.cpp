#include "convert/Fit.h"

#include <algorithm>

#include "base/Text.h"
#include "profile/ProfileRules.h"

namespace tovarek {
namespace {

// What is taken for values that later versions of the format allow and 4.0 does not.
struct FitRow {
    std::int32_t ProfileValues::*field;
    std::int32_t low;  // the values that the row is for
    std::int32_t high;
    std::int32_t taken;
    std::string_view why;
    std::int32_t ProfileValues::*unused = nullptr;  // the row counts where this field is 0
};

constexpr std::int32_t kAny = INT32_MAX;

using P = ProfileValues;
constexpr FitRow kRows[] = {
    {&P::domains, 3, kAny, 2, "the domain table of 4.0 has two entries at most"},
    {&P::addresses, 16, kAny, 15,
     "the address table of 4.0 has 15 entries at most; more of them need the extended commands of later "
     "versions"},
    {&P::applicationtype, 7, 7, 2,
     "7 is what current compilers for Neuron chips say; 4.0 calls an application on a Neuron chip 2"},
    {&P::numberAliases, 4097, kAny, 4096, "4.0 counts 4096 aliases at most"},
    {&P::channelPrioritySlots, 128, kAny, 127, "4.0 counts 127 priority slots at most"},
    {&P::rawDataClockRate, 0, 0, 5,
     "no raw data are given (dataOverrideTiming is 0), so nobody reads it; 5 is usual in such files",
     &P::dataOverrideTiming},
};

const FitRow* RowFor(std::int32_t ProfileValues::*field, const ProfileValues& profile) {
    for (const FitRow& row : kRows)
        if (row.field == field && profile.*field >= row.low && profile.*field <= row.high &&
            (row.unused == nullptr || profile.*row.unused == 0))
            return &row;
    return nullptr;
}

}  // namespace

const ProfileField* FieldNamed(std::string_view iniKey) {
    const std::string wanted = UpperCase(iniKey);
    for (const ProfileField& field : kProfileFields)
        if (UpperCase(field.iniKey) == wanted)
            return &field;
    return nullptr;
}

Fitting FitProfile(ProfileValues& profile, const std::vector<FieldValue>& given) {
    Fitting fitting;
    const auto replace = [&](const ProfileField& field, std::int32_t value, std::string_view why) {
        fitting.replaced.push_back({&field, profile.*field.value, value, std::string(why)});
        profile.*field.value = value;
    };
    for (const FieldValue& each : given)
        if (profile.*each.field->value != each.value)
            replace(*each.field, each.value, "given by --set");
    for (const ProfileRule& rule : ProfileRules()) {
        if (rule.accepts(profile))
            continue;
        const ProfileField& field = FieldOf(FaultyField(rule, profile));
        if (const FitRow* row = RowFor(field.value, profile); row != nullptr)
            replace(field, row->taken, row->why);
        else if (std::none_of(fitting.unfit.begin(), fitting.unfit.end(),
                              [&](const Unfit& unfit) { return unfit.field == &field; }))
            fitting.unfit.push_back({&field, profile.*field.value, rule.accepted});
    }
    return fitting;
}

}  // namespace tovarek
