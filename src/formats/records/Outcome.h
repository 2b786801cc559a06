// How the readers and writers of the resource files, and the control over them, answer: a result code and,
// where it is not 0, a sentence for people.
#pragma once

#include <cstdint>
#include <string>
#include <utility>

namespace tovarek {

// Result codes of the control. The creating operations answer with 0, 2 to 26 or, for a failed write, 27.
enum QVxResult : std::int32_t {
    resultOk = 0,
    resultNotInCatalog = 1,  // no catalog is open, or it does not know the type
    resultFileAlreadyOpened = 2,
    resultBadScope = 3,
    resultBadProgramId = 4,
    resultErrorOpenFile = 5,
    resultErrorSettingHeader = 6,
    resultErrorSettingVersion = 7,
    resultErrorSettingLocale = 8,
    resultErrorSettingInformation = 9,
    resultCrcError = 10,
    resultFileIsNotOpened = 11,
    resultInvalidForCurrentFile = 12,
    resultErrorAddingResource = 13,
    resultErrorAddingEnum = 14,
    resultErrorAddingEnumValue = 15,
    resultBadParam = 16,
    resultErrorAddingMember = 17,
    resultErrorSettingNumMembers = 18,
    resultErrorSettingDetails = 19,
    resultErrorAddingType = 20,
    resultNoCurrentType = 21,
    resultTypeComplete = 22,  // what CompleteType answers on success
    resultTypeIsNotComplete = 23,
    resultBadMinimum = 24,
    resultBadMaximum = 25,
    resultBadInitial = 26,
    resultSaveFailed = 27,  // the file could not be written; see LastRuntimeError
};

struct Outcome {
    QVxResult code = resultOk;
    std::string reason;  // empty on success

    bool Ok() const { return code == resultOk; }
};

inline Outcome Failure(QVxResult code, std::string reason) {
    return {code, std::move(reason)};
}

}  // namespace tovarek
