// The checks of a type, in their order.
#include "base/Text.h"
#include "formats/type/TypeFile.h"
#include "support/CTools.h"
#include "support/InputPlace.h"
#include "types/CType.h"

namespace tovarek {
namespace {

// Tells `findings` of a fault in a field of `type`.
void Tell(FindingSink& findings, eErrors error, const CType& type, std::string_view field, std::string value,
          std::string_view reason) {
    ErrorContext context = type.PlaceOf(field, std::move(value));
    context.reason = JoinSentences(context.reason, reason);
    findings.Take({error, std::move(context)});
}

}  // namespace

void CType::VerifyData(FindingSink& findings) const {
    if (!isRefused)
        VerifyIdentity(findings);
    // What a standard type looks like is settled by the standard; without TYPE nothing more is known.
    if (isReference() || elementType == elementNone)
        return;
    if (!isRefused)
        VerifyDefinition(findings);
    if (HasMembers()) {
        for (const CType& member : elements) {
            PlacingSink placed(findings, MemberContext(member));
            member.VerifyData(placed);
        }
    }
    if (isRefused)
        return;
    VerifyNumber(findings);
    if (elementType == elementBits)
        VerifyBitField(findings);
}

void CType::VerifyIdentity(FindingSink& findings) const {
    if (!isField && !isUnvt && indexInScope < 1) {
        ErrorContext context = inputPlace ? (*inputPlace)(TypeInput::number) : ErrorContext{};
        context.FillFrom({.field = "index in scope", .value = std::to_string(indexInScope)});
        context.reason = "configuration-property types are numbered from 1, this has " +
                         std::to_string(indexInScope) + ": the fourth field of the declaration";
        findings.Take({eQVXIFerr_badcpindexinscope, std::move(context)});
    }
    if (elementType == elementNone)
        Tell(findings, eQVXIFerr_typeelementwithnodefinedtype, *this, "TYPE", "",
             "a type element needs a TYPE, such as USER or STRUCT");
    if (name.empty())
        Tell(findings, eQVXIFerr_typeelementwithnoname, *this, "NAME", "",
             "a type of a network variable needs a NAME");
}

void CType::VerifyDefinition(FindingSink& findings) const {
    // What is told of a type once is not told in other words as well.
    const bool isBadRange = hasMin && hasMax && !(minValue <= maxValue);
    const bool isEmptyTold = isBadRange && elementType == elementEnum && enumValues && enumValues->empty();
    if (isBadRange) {
        if (isEmptyTold)
            Tell(findings, eQVXIFerr_typeelementwithmaxlesserthanmin, *this, "ENUMS", "",
                 "ENUMS is empty; give it a value or more");
        else
            Tell(findings, eQVXIFerr_typeelementwithmaxlesserthanmin, *this, "MIN",
                 CTools().doubleToStringWithPoint(minValue),
                 "MIN may not exceed MAX, which is " + CTools().doubleToStringWithPoint(maxValue));
    }
    const bool isShort = HasMembers() ? !isField && length < 1 : length < 1;
    // The length of a member with members is that of its members.
    if (isShort && HasMembers())
        Tell(findings, eQVXIFerr_typeelementwithnolength, *this, "FIELDS", "",
             "FIELDS behind TYPE has to list members that have a length");
    else if (isShort)
        Tell(findings, eQVXIFerr_typeelementwithnolength, *this, "LENGTH", std::to_string(length),
             "give LENGTH in bytes, 1 or more");
    const bool hasValues = enumValues && !enumValues->empty();
    if (elementType == elementEnum && !hasValues && !isEmptyTold)
        Tell(findings, eQVXIFerr_typeenumwithnoenums, *this, "ENUMS", "",
             "ENUMS with a value or more has to follow TYPE");
    if (elementType == elementEnum && hasValues && enumName.empty())
        Tell(findings, eQVXIFerr_enumwithoutname, *this, "ENUMS", "", "the enumeration has no name");
    if (HasMembers() && elements.empty() && !isShort)
        Tell(findings, eQVXIFerr_structunionwithnofields, *this, "FIELDS", "",
             "FIELDS with a member or more has to follow TYPE");
}

void CType::VerifyNumber(FindingSink& findings) const {
    if (elementType == elementSigned && length > 0 && length != 1 && length != 2 && length != 4)
        Tell(findings, eQVXIFerr_lengthsignednumeric, *this, "LENGTH", std::to_string(length),
             "accepted: 1, 2 and 4");
    if (elementType == elementUnsigned && length > 0 && length != 1 && length != 2)
        Tell(findings, eQVXIFerr_lengthunsignednumeric, *this, "LENGTH", std::to_string(length),
             "accepted: 1 and 2");
    if (arraySize > 0 && (HasMembers() || elementType == elementTextual || elementType == elementBits))
        Tell(findings, eQVXIFerr_arraynotpossibleforthistype, *this, "ARRAY", std::to_string(arraySize),
             "structures, unions, texts and bit fields cannot be arrays");
}

void CType::VerifyBitField(FindingSink& findings) const {
    if (!IsBitWidth(bitfieldSize))
        Tell(findings, eQVXIFerr_badbitfieldsize, *this, "BFSIZE", std::to_string(bitfieldSize),
             "accepted: 1 to 8");
    else if (bitfieldOffset < 0 || bitfieldOffset >= kMostBits)
        Tell(findings, eQVXIFerr_badbitfieldoffset, *this, "BFOFFSET", std::to_string(bitfieldOffset),
             "accepted: 0 to 7");
    else if (bitfieldSize + bitfieldOffset > kMostBits)
        Tell(findings, eQVXIFerr_badbitfieldoffsetandsize, *this, "BFOFFSET", std::to_string(bitfieldOffset),
             "a bit field of " + std::to_string(bitfieldSize) +
                 " bits that begins there ends outside its byte");
}

}  // namespace tovarek
