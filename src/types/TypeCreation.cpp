// Writing a type into the open resource files: its texts, its enumerations, its description.
#include <limits>

#include "base/Numbers.h"
#include "base/Text.h"
#include "types/CType.h"
#include "types/ControlResult.h"

namespace tovarek {
namespace {

// The limit `raw` of the number `type` as a raw value; nothing where the type element gives none, so that the
// limit of its kind holds. One beyond 32 bits is runtime error 6, told by the limit that the file has.
std::optional<std::int32_t> RawLimit(const CType& type, bool isGiven, std::int32_t (CType::*raw)() const,
                                     double scaled, const char* field) {
    if (!isGiven)
        return std::nullopt;
    const auto place = [&] {
        return ErrorContext{.field = field,
                            .value = DoubleToText(scaled),
                            .line = type.LineOf(field),
                            .reason = "with A_COEF, B_COEF and C_COEF the raw value exceeds 32 bits"};
    };
    return WithContext(place, [&] { return (type.*raw)(); });
}

NumberRange RangeOf(const CType& type) {
    NumberRange range{.a = type.a_coef, .b = type.b_coef, .c = type.c_coef};
    // Deliberate: a BITFIELD has the limits of its kind, whatever MIN and MAX say.
    if (type.elementType != elementBitfield) {
        range.minimum = RawLimit(type, type.hasMin, &CType::minValueToLong, type.minValue, "MIN");
        range.maximum = RawLimit(type, type.hasMax, &CType::maxValueToLong, type.maxValue, "MAX");
    }
    return range;
}

std::optional<double> FloatLimit(bool isGiven, double limit) {
    return isGiven ? std::optional<double>(limit) : std::nullopt;
}

// The factor that does not fit the 16 bits that the file has for it; without one the array is meant.
ErrorContext DetailOf(const CType& type) {
    using Stored = std::numeric_limits<std::int16_t>;
    for (const auto& [field, value] :
         {std::pair{"A_COEF", type.a_coef}, {"B_COEF", type.b_coef}, {"C_COEF", type.c_coef}})
        if (value < Stored::min() || value > Stored::max())
            return {.field = field, .value = std::to_string(value)};
    return {.field = "ARRAY", .value = std::to_string(type.arraySize)};
}

// The child of the type element that the control's answer `code` to the description is about.
ErrorContext ChildOf(std::int32_t code, const CType& type) {
    switch (code) {
        case resultBadMinimum:
            return {.field = "MIN", .value = DoubleToText(type.minValue)};
        case resultBadMaximum:
            return {.field = "MAX", .value = DoubleToText(type.maxValue)};
        case resultErrorSettingDetails:
            return DetailOf(type);
        case resultErrorSettingNumMembers:
            return {.field = "FIELDS"};
        case resultBadParam:
            return type.isReference() ? ErrorContext{}
                                      : ErrorContext{.field = "LENGTH", .value = std::to_string(type.length)};
        // A member is named where its owner lists it.
        case resultErrorAddingMember:
            return {.line = type.memberLine};
        default:
            return {};
    }
}

ErrorContext DescriptionContext(std::int32_t code, const CType& type) {
    ErrorContext context = ChildOf(code, type);
    if (context.line == 0)
        context.line = type.LineOf(context.field);
    return context;
}

// Does `operation` for each of `members`, those of a structure or union; errors tell which one it was.
template <class Operation>
void ForEachMember(auto& members, const Operation& operation) {
    for (auto& member : members)
        WithContext([&] { return MemberContext(member); }, [&] { operation(member); });
}

}  // namespace

void CType::AddText(std::string_view field, const std::string& text, std::int32_t& number, CCatalog& catalog,
                    std::int32_t& resNumber, const CErrorHandler& errorHandler) const {
    if (text.empty())
        return;
    std::int32_t stringScope = 0;
    const std::int32_t code = catalog.types.AddLanguageString(text, 0, number, stringScope);
    if (code != resultOk)
        RaiseControlError(code, {.field = std::string(field), .value = Excerpt(text), .line = LineOf(field)},
                          catalog.types, errorHandler);
    ++resNumber;
}

void CType::AddToLangFile(CCatalog& catalog, std::int32_t& resNumber, const CErrorHandler& errorHandler) {
    if (isReference())
        return;
    AddText("LONGNAME", longname, res_longname, catalog, resNumber, errorHandler);
    AddText("DESC", description, res_description, catalog, resNumber, errorHandler);
    AddText("UNIT", unit, res_unit, catalog, resNumber, errorHandler);
    if (elementType == elementEnum && enumValues)
        for (CEnumValue& value : *enumValues)
            AddText("ENUMS", value.description, value.res_description, catalog, resNumber, errorHandler);
    if (HasMembers())
        ForEachMember(elements,
                      [&](CType& member) { member.AddToLangFile(catalog, resNumber, errorHandler); });
}

void CType::CreateEnum(CCatalog& catalog, const CErrorHandler& errorHandler, CreatedEnums& alreadyCreated) {
    const auto known = alreadyCreated.find(enumName);
    if (known != alreadyCreated.end()) {
        enumIndex = known->second;
        return;
    }
    QVxTypes& control = catalog.types;
    CheckControl(control.CreateEnumeration(enumName, enumIndex), "ENUMS", control, errorHandler);
    for (const CEnumValue& value : *enumValues) {
        const std::int32_t code =
            control.AddEnumerationValue(enumIndex, value.name, value.value, value.res_description);
        if (code != resultOk)
            RaiseControlError(code,
                              {.field = "ENUMS, value " + value.name,
                               .value = std::to_string(value.value),
                               .line = value.line},
                              control, errorHandler);
    }
    alreadyCreated.emplace(enumName, enumIndex);
}

void CType::CreateEnums(CCatalog& catalog, const CErrorHandler& errorHandler, CreatedEnums& alreadyCreated) {
    if (isReference())
        return;
    if (elementType == elementEnum)
        CreateEnum(catalog, errorHandler, alreadyCreated);
    if (HasMembers())
        ForEachMember(elements,
                      [&](CType& member) { member.CreateEnums(catalog, errorHandler, alreadyCreated); });
}

void CType::CreateType(CCatalog& catalog, const CErrorHandler& errorHandler, bool isFirst) const {
    if (isFirst)
        StartType(catalog, errorHandler);
    if (const std::int32_t code = Describe(catalog.types); code != resultOk)
        RaiseControlError(code, DescriptionContext(code, *this), catalog.types, errorHandler);
    if (!isReference() && HasMembers())
        ForEachMember(elements,
                      [&](const CType& member) { member.CreateType(catalog, errorHandler, false); });
    if (isFirst)
        Register(catalog, errorHandler);
}

void CType::StartType(CCatalog& catalog, const CErrorHandler& errorHandler) const {
    CheckControl(catalog.types.StartType(name), "NAME", catalog.types, errorHandler);
}

// One call for the type itself, members aside.
std::int32_t CType::Describe(QVxTypes& control) const {
    const TypeElement element{.name = name,
                              .nameText = res_longname,
                              .descriptionText = res_description,
                              .unitText = res_unit,
                              .arraySize = arraySize > 0 ? arraySize : 0};
    if (isReference())
        return control.DescribeReference(element, typeIndex, length);
    switch (elementType) {
        case elementSigned:
            return control.DescribeSigned(element, length, RangeOf(*this));
        case elementUnsigned:
        case elementBitfield:
            return control.DescribeUnsigned(element, length, RangeOf(*this));
        case elementBits:
            return control.DescribeBitField(element, bitfieldSize, bitfieldOffset, bitfieldSigned,
                                            RangeOf(*this));
        case elementEnum:
            return control.DescribeEnumeration(element, enumIndex, RoundToInt32(minValue),
                                               RoundToInt32(maxValue));
        case elementTextual:
            return control.DescribeText(element, length);
        case elementFloat:
            return control.DescribeFloat(element, FloatLimit(hasMin, minValue), FloatLimit(hasMax, maxValue));
        case elementStruct:
            return control.DescribeStructure(element, static_cast<std::int32_t>(elements.size()));
        case elementUnion:
            return control.DescribeUnion(element, static_cast<std::int32_t>(elements.size()));
        case elementNone:
            break;
    }
    return resultBadParam;
}

void CType::Register(CCatalog& catalog, const CErrorHandler& errorHandler) const {
    QVxTypes& control = catalog.types;
    // Success is a code of its own here.
    if (const std::int32_t code = control.CompleteType(); code != resultTypeComplete)
        RaiseControlError(code, {}, control, errorHandler);
    const std::int32_t code = isUnvt ? control.RegisterNetworkVariableType(indexInScope)
                                     : control.RegisterConfigurationPropertyType(
                                           indexInScope, length, rawInitValue, rawMinValue, rawMaxValue);
    if (code != resultOk)
        RaiseControlError(code, RegistrationContext(code), control, errorHandler);
}

// What the control's answer `code` to the registration is about: a raw value where it stands in the input, or
// the number of the type.
ErrorContext CType::RegistrationContext(std::int32_t code) const {
    constexpr struct {
        std::int32_t code;
        TypeInput which;
        std::string CType::*value;
        const char* title;
    } kRawValues[] = {
        {resultBadInitial, TypeInput::initial, &CType::rawInitValue, "initial value"},
        {resultBadMinimum, TypeInput::minimum, &CType::rawMinValue, "minimum value"},
        {resultBadMaximum, TypeInput::maximum, &CType::rawMaxValue, "maximum value"},
    };
    for (const auto& row : kRawValues) {
        if (row.code != code)
            continue;
        ErrorContext context = inputPlace ? (*inputPlace)(row.which) : ErrorContext{};
        context.value = Excerpt(this->*row.value);
        if (context.field.empty())
            context.field = row.title;
        // A line says nothing without its file.
        if (context.file.empty())
            context.line = 0;
        return context;
    }
    return {.field = "index in scope " + std::to_string(indexInScope)};
}

}  // namespace tovarek
