// The checks of a type, in their order.
#include "base/Text.h"
#include "support/CTools.h"
#include "types/CType.h"

namespace tovarek {
namespace {

constexpr std::int32_t kBitsOfByte = 8;

// Raises `error` for a field of `type`.
[[noreturn]] void Fail(const CErrorHandler& errorHandler, eErrors error, const CType& type,
                       std::string_view field, std::string value, std::string_view reason) {
    errorHandler.RaiseError(error, {.field = std::string(field),
                                    .value = std::move(value),
                                    .line = type.line,
                                    .reason = std::string(reason)});
}

}  // namespace

void CType::VerifyData(const CErrorHandler& errorHandler) const {
    VerifyIdentity(errorHandler);
    // What a standard type looks like is settled by the standard.
    if (isReference())
        return;
    VerifyDefinition(errorHandler);
    if (HasMembers()) {
        for (const CType& member : elements) {
            try {
                member.VerifyData(errorHandler);
            } catch (Error& error) {
                AddMemberContext(error, member);
                throw;
            }
        }
    }
    VerifyNumber(errorHandler);
    if (elementType == elementBits)
        VerifyBitField(errorHandler);
}

void CType::VerifyIdentity(const CErrorHandler& errorHandler) const {
    if (!isField && !isUnvt && indexInScope < 1)
        Fail(errorHandler, eQVXIFerr_badcpindexinscope, *this, "index in scope", std::to_string(indexInScope),
             "configuration-property types are numbered from 1");
    if (elementType == elementNone)
        Fail(errorHandler, eQVXIFerr_typeelementwithnodefinedtype, *this, "TYPE", "",
             "every type element has a TYPE");
    if (name.empty())
        Fail(errorHandler, eQVXIFerr_typeelementwithnoname, *this, "NAME", "",
             "no NAME gives the type a name");
}

void CType::VerifyDefinition(const CErrorHandler& errorHandler) const {
    if (hasMin && hasMax && !(minValue <= maxValue))
        Fail(errorHandler, eQVXIFerr_typeelementwithmaxlesserthanmin, *this, "MIN",
             CTools().doubleToStringWithPoint(minValue),
             "the maximum is " + CTools().doubleToStringWithPoint(maxValue));
    // The length of a member with members is that of its members.
    if (!(isField && HasMembers()) && length < 1)
        Fail(errorHandler, eQVXIFerr_typeelementwithnolength, *this, "LENGTH", std::to_string(length),
             "a type has 1 byte or more");
    if (elementType == elementEnum && (!enumValues || enumValues->empty()))
        Fail(errorHandler, eQVXIFerr_typeenumwithnoenums, *this, "ENUMS", "",
             "ENUMS with a value or more has to follow TYPE");
    if (elementType == elementEnum && enumName.empty())
        Fail(errorHandler, eQVXIFerr_enumwithoutname, *this, "ENUMS", "", "the enumeration has no name");
    if (HasMembers() && elements.empty())
        Fail(errorHandler, eQVXIFerr_structunionwithnofields, *this, "FIELDS", "",
             "FIELDS with a member or more has to follow TYPE");
}

void CType::VerifyNumber(const CErrorHandler& errorHandler) const {
    if (elementType == elementSigned && length != 1 && length != 2 && length != 4)
        Fail(errorHandler, eQVXIFerr_lengthsignednumeric, *this, "LENGTH", std::to_string(length),
             "accepted: 1, 2 and 4");
    if (elementType == elementUnsigned && length != 1 && length != 2)
        Fail(errorHandler, eQVXIFerr_lengthunsignednumeric, *this, "LENGTH", std::to_string(length),
             "accepted: 1 and 2");
    if (arraySize > 0 && (HasMembers() || elementType == elementTextual || elementType == elementBits))
        Fail(errorHandler, eQVXIFerr_arraynotpossibleforthistype, *this, "ARRAY", std::to_string(arraySize),
             "structures, unions, texts and bit fields cannot be arrays");
}

void CType::VerifyBitField(const CErrorHandler& errorHandler) const {
    if (bitfieldSize < 1 || bitfieldSize > kBitsOfByte)
        Fail(errorHandler, eQVXIFerr_badbitfieldsize, *this, "BFSIZE", std::to_string(bitfieldSize),
             "accepted: 1 to 8");
    if (bitfieldOffset < 0 || bitfieldOffset >= kBitsOfByte)
        Fail(errorHandler, eQVXIFerr_badbitfieldoffset, *this, "BFOFFSET", std::to_string(bitfieldOffset),
             "accepted: 0 to 7");
    if (bitfieldSize + bitfieldOffset > kBitsOfByte)
        Fail(errorHandler, eQVXIFerr_badbitfieldoffsetandsize, *this, "BFOFFSET",
             std::to_string(bitfieldOffset),
             "a bit field of " + std::to_string(bitfieldSize) + " bits ends outside its byte");
}

}  // namespace tovarek
