// The checks of a template, in their order. Some complete the template on their way, so most are plain code.
#include <optional>
#include <string>
#include <utility>

#include "base/Numbers.h"
#include "base/Text.h"
#include "support/CTools.h"
#include "support/cIni.h"
#include "template/CTemplate.h"
#include "template/TemplateFields.h"

namespace tovarek {
namespace {

constexpr std::size_t kProgramIdDigits = 16;
constexpr std::int32_t kMostNvs = 4096;
constexpr std::int32_t kMostTags = 14;
constexpr std::int32_t kLargestStandardType = 255;
constexpr std::int32_t kLongestNv = 31;
constexpr std::int32_t kNoLimit = INT32_MAX;

// Characters of absent property values that are completed with zeros in one template. A declaration may ask
// for gigabytes with a handful of digits; what no device can hold ends as "out of memory" before memory does.
constexpr std::int64_t kMostZeros = std::int64_t{64} * 1024 * 1024;

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

std::string AcceptedRange(std::int32_t low, std::int32_t high) {
    std::string text = "accepted: " + std::to_string(low);
    return text + (high == kNoLimit ? " and above" : " to " + std::to_string(high));
}

// Builds the contexts of errors in one template.
class Places {
  public:
    explicit Places(const CTemplate& source) : source_(source), fromIni_(!source.iniFile.empty()) {}

    // Of a field of a record.
    template <class Record, class Value>
    ErrorContext Of(const Record& record, std::size_t position, Value Record::*member,
                    std::string reason) const {
        ErrorContext context = OfRecord(record, position);
        for (const RecordField<Record>& field : RecordNames<Record>::Fields())
            if (IsField(field, member))
                context.field = fromIni_ ? field.iniKey : field.xmlName;
        context.value = Text(record.*member);
        context.reason = std::move(reason);
        if (fromIni_)
            context.line = IniLine(std::string(RecordNames<Record>::iniPrefix) + std::to_string(position + 1),
                                   context.field);
        return context;
    }

    template <class Record>
    ErrorContext OfRecord(const Record& record, std::size_t position) const {
        return {.record = RecordTitle(record, position), .file = File(), .line = record.line};
    }

    // Of a field of the template itself.
    template <class Value>
    ErrorContext Of(Value CTemplate::*member, std::string reason) const {
        ErrorContext context{.record = "template", .file = File(), .reason = std::move(reason)};
        for (const TemplateField& field : TemplateFields()) {
            if (!IsField(field, member))
                continue;
            context.field = fromIni_ ? field.iniKey : field.xmlName;
            if (fromIni_)
                context.line = IniLine(field.iniSection, field.iniKey);
        }
        context.value = Text(source_.*member);
        return context;
    }

  private:
    template <class Field, class Record>
    static bool IsField(const Field& field, std::int32_t Record::*member) {
        return field.number == member;
    }
    template <class Field, class Record>
    static bool IsField(const Field& field, std::string Record::*member) {
        return field.text == member;
    }
    static std::string Text(std::int32_t value) { return std::to_string(value); }
    static std::string Text(const std::string& value) { return Excerpt(value); }

    std::string File() const {
        if (fromIni_)
            return source_.iniFile;
        return source_.xmlNode ? source_.xmlNode.File() : source_.xmlFile;
    }
    int IniLine(std::string_view section, std::string_view key) const {
        cIni ini;
        ini.iniFile(source_.iniFile);
        return ini.Text()->LineOf(section, key);
    }

