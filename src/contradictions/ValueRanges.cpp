#include "contradictions/ValueRanges.h"

#include <map>
#include <utility>

#include "contradictions/RangeRules.h"
#include "template/TemplatePlaces.h"

namespace tovarek {
namespace {

// Values of the template's property `position`, from 0.
void TellTemplateValues(const CTemplate& source, std::size_t position, const JudgedType& judged,
                        FindingSink& findings) {
    constexpr std::pair<std::string RawValues::*, std::string CCp::*> kFields[] = {
        {&RawValues::value, &CCp::defaultValue},
        {&RawValues::initial, &CCp::initValue},
        {&RawValues::minimum, &CCp::minValue},
        {&RawValues::maximum, &CCp::maxValue}};
    const CCp& cp = source.cps[position];
    if (cp.length != static_cast<std::int64_t>(SizeOf(judged.type.type)))
        return;
    const TemplatePlaces places(source);
    RawValues values;
    // What nobody gave is a copy of the value.
    for (const auto& [value, member] : kFields)
        if (member == &CCp::defaultValue || cp.*member != cp.defaultValue || places.Has(position, member))
            values.*value = cp.*member;
    const auto memberOf = [&](std::string RawValues::*value) {
        for (const auto& [other, member] : kFields)
            if (other == value)
                return member;
        return &CCp::defaultValue;
    };
    JudgeValues(values, judged,
                [&](std::string RawValues::*value, const std::string& reason, std::string RawValues::*other) {
                    const bool isAbsent = !places.Has(position, memberOf(value));
                    Finding finding =
                        places.Warn(Warning::valueRange, cp, position, memberOf(value),
                                    (isAbsent ? "no value is given, so it is all zeros, and " : "") + reason);
                    // A misspelt element explains it.
                    finding.causeLine = isAbsent ? finding.context.line : 0;
                    if (other != nullptr) {
                        const ErrorContext place = places.Of(cp, position, memberOf(other), {});
                        finding.notes.push_back({place.file, place.line, place.field + " is " + place.value});
                    }
                    findings.Take(std::move(finding));
                });
}

// Raw values of a type of the user type file.
void TellTypeValues(const CType& type, const JudgedType& judged, FindingSink& findings) {
    constexpr struct {
        std::string RawValues::*value;
        std::string CType::*member;
        TypeInput which;
    } kFields[] = {{&RawValues::initial, &CType::rawInitValue, TypeInput::initial},
                   {&RawValues::minimum, &CType::rawMinValue, TypeInput::minimum},
                   {&RawValues::maximum, &CType::rawMaxValue, TypeInput::maximum}};
    if (!type.inputPlace)
        return;
    const auto placeOf = [&](std::string RawValues::*value) {
        for (const auto& field : kFields)
            if (field.value == value)
                return (*type.inputPlace)(field.which);
        return ErrorContext{};
    };
    RawValues values;
    for (const auto& field : kFields)
        if (!placeOf(field.value).value.empty())
            values.*field.value = type.*field.member;
    // With one limit the other is written as zeros.
    if (!values.minimum.empty() || !values.maximum.empty()) {
        values.minimum = type.rawMinValue;
        values.maximum = type.rawMaxValue;
    }
    JudgeValues(values, judged,
                [&](std::string RawValues::*value, const std::string& reason, std::string RawValues::*other) {
                    Finding finding{.context = placeOf(value), .warning = Warning::valueRange};
                    finding.context.reason = reason;
                    if (other != nullptr) {
                        const ErrorContext place = placeOf(other);
                        finding.notes.push_back(
                            {place.file, place.line,
                             place.field + (place.value.empty() ? " is missing, so it is all zeros"
                                                                : " is " + place.value)});
                    }
                    findings.Take(std::move(finding));
                });
}

}  // namespace

void TellStandardValues(const CTemplate& source, FindingSink& findings) {
    const StandardCatalog* const standard =
        source.catalog == nullptr ? nullptr : source.catalog->types.Catalog();
    const ResourceNames names(standard);
    for (std::size_t i = 0; i < source.cps.size(); ++i) {
        const CCp& cp = source.cps[i];
        const CpType* const type =
            standard != nullptr && cp.scope == 0 ? standard->Cp(cp.typeIndexInScope) : nullptr;
        if (type != nullptr)
            TellTemplateValues(source, i,
                               {ValueTypeOf(standard->CpName(cp.typeIndexInScope), *type, names), names},
                               findings);
    }
}

void TellOwnValues(const CTypes& types, const OwnRecords& records, FindingSink& findings) {
    const CTemplate& source = *types.deviceTemplate;
    std::map<std::int32_t, ResourceNames> names;
    for (std::int32_t scope = 1; scope <= kOwnScope; ++scope)
        if (const OwnTypes* const set = records.Set(scope)) {
            ResourceNames& own = names.try_emplace(scope, types.catalog->types.Catalog()).first->second;
            own.Use(set->types);
            own.Use(set->texts);
        }
    for (std::size_t i = 0; i < source.cps.size(); ++i) {
        const CCp& cp = source.cps[i];
        const CType* const type = PropertyType(types, cp.scope, cp.typeIndexInScope);
        const CpType* const record = type == nullptr ? nullptr : records.Cp(*type);
        if (record == nullptr)
            continue;
        const ResourceNames& own = names.at(cp.scope);
        // The limits of a type of the template stand with its properties.
        TellTemplateValues(
            source, i,
            {cp.scope == kOwnScope ? ValueTypeOf(type->name, static_cast<const NvType&>(*record))
                                   : ValueTypeOf(type->name, *record, own),
             own},
            findings);
    }
    for (const auto& type : types.ucptTypes) {
        const CpType* const record = records.Cp(*type);
        if (record == nullptr || type->scope >= kOwnScope)
            continue;
        TellTypeValues(*type,
                       {ValueTypeOf(type->name, static_cast<const NvType&>(*record)), names.at(type->scope)},
                       findings);
    }
}

}  // namespace tovarek
