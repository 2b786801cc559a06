#include "cli/ErrorsCommand.h"

#include <algorithm>
#include <ostream>

#include "base/ErrorTable.h"
#include "base/Nearest.h"
#include "base/Text.h"
#include "cli/Json.h"

namespace tovarek {
namespace {

struct Help {
    int number;
    const char* text;
};
constexpr Help kCauses[] = {
#define TOVAREK_CAUSE(number, cause) {number, cause},
#define TOVAREK_MEND(first, mend)
#define TOVAREK_RUNTIME(number, cause, mend)
#include "cli/ErrorCauses.inc"
#undef TOVAREK_CAUSE
#undef TOVAREK_MEND
};
constexpr Help kMends[] = {
#define TOVAREK_CAUSE(number, cause)
#define TOVAREK_MEND(first, mend) {first, mend},
#include "cli/ErrorCauses.inc"
#undef TOVAREK_MEND
#undef TOVAREK_RUNTIME
};

// An error as it is listed: one of the component's, or a runtime error, whose value is its number.
struct ListedError {
    int number;
    std::int32_t value;
    std::string name;
    std::string message;
    const char* cause;
    const char* mend;
};

static_assert(std::size(kCauses) == kErrorTable.size());
constexpr std::string_view kNamePrefix = "eQVXIFerr_";

std::vector<ListedError> ComponentErrors() {
    std::vector<ListedError> errors;
    for (const ErrorRow& row : kErrorTable) {
        const auto next = std::find_if(std::begin(kMends), std::end(kMends),
                                       [&](const Help& mend) { return mend.number > row.number; });
        errors.push_back({row.number, row.code, std::string(row.name), std::string(row.message),
                          kCauses[row.number - 1].text, std::prev(next)->text});
    }
    return errors;
}

std::vector<ListedError> RuntimeErrors() {
    const auto listed = [](int number, const char* cause, const char* mend) {
        return ListedError{number,
                           number,
                           std::string(RuntimeErrorName(number)),
                           RuntimeErrorMessage(static_cast<RuntimeError>(number)),
                           cause,
                           mend};
    };
    return {
#define TOVAREK_CAUSE(number, cause)
#define TOVAREK_MEND(first, mend)
#define TOVAREK_RUNTIME(number, cause, mend) listed(number, cause, mend),
#include "cli/ErrorCauses.inc"
#undef TOVAREK_CAUSE
#undef TOVAREK_MEND
#undef TOVAREK_RUNTIME
    };
}

// The word may be any of the names that messages and documents give an error.
bool IsCalled(const ListedError& error, const std::string& word) {
    const std::string name = UpperCase(error.name);
    return word == std::to_string(error.number) || word == std::to_string(error.value) ||
           word == UpperCase(ErrorNumberText(error.value)) || word == name ||
           UpperCase(kNamePrefix) + word == name;
}

int RefuseWord(const std::string& word, const std::vector<ListedError>& all, OutputFormat format,
               Streams streams) {
    std::vector<std::string> names;
    names.reserve(all.size());
    for (const ListedError& error : all)
        names.push_back(error.name.starts_with(kNamePrefix) ? error.name.substr(kNamePrefix.size())
                                                            : error.name);
    return ReportWrongUse("there is no error '" + Excerpt(word) +
                              "'; give a number from 1 to 135, the code of a message, or a name" +
                              DidYouMean(word, names),
                          format, streams);
}

Json JsonOf(const ListedError& error) {
    return {{"n", error.number},  {"error", error.value},         {"code", ErrorNumberText(error.value)},
            {"name", error.name}, {"description", error.message}, {"cause", error.cause},
            {"mend", error.mend}};
}

}  // namespace

int RunErrors(const std::string& word, OutputFormat format, Streams streams) {
    std::vector<ListedError> shown = ComponentErrors();
    if (!word.empty()) {
        // A number may be that of two errors.
        for (ListedError& error : RuntimeErrors())
            shown.push_back(std::move(error));
        const std::vector<ListedError> all = shown;
        const std::string wanted = UpperCase(word);
        std::erase_if(shown, [&](const ListedError& error) { return !IsCalled(error, wanted); });
        if (shown.empty())
            return RefuseWord(word, all, format, streams);
    }
    if (format == OutputFormat::json) {
        Json list = Json::array();
        for (const ListedError& error : shown)
            list.push_back(JsonOf(error));
        streams.out << JsonText(list) << '\n';
        return kDone;
    }
    for (const ListedError& error : shown) {
        streams.out << error.number << '\t' << ErrorNumberText(error.value) << '\t' << error.name << '\t'
                    << error.message << '\n';
        if (!word.empty())
            streams.out << "  cause: " << error.cause << "\n  mend:  " << error.mend << '\n';
    }
    return kDone;
}

}  // namespace tovarek