    const CTemplate& source_;
    bool fromIni_;
};

// The place in a declaration that a fault of AnalyseCP's numbers is shown at: the declaration itself.
ErrorContext DeclarationPlace(const CTemplate& source, const CCp& cp, std::size_t position,
                              std::string reason) {
    return Places(source).Of(cp, position, &CCp::declaration, std::move(reason));
}

}  // namespace

void CTemplate::VerifyData() {
    RaisingSink raise(*errorHandler);
    VerifyData(raise);
}

void CTemplate::VerifyData(FindingSink& findings) {
    VerifyTemplate(findings);
    for (std::size_t i = 0; i < nvs.size(); ++i)
        VerifyNv(nvs[i], i, findings);

    const Places places(*this);
    if (numberOfMessageTags < 0 || numberOfMessageTags > kMostTags)
        findings.Take({eQVXIFerr_numberOfMessageTags,
                       places.Of(&CTemplate::numberOfMessageTags, AcceptedRange(0, kMostTags) + " tags")});
    for (std::size_t i = 0; i < tags.size(); ++i)
        VerifyTag(tags[i], i, findings);

    if (numberOfCps < 0)
        findings.Take(
            {eQVXIFerr_numberOfCps, places.Of(&CTemplate::numberOfCps, AcceptedRange(0, kNoLimit))});
    if (versionCP.empty() && numberOfCps > 0)
        findings.Take(
            {eQVXIFerr_versioncp, places.Of(&CTemplate::versionCP,
                                            "a template with configuration properties names the version of "
                                            "their file, e.g. 1.0")});
    std::int64_t zeros = 0;
    for (std::size_t i = 0; i < cps.size(); ++i)
        VerifyCp(cps[i], i, zeros, findings);
}

void CTemplate::VerifyTemplate(FindingSink& findings) {
    programID = UpperCase(TrimBlanks(programID));
    const Places places(*this);
    if (CharacterCount(programID) != kProgramIdDigits || CTools().ValidateHexaString(programID))
        findings.Take({eQVXIFerr_programid,
                       places.Of(&CTemplate::programID, "a program ID has 16 hexadecimal digits")});
    if (numberStaticNvs < 0 || numberStaticNvs > kMostNvs) {
        findings.Take(
            {eQVXIFerr_numberStaticNvs, places.Of(&CTemplate::numberStaticNvs, AcceptedRange(0, kMostNvs))});
        return;  // the maximum is judged by this number
    }
    const auto badMaximum = [&](std::string reason) {
        findings.Take(
            {eQVXIFerr_maximumNumberOfNvs, places.Of(&CTemplate::maximumNumberOfNvs, std::move(reason))});
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
    const ErrorContext place = Places(*this).Of(cps[position], position, member, {});
    return {.field = place.field, .file = place.file, .line = place.line};
}

void CTemplate::VerifyNv(CNv& nv, std::size_t position, FindingSink& findings) {
    const auto fail = [&](eErrors error, auto CNv::*member, std::string reason) {
        findings.Take({error, Places(*this).Of(nv, position, member, std::move(reason))});
    };
    if (nv.name.empty())
        fail(eQVXIFerr_nvname, &CNv::name, "every network variable has a name");
    for (const RangeRule<CNv>& rule : kNvRules)
        if (nv.*rule.field < rule.low || nv.*rule.field > rule.high)
            fail(rule.error, rule.field, AcceptedRange(rule.low, rule.high));

    if (nv.typeIndex > kLargestStandardType) {
        nv.unvtType = nv.typeIndex;
        nv.typeIndex = 0;
    }
    if (nv.typeIndex < 0) {
        fail(eQVXIFerr_nvtype, &CNv::typeIndex,
             "accepted: 1 to 255 for a standard type, 0 or a number above 255 for one of the user's");
        return;  // the type decides what length is right
    }
    if (nv.typeIndex > 0) {
        catalog->types.ClearTypeSelection();
        catalog->types.SelectedTypeIndex(nv.typeIndex);
        if (catalog->types.ResultCode() != 0) {
            fail(eQVXIFerr_unknowntype, &CNv::typeIndex, catalog->types.ResultReason());
            return;
        }
        nv.length = catalog->types.SelectedTypeSize();
    }
    if (nv.length < 1 || nv.length > kLongestNv)
        fail(eQVXIFerr_nvlength, &CNv::length,
             AcceptedRange(1, kLongestNv) +
                 (nv.typeIndex > 0 ? " bytes; this is the length of the standard type" : " bytes"));
}

void CTemplate::VerifyTag(const CTag& tag, std::size_t position, FindingSink& findings) {
    const auto fail = [&](eErrors error, auto CTag::*member, std::string reason) {
        findings.Take({error, Places(*this).Of(tag, position, member, std::move(reason))});
    };
    if (tag.name.empty())
        fail(eQVXIFerr_tagname, &CTag::name, "every message tag has a name");
    for (const RangeRule<CTag>& rule : kTagRules)
        if (tag.*rule.field < rule.low || tag.*rule.field > rule.high)
            fail(rule.error, rule.field, AcceptedRange(rule.low, rule.high));
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

    std::optional<std::int32_t> characters;
    try {
        cp.AnalyseCP();
        if (cp.length > 0 && cp.arraySize >= 0)
            characters =
                MultiplyChecked(2, cp.arraySize != 0 ? MultiplyChecked(cp.length, cp.arraySize) : cp.length);
    } catch (const Error& error) {
        fail(error.Number(), "a number or the total size exceeds 32 bits");
        return std::nullopt;
    }
    // Deliberate: the declaration decides the array size; the template's own key is overruled.
    if (cp.length < 1)
        fail(eQVXIFerr_cplength, "its fifth field, the length, is less than 1");
    if (cp.arraySize < 0)
        fail(eQVXIFerr_cparraysize, "its sixth field, the array size, is negative");
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
                           DeclarationPlace(*this, cp, position, "the declared size is beyond any device")});
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
        findings.Take({error, Places(*this).Of(cp, position, member, std::move(reason))});
    };
    for (const auto& [value, error] : kValues)
        if (CharacterCount(cp.*value) != characters)
            fail(error, value,
                 "has " + std::to_string(CharacterCount(cp.*value)) +
                     " characters, the declaration asks for " + std::to_string(characters));
    for (const auto& [value, error] : kValues)
        if (CTools().ValidateHexaString(cp.*value))
            fail(error, value, "holds a character that is no hexadecimal digit");
}

}  // namespace tovarek
