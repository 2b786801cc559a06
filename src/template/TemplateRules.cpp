// The checks of a template, in their order. Some complete the template on their way, so most are plain code.
#include <algorithm>
#include <optional>
#include <string>
#include <utility>

#include "base/Nearest.h"
#include "base/Numbers.h"
#include "base/Text.h"
#include "control/StandardCatalog.h"
#include "support/CTools.h"
#include "template/CTemplate.h"
#include "template/FieldMeanings.h"
#include "template/TemplatePlaces.h"

namespace tovarek {
namespace {

constexpr std::size_t kProgramIdDigits = 16;
constexpr std::int32_t kLongestNv = 31;
constexpr std::int32_t kNoLimit = INT32_MAX;

template <class Record>
struct RangeRule {
    std::int32_t Record::*field;
    std::int32_t low;
    std::int32_t high;
    eErrors error;
};

constexpr RangeRule<CNv> kNvRules[] = {
    {&CNv::avgRate, 0, kNoLimit, eQVXIFerr_nvavgrate},
    {&CNv::maxRate, 0, kNoLimit, eQVXIFerr_nvmaxrate},
    {&CNv::arraySize, 0, kNoLimit, eQVXIFerr_nvarraysize},
    {&CNv::offline, 0, 1, eQVXIFerr_nvoffline},
    {&CNv::direction, 0, 1, eQVXIFerr_nvdirection},
    {&CNv::defaultService, 0, 2, eQVXIFerr_nvdefaultService},
    {&CNv::serviceCanBeChanged, 0, 1, eQVXIFerr_nvserviceCanBeChanged},
    {&CNv::defaultAuth, 0, 1, eQVXIFerr_nvdefaultAuth},
    {&CNv::authCanBeChanged, 0, 1, eQVXIFerr_nvauthCanBeChanged},
    {&CNv::defaultPriority, 0, 1, eQVXIFerr_nvdefaultPriority},
    {&CNv::priorityCanBeChanged, 0, 1, eQVXIFerr_nvpriorityCanBeChanged},
    {&CNv::polled, 0, 1, eQVXIFerr_nvpolled},
    {&CNv::synchronized, 0, 1, eQVXIFerr_nvsynchronized},
    {&CNv::configuration, 0, 1, eQVXIFerr_nvconfiguration},
};

constexpr RangeRule<CTag> kTagRules[] = {
    {&CTag::avgRate, 0, kNoLimit, eQVXIFerr_tagavgrate},
    {&CTag::maxRate, 0, kNoLimit, eQVXIFerr_tagmaxrate},
    {&CTag::bindable, 0, 1, eQVXIFerr_tagbindable},
};

Expected Range(std::int32_t low, std::int32_t high, std::string_view unit = {}) {
    std::string text = std::to_string(low);
    text += high == kNoLimit ? " and above" : " to " + std::to_string(high);
    return {.values = text.append(unit)};
}

// The first character of `text` that is not a hexadecimal digit; empty when all are.
std::string FirstNoDigit(std::string_view text) {
    for (std::size_t position = 0; position < text.size();) {
        const std::size_t start = position;
        NextCharacter(text, position);
        if (!IsHexDigit(text[start]))
            return "'" + std::string(text.substr(start, position - start)) + "', character " +
                   std::to_string(CharacterCount(text.substr(0, start)) + 1) + ", is not a hexadecimal digit";
    }
    return {};
}

std::string ProgramIdFault(std::string_view programId) {
    std::string fault = "a program ID has " + std::to_string(kProgramIdDigits) + " hexadecimal digits";
    if (const std::size_t count = CharacterCount(programId); count != kProgramIdDigits && count > 0)
        fault += ", this has " + std::to_string(count) + " characters";
    return JoinSentences(fault, FirstNoDigit(programId));
}

bool IsWord(std::string_view typed) {
    return !typed.empty() && std::none_of(typed.begin(), typed.end(), [](char c) { return c == ' '; }) &&
           !IsDigit(typed.front()) && typed.front() != '-' && typed.front() != '+';
}

// The place in a declaration that a fault of AnalyseCP's numbers is shown at: the declaration itself.
ErrorContext DeclarationPlace(const CTemplate& source, const CCp& cp, std::size_t position,
                              std::string reason) {
    return TemplatePlaces(source).Of(cp, position, &CCp::declaration, {.sentence = std::move(reason)});
}

ErrorContext WithoutSentence(const ErrorContext& place) {
    return {.field = place.field,
            .value = place.value,
            .file = place.file,
            .line = place.line,
            .column = place.column};
}

}  // namespace

void CTemplate::VerifyData() {
    RaisingSink raise(*errorHandler);
    VerifyData(raise);
}

void CTemplate::VerifyData(FindingSink& findings) {
    VerifyTemplate(findings);
    bool isCatalogMissed = false;
    for (std::size_t i = 0; i < nvs.size(); ++i)
        VerifyNv(nvs[i], i, isCatalogMissed, findings);

    const TemplatePlaces places(*this);
    if (numberOfMessageTags < 0 || numberOfMessageTags > kMostTags)
        findings.Take({eQVXIFerr_numberOfMessageTags,
                       places.Of(&CTemplate::numberOfMessageTags, Range(0, kMostTags, " tags"))});
    for (std::size_t i = 0; i < tags.size(); ++i)
        VerifyTag(tags[i], i, findings);

    if (numberOfCps < 0)
        findings.Take({eQVXIFerr_numberOfCps, places.Of(&CTemplate::numberOfCps, Range(0, kNoLimit))});
    if (versionCP.empty() && numberOfCps > 0)
        findings.Take(
            {eQVXIFerr_versioncp, places.Of(&CTemplate::versionCP,
                                            {.sentence = "a template with configuration properties names the "
                                                         "version of their file, e.g. 1.0"})});
    std::int64_t zeros = 0;
    for (std::size_t i = 0; i < cps.size(); ++i)
        VerifyCp(cps[i], i, zeros, findings);
}

void CTemplate::VerifyTemplate(FindingSink& findings) {
    const std::string typed(TrimBlanks(programID));
    programID = UpperCase(typed);
    const TemplatePlaces places(*this);
    if (CharacterCount(programID) != kProgramIdDigits || CTools().ValidateHexaString(programID))
        findings.Take(
            {eQVXIFerr_programid, places.Of(&CTemplate::programID, {.sentence = ProgramIdFault(typed)})});
    if (numberStaticNvs < 0 || numberStaticNvs > kMostNvs) {
        findings.Take(
            {eQVXIFerr_numberStaticNvs, places.Of(&CTemplate::numberStaticNvs, Range(0, kMostNvs))});
        return;  // the maximum is judged by this number
    }
    const auto badMaximum = [&](std::string reason) {
        findings.Take({eQVXIFerr_maximumNumberOfNvs,
                       places.Of(&CTemplate::maximumNumberOfNvs, {.sentence = std::move(reason)})});
    };
    // Deliberate: the sum of both numbers is limited, not the maximum alone, so no template has more than
    // 2048 static network variables.
    if (maximumNumberOfNvs < numberStaticNvs)
        badMaximum("the maximum is less than the " + std::to_string(numberStaticNvs) + " static ones");
    else if (std::int64_t{numberStaticNvs} + maximumNumberOfNvs > kMostNvs)
        badMaximum("together with the " + std::to_string(numberStaticNvs) +
                   " static ones the maximum exceeds 4096");
}

ErrorContext CTemplate::PlaceOf(std::size_t position, std::string CCp::*member) const {
    return WithoutSentence(TemplatePlaces(*this).Of(cps[position], position, member, {}));
}
ErrorContext CTemplate::PlaceOf(std::size_t position, std::int32_t CCp::*member) const {
    return WithoutSentence(TemplatePlaces(*this).Of(cps[position], position, member, {}));
}
ErrorContext CTemplate::PlaceOfNvType(std::size_t position) const {
    // Validation has moved the number, so without an input there is nothing to show.
    if (iniFile.empty() && !Source().node)
        return {};
    return WithoutSentence(TemplatePlaces(*this).Of(nvs[position], position, &CNv::typeIndex, {}));
}

void CTemplate::VerifyNv(CNv& nv, std::size_t position, bool& isCatalogMissed, FindingSink& findings) {
    const TemplatePlaces places(*this);
    const auto fail = [&](eErrors error, auto CNv::*member, const Expected& expected) {
        findings.Take({error, places.Of(nv, position, member, expected)});
    };
    if (nv.name.empty()) {
        if (places.IsAbsentLikeTheLast<CNv>(position))
            return;
        fail(eQVXIFerr_nvname, &CNv::name, {.sentence = "every network variable has a name"});
        if (places.IsAbsent<CNv>(position))
            return;  // everything else is missing for the same reason
    }
    for (const RangeRule<CNv>& rule : kNvRules)
        if (nv.*rule.field < rule.low || nv.*rule.field > rule.high)
            fail(rule.error, rule.field, Range(rule.low, rule.high));

    if (nv.typeIndex > kLargestStandardType) {
        nv.unvtType = nv.typeIndex;
        nv.typeIndex = 0;
    }
    if (nv.typeIndex < 0) {
        fail(eQVXIFerr_nvtype, &CNv::typeIndex,
             {.values = "1 to 255 for a standard type, 0 or a number above 255 for a type of your own"});
        return;  // the type decides what length is right
    }
    if (nv.typeIndex > 0) {
        catalog->types.ClearTypeSelection();
        catalog->types.SelectedTypeIndex(nv.typeIndex);
        if (catalog->types.ResultCode() != 0) {
            // Without a catalog all standard types are unknown; one finding tells it.
            if (catalog->types.Catalog() != nullptr || !isCatalogMissed)
                fail(eQVXIFerr_unknowntype, &CNv::typeIndex, {.sentence = catalog->types.ResultReason()});
            isCatalogMissed = true;
            return;
        }
        const std::int32_t given = std::exchange(nv.length, catalog->types.SelectedTypeSize());
        // What an INI section lacks is no other value; a -1 that is given is one.
        if (findings.WantsWarnings() && given != nv.length && (given != -1 || Source().givesMinusOne))
            TellOverruled(nv, position, &CNv::length, nv.length, "standard type", findings);
    }
    if (nv.length >= 1 && nv.length <= kLongestNv)
        return;
    if (nv.typeIndex > 0)
        fail(eQVXIFerr_nvlength, &CNv::typeIndex,
             {.sentence = "this standard type has " + std::to_string(nv.length) +
                          " bytes, a network variable has 1 to " + std::to_string(kLongestNv) +
                          "; choose a shorter type"});
    else if (const std::string typed = places.Typed(position, &CNv::typeIndex); IsWord(typed)) {
        const std::string name = iniFile.empty() ? PlaceOfNvType(position).field : std::string();
        fail(eQVXIFerr_nvlength, &CNv::length,
             {.values = "1 to " + std::to_string(kLongestNv) + " bytes for a user type",
              .sentence = "its type \"" + Excerpt(typed) + "\" is not a number and reads as 0, " +
                          ExplainNumber(catalog, {"type", name}, typed, 0).text});
    } else
        fail(eQVXIFerr_nvlength, &CNv::length,
             {.values = Range(1, kLongestNv, " bytes").values,
              .sentence = places.Has(position, &CNv::typeIndex)
                              ? ""
                              : "the variable has no type, so it counts as one of a user type"});
}

// A value that is not the one that counts, when it is a number at all; one that is none was told.
template <class Record>
void CTemplate::TellOverruled(const Record& record, std::size_t position, std::int32_t Record::*member,
                              std::int32_t counting, std::string_view source, FindingSink& findings) const {
    const TemplatePlaces places(*this);
    if (!places.Has(position, member) || !IsNumber(places.Typed(position, member)))
        return;
    const bool isIni = !iniFile.empty();
    Finding finding =
        places.Warn(isIni ? Warning::ignoredKey : Warning::ignoredElement, record, position, member, {});
    finding.part = LinePart::name;
    finding.context.reason = finding.context.field + " is not read: its " + std::string(source) + " says " +
                             std::to_string(counting) + ", this says " + finding.context.value;
    findings.Take(std::move(finding));
}

void CTemplate::VerifyTag(const CTag& tag, std::size_t position, FindingSink& findings) {
    const auto fail = [&](eErrors error, auto CTag::*member, const Expected& expected) {
        findings.Take({error, TemplatePlaces(*this).Of(tag, position, member, expected)});
    };
    if (tag.name.empty()) {
        if (TemplatePlaces(*this).IsAbsentLikeTheLast<CTag>(position))
            return;
        fail(eQVXIFerr_tagname, &CTag::name, {.sentence = "every message tag has a name"});
        if (TemplatePlaces(*this).IsAbsent<CTag>(position))
            return;
    }
    for (const RangeRule<CTag>& rule : kTagRules)
        if (tag.*rule.field < rule.low || tag.*rule.field > rule.high)
            fail(rule.error, rule.field, Range(rule.low, rule.high));
}

std::optional<std::int32_t> CTemplate::VerifyDeclaration(CCp& cp, std::size_t position,
                                                         FindingSink& findings) const {
    const auto fail = [&](std::int32_t error, std::string reason) {
        findings.Take({error, DeclarationPlace(*this, cp, position, std::move(reason))});
    };
    if (cp.declaration.empty()) {
        fail(eQVXIFerr_cpdeclaration, "every configuration property has a declaration");
        return std::nullopt;
    }
    if (!cp.declaration.ends_with(';'))
        cp.declaration += ';';

    const std::int32_t givenLength = cp.length;
    const std::int32_t givenArray = cp.arraySize;
    std::optional<std::int32_t> characters;
    try {
        cp.AnalyseCP();
        if (cp.length > 0 && cp.arraySize >= 0)
            characters =
                MultiplyChecked(2, cp.arraySize != 0 ? MultiplyChecked(cp.length, cp.arraySize) : cp.length);
    } catch (const Error& error) {
        fail(error.Number(), "a number in it, or its length times its array size, exceeds 32 bits");
        return std::nullopt;
    }
    // Deliberate: the declaration decides the array size; the template's own key is overruled.
    if (cp.length < 1)
        fail(eQVXIFerr_cplength,
             "a declaration is 'header,select,scope,type,length[,array size];', and its length is 1 byte or "
             "more");
    if (cp.arraySize < 0)
        fail(eQVXIFerr_cparraysize, "its sixth field, the array size, may not be negative");
    if (!findings.WantsWarnings() || cp.length < 1 || cp.arraySize < 0)
        return characters;
    if (givenLength != cp.length)
        TellOverruled(cp, position, &CCp::length, cp.length, "declaration", findings);
    // One element is no array, however it is written.
    if (std::max(givenArray, 1) != std::max(cp.arraySize, 1))
        TellOverruled(cp, position, &CCp::arraySize, cp.arraySize, "declaration", findings);
    return characters;
}

void CTemplate::VerifyCp(CCp& cp, std::size_t position, std::int64_t& zeros, FindingSink& findings) {
    const std::optional<std::int32_t> declared = VerifyDeclaration(cp, position, findings);
    if (!declared)
        return;  // how long the values must be is not known
    const auto characters = static_cast<std::size_t>(*declared);
    if (cp.defaultValue.empty()) {
        zeros += *declared;
        if (zeros > kMostZeros) {
            findings.Take({static_cast<std::int32_t>(RuntimeError::outOfMemory),
                           DeclarationPlace(*this, cp, position,
                                            "the values declared so far have more bytes than any device; "
                                            "correct length and array size")});
            return;
        }
        cp.defaultValue.assign(characters, '0');
    }
    for (std::string CCp::*value : {&CCp::initValue, &CCp::minValue, &CCp::maxValue})
        if ((cp.*value).empty())
            cp.*value = cp.defaultValue;

    constexpr std::pair<std::string CCp::*, eErrors> kValues[] = {
        {&CCp::defaultValue, eQVXIFerr_cpvalue},
        {&CCp::initValue, eQVXIFerr_cpinitvalue},
        {&CCp::minValue, eQVXIFerr_cpminvalue},
        {&CCp::maxValue, eQVXIFerr_cpmaxvalue},
    };
    const auto fail = [&](eErrors error, std::string CCp::*member, std::string reason) {
        findings.Take(
            {error, TemplatePlaces(*this).Of(cp, position, member, {.sentence = std::move(reason)})});
    };
    for (const auto& [value, error] : kValues) {
        const bool repeats = value != &CCp::defaultValue && cp.*value == cp.defaultValue;
        if (!repeats && CharacterCount(cp.*value) != characters)
            fail(error, value,
                 "this has " + std::to_string(CharacterCount(cp.*value)) +
                     " hexadecimal digits, the declaration asks for " + std::to_string(characters / 2) +
                     " bytes, which are " + std::to_string(characters) + " digits, two a byte");
    }
    // Copies of the value would only repeat its fault.
    const bool isFaulty = CTools().ValidateHexaString(cp.defaultValue);
    for (const auto& [value, error] : kValues) {
        const bool repeats = isFaulty && value != &CCp::defaultValue && cp.*value == cp.defaultValue;
        if (!repeats && CTools().ValidateHexaString(cp.*value))
            fail(error, value, FirstNoDigit(cp.*value));
    }
}

}  // namespace tovarek
