// The verbs that print what other programs take: editors, man, shells.
#include <ostream>

#include "base/Text.h"
#include "cli/Completions.h"
#include "cli/JobSchema.h"
#include "cli/ManPage.h"
#include "cli/Verbs.h"

namespace tovarek {
namespace {

int PrintJobSchema(const Given& /*given*/, Streams streams) {
    streams.out << JsonText(JobSchema()) << '\n';
    return kDone;
}

int AskForSchema(const Given& given, Streams streams) {
    return ReportWrongUse("schema needs to know of what: schema job", given.format, streams);
}

// For packages and completions, so no help tells of it.
int Print(const Given& given, Streams streams) {
    const std::string what = given.Text("WHAT");
    const std::string text = what == "man" ? ManPage() : std::string(CompletionScript(what));
    if (text.empty())
        return ReportWrongUse("'" + Excerpt(what) + "' cannot be printed; give man, bash, zsh or fish",
                              given.format, streams);
    streams.out << text;
    return kDone;
}

}  // namespace

std::vector<Verb> PrintVerbs() {
    return {
        {"schema", "", "", "", "", {}, AskForSchema},
        {"schema job",
         "",
         "the JSON Schema of job files, for editors",
         "",
         "tovarek schema job",
         {},
         PrintJobSchema},
        {"print", "WHAT", "", "", "", {}, Print},
    };
}

}  // namespace tovarek
