#include "cli/ErrorsCommand.h"

#include <ostream>
#include <vector>

#include "base/Nearest.h"
#include "base/Text.h"
#include "cli/Json.h"
#include "explain/Explanations.h"

namespace tovarek {
namespace {

int RefuseErrorWord(const std::string& word, OutputFormat format, Streams streams) {
    std::vector<std::string> names;
    for (const Explanation& one : Explanations())
        if (one.IsError())
            names.emplace_back(one.name);
    return ReportWrongUse("there is no error '" + Excerpt(word) +
                              "'; give a number from 1 to 135, the code of a message, or a name" +
                              DidYouMean(word, names),
                          format, streams);
}

Json JsonOfError(const Explanation& error) {
    return {{"n", error.number},
            {"error", error.value},
            {"code", ErrorNumberText(error.value)},
            {"name", ErrorName(error.value)},
            {"description", error.message},
            {"cause", error.meaning},
            {"mend", error.mend}};
}

}  // namespace

int RunErrors(const std::string& word, OutputFormat format, Streams streams) {
    std::vector<Explanation> shown =
        word.empty() ? std::vector(Explanations().begin(), Explanations().end()) : ExplanationsOf(word);
    // The list is that of the component's own.
    std::erase_if(shown,
                  [&](const Explanation& one) { return !one.IsError() || (word.empty() && one.value >= 0); });
    if (shown.empty())
        return RefuseErrorWord(word, format, streams);
    if (format == OutputFormat::json) {
        Json list = Json::array();
        for (const Explanation& error : shown)
            list.push_back(JsonOfError(error));
        streams.out << JsonText(list) << '\n';
        return kDone;
    }
    for (const Explanation& error : shown) {
        streams.out << error.number << '\t' << ErrorNumberText(error.value) << '\t' << ErrorName(error.value)
                    << '\t' << error.message << '\n';
        if (!word.empty())
            streams.out << "  cause: " << error.meaning << "\n  mend:  " << error.mend << '\n';
    }
    return kDone;
}

}  // namespace tovarek
