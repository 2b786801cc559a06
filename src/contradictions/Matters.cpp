#include "contradictions/Matters.h"

#include <algorithm>
#include <string_view>

#include "base/Text.h"
#include "template/SelfDocumentation.h"
#include "template/TemplatePlaces.h"
#include "values/ProgramId.h"

namespace tovarek {
namespace {

constexpr std::size_t kLongestName = 16;
// The largest encoded rate: n stands for 2^(n/8) - 5 messages a second.
constexpr std::int32_t kLargestRate = 250;
constexpr std::string_view kMakerOfExamples = "FFFFF";
constexpr std::size_t kMakerField = 1;
constexpr std::string_view kVersions[] = {"1.0", "1.1"};

bool IsIdentifier(std::string_view name) {
    const auto isLetter = [](char c) { return (AsciiUpper(c) >= 'A' && AsciiUpper(c) <= 'Z') || c == '_'; };
    return !name.empty() && isLetter(name.front()) &&
           std::all_of(name.begin(), name.end(), [&](char c) { return isLetter(c) || IsDigit(c); });
}

class Matters {
  public:
    Matters(const CTemplate& source, FindingSink& findings)
        : source_(source), places_(source), findings_(findings) {}

    void TellTemplate() {
        const ProgramIdField& maker = kProgramIdFields[kMakerField];
        if (source_.programID.size() == kProgramIdDigits && IsStandardProgramId(source_.programID) &&
            source_.programID.substr(maker.first, maker.digits) == kMakerOfExamples)
            Take(Warning::makerNumber, &CTemplate::programID,
                 "the maker FFFFF is the number for examples: a device that is sold has the number of its "
                 "maker");
        if (!source_.selfDocumentation.empty() && !DeclaredBlockCount(source_.selfDocumentation))
            Take(Warning::oddSelfDocumentation, &CTemplate::selfDocumentation,
                 "no program can tell the objects of the device: the form is &3.0@0,8020[2];text");
        const bool isKnown =
            std::find(std::begin(kVersions), std::end(kVersions), source_.versionCP) != std::end(kVersions);
        if (!source_.cps.empty() && !source_.versionCP.empty() && !isKnown)
            Take(Warning::oddVersion, &CTemplate::versionCP,
                 "programs know the versions 1.0 and 1.1 of property files");
    }

    template <class Record>
    void TellNamesAndRates(const std::vector<Record>& records) {
        for (std::size_t i = 0; i < records.size(); ++i) {
            const std::string& name = records[i].name;
            const bool isOdd = !name.empty() && !IsIdentifier(name);
            if (CharacterCount(name) > kLongestName)
                Take(Warning::longName, records, i, &Record::name,
                     "the name has " + std::to_string(CharacterCount(name)) +
                         " characters, programs expect " + std::to_string(kLongestName) + " at most");
            // White space was told.
            if (isOdd && name.find_first_of(kWhiteSpace) == std::string::npos)
                Take(Warning::oddName, records, i, &Record::name,
                     "the name is no identifier, which has letters A to Z, digits and \"_\" and begins with "
                     "no digit");
            for (std::int32_t Record::*const rate : {&Record::avgRate, &Record::maxRate})
                if (records[i].*rate > kLargestRate)
                    Take(
                        Warning::oddRate, records, i, rate,
                        "an encoded rate is 0 to 250: n stands for 2^(n/8) - 5 messages a second, 0 for none "
                        "given");
        }
    }

    void TellVariable(std::size_t i) {
        const CNv& nv = source_.nvs[i];
        constexpr std::int32_t kOutput = 1;
        if (!nv.selfdoc.empty() && nv.selfdoc.front() != '@' && nv.selfdoc.front() != '&')
            Take(Warning::oddSelfDocumentation, source_.nvs, i, &CNv::selfdoc,
                 "no program can tell which object the variable belongs to: the form is @1|2;text, or "
                 "&1,1,0\\x80,49 for a configuration variable");
        if (nv.arraySize == 1)
            Take(Warning::arrayOfOne, source_.nvs, i, &CNv::arraySize,
                 "an array of one element: 0 says that the variable is none");
        if (nv.configuration != 1)
            return;
        if (nv.direction == kOutput)
            Take(Warning::configurationOutput, source_.nvs, i, &CNv::direction,
                 "a configuration variable is an input, this is an output");
        Take(Warning::noDefault, source_.nvs, i, &CNv::configuration,
             "an interface file of this version has no default value for a configuration variable");
    }

  private:
    void Take(Warning warning, std::string CTemplate::*member, const std::string& reason) {
        findings_.Take(places_.Warn(warning, member, reason));
    }
    template <class Record, class Value>
    void Take(Warning warning, const std::vector<Record>& records, std::size_t i, Value Record::*member,
              const std::string& reason) {
        findings_.Take(places_.Warn(warning, records[i], i, member, reason));
    }

    const CTemplate& source_;
    TemplatePlaces places_;
    FindingSink& findings_;
};

}  // namespace

void TellMatters(const CTemplate& source, FindingSink& findings) {
    Matters matters(source, findings);
    matters.TellTemplate();
    matters.TellNamesAndRates(source.nvs);
    matters.TellNamesAndRates(source.tags);
    for (std::size_t i = 0; i < source.nvs.size(); ++i)
        matters.TellVariable(i);
}

}  // namespace tovarek
