#include "convert/ElementOfType.h"

#include "base/Numbers.h"
#include "values/Scaling.h"

namespace tovarek {
namespace {

// A limit that is not that of the kind, scaled.
double ScaledLimit(std::int64_t raw, const TypeDescription& type) {
    // Without a factor the raw number counts.
    return type.a == 0 ? static_cast<double>(raw + type.c)
                       : LeadingNumber(ScaledText(raw, type).value_or("0"));
}

void SetRange(const TypeDescription& type, CType& content) {
    content.a_coef = type.a;
    content.b_coef = type.b;
    content.c_coef = type.c;
    content.hasMin = type.minimum != SmallestRaw(type);
    content.hasMax = type.maximum != LargestRaw(type);
    if (content.hasMin)
        content.minValue = ScaledLimit(type.minimum, type);
    if (content.hasMax)
        content.maxValue = ScaledLimit(type.maximum, type);
    // A factor below 0 turns them around, and a MIN above MAX is refused.
    if (content.hasMin && content.hasMax && content.minValue > content.maxValue)
        content.hasMin = content.hasMax = false;
}

void SetFloatRange(const TypeDescription& type, CType& content) {
    const TypeDescription widest = NumberOfKind(TypeKind::floatingPoint);
    content.hasMin = type.floatMinimum != widest.floatMinimum;
    content.hasMax = type.floatMaximum != widest.floatMaximum;
    if (content.hasMin)
        content.minValue = ShortestOf(type.floatMinimum);
    if (content.hasMax)
        content.maxValue = ShortestOf(type.floatMaximum);
}

}  // namespace

ElementType ElementOf(TypeKind kind) {
    switch (kind) {
        case TypeKind::signedChar:
        case TypeKind::signedShort:
        case TypeKind::signedLong:
        case TypeKind::signedQuad:
            return elementSigned;
        case TypeKind::unsignedQuad:
            return elementBitfield;  // an UNSIGNEDNUMERIC has 2 bytes at most
        case TypeKind::bitField:
            return elementBits;
        case TypeKind::enumeration:
            return elementEnum;
        case TypeKind::floatingPoint:
            return elementFloat;
        case TypeKind::structure:
            return elementStruct;
        case TypeKind::unionKind:
            return elementUnion;
        default:
            return elementUnsigned;
    }
}

bool IsValue(TypeKind kind) {
    return IsInteger(kind) || kind == TypeKind::floatingPoint || kind == TypeKind::enumeration ||
           kind == TypeKind::bitField;
}

void SetLimits(const TypeDescription& type, CType& content) {
    if (type.kind == TypeKind::floatingPoint)
        SetFloatRange(type, content);
    else
        SetRange(type, content);
}

}  // namespace tovarek
