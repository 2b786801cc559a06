// Errors of the system: the public numbers, the runtime's own numbers, the one exception type, and the
// context that tells a person where the fault lies.
#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>
#include <type_traits>

namespace tovarek {

// Error n has the value 0x80040000 + n.
inline constexpr std::uint32_t kFirstErrorBase = 0x80040000U;

constexpr std::int32_t ErrorValue(int n) {
    return static_cast<std::int32_t>(kFirstErrorBase + static_cast<std::uint32_t>(n));
}

// The public error numbers.
enum eErrors : std::int32_t {
#define TOVAREK_ERROR(number, name, message) name = ErrorValue(number),
#include "base/ErrorList.inc"
#undef TOVAREK_ERROR
};

// Errors that are not of the component's own making keep the runtime's small numbers.
enum class RuntimeError : std::int32_t {
    overflow = 6,
    outOfMemory = 7,
    subscriptOutOfRange = 9,
    typeMismatch = 13,
    outOfStackSpace = 28,
    fileNotFound = 53,
    deviceIoError = 57,
    diskFull = 61,
    inputPastEndOfFile = 62,
    permissionDenied = 70,
    pathFileAccessError = 75,
    pathNotFound = 76,
};

// The source that every error names: the library.
inline constexpr const char* kErrorSource = "QVTovarek";

// Where a fault lies, for people. The public number and message stay fixed whatever stands here. Empty
// members (line 0) are unknown.
struct ErrorContext {
    std::string record;  // e.g. "network variable 3 (nviSetpoint)", "profile line 7"
    std::string field;   // as the input spells it, e.g. "direction"
    std::string value;   // the offending value as text
    std::string file;    // source file
    int line = 0;        // 1-based line in that file
    int column = 0;      // 1-based, in characters, of an XML start tag in that line
    std::string reason;  // a sentence that explains, e.g. which values are accepted

    // Takes over what `outer` knows and this context does not: the innermost statement wins. Records make a
    // chain, the outer one in front: "type element SNVT_320 > member 'mode'"; a long chain is shown by its
    // ends. The line belongs to the file, so it is taken over only together with it or where the file is the
    // same, and the column together with the line.
    void FillFrom(const ErrorContext& outer);
    // All of it in one line: `in network variable 1 (nvoState), length "40", at template.ini:12: accepted: 1
    // to 31 bytes`. Empty for an empty context.
    std::string Sentence() const;
};

// The one exception that leaves the library.
class Error : public std::exception {
  public:
    Error(std::int32_t number, std::string description, ErrorContext context = {});

    // One of eErrors (0x80040001 to 0x80040087) or a runtime error number (6 to 76).
    std::int32_t Number() const { return number_; }
    const std::string& Description() const { return description_; }
    const char* Source() const { return kErrorSource; }
    const ErrorContext& Context() const { return context_; }
    // The description and the context behind it.
    const char* what() const noexcept override { return what_.c_str(); }

    // For callers that know more about the place than the one that raised; see ErrorContext::FillFrom.
    void AddContext(const ErrorContext& outer);
    // For callers that know what helps: one more sentence behind the reason.
    void AddReason(const std::string& more);

  private:
    void Tell();

    std::int32_t number_;
    std::string description_;
    ErrorContext context_;
    std::string what_;
};

// What `operation` answers. To an error on its way out the context that `place` answers is added; it is asked
// only then, with the error where it takes one.
template <class Place, class Operation>
decltype(auto) WithContext(const Place& place, const Operation& operation) {
    try {
        return operation();
    } catch (Error& error) {
        if constexpr (std::is_invocable_v<const Place&, const Error&>)
            error.AddContext(place(error));
        else
            error.AddContext(place());
        throw;
    }
}

// The runtime's message for `error`, e.g. "File not found".
const char* RuntimeErrorMessage(RuntimeError error);

// The name of a runtime error for programs, e.g. "fileNotFound"; empty for a number that is none.
std::string_view RuntimeErrorName(std::int32_t number);

// Raises a runtime error with its message.
[[noreturn]] void RaiseRuntimeError(RuntimeError error, ErrorContext context = {});

}  // namespace tovarek
