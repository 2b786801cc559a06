// The verbs that tell of findings.
#include "cli/ErrorsCommand.h"
#include "cli/ExplainCommand.h"
#include "cli/Verbs.h"

namespace tovarek {
namespace {

int Explain(const Given& given, Streams streams) {
    return RunExplain({.word = given.Text("NUMBER|NAME"), .isList = given.Has("--list")}, given.format,
                      streams);
}

int ListErrors(const Given& given, Streams streams) {
    return RunErrors(given.Text("WORD"), given.format, streams);
}

}  // namespace

std::vector<Verb> FindingVerbs() {
    return {
        {"explain",
         "NUMBER|NAME",
         "what a finding means, why it matters, an example, the mend",
         "NUMBER or NAME is what stands in brackets behind a finding of 'tovarek check', or the code of an "
         "error.",
         "tovarek explain not-a-number",
         {{"--list", "", "all of them in short"},
          {"--format", "markdown", "with --list: all texts, as docs/findings.md has them"}},
         Explain},
        {"errors",
         "[WORD]",
         "list the errors; WORD: cause and mend of one, e.g. 71",
         "WORD is the number of an error, the code that a message begins with, or a name.",
         "tovarek errors nvlength",
         {},
         ListErrors},
    };
}

}  // namespace tovarek
