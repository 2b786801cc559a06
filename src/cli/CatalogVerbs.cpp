// The verbs that show the standard catalog.
#include "cli/CatalogCommand.h"
#include "cli/Verbs.h"

namespace tovarek {
namespace {

int List(const Given& given, Streams streams) {
    return RunCatalogList(given.Catalog(), given.format, streams);
}

int ShowType(const Given& given, Streams streams) {
    const std::string type = given.Text("TYPE");
    if (type.empty())
        return ReportWrongUse("catalog show needs a type: its name, a part of it, or its number",
                              given.format, streams);
    return RunCatalogShow(given.Catalog(), type, given.format, streams);
}

int FindTypes(const Given& given, Streams streams) {
    const std::string word = given.Text("WORD");
    if (word.empty())
        return ReportWrongUse("catalog find needs a word to look for in names, units and texts", given.format,
                              streams);
    return RunCatalogFind(given.Catalog(), word, given.format, streams);
}

int AskForVerb(const Given& given, Streams streams) {
    return ReportWrongUse("catalog needs a command: list, show TYPE or find WORD", given.format, streams);
}

}  // namespace

std::vector<Verb> CatalogVerbs() {
    return {
        {"catalog", "", "", "", "", CatalogOptions(), AskForVerb},
        {"catalog list", "", "list the standard types", "", "tovarek catalog list", CatalogOptions(), List},
        {"catalog show", "TYPE", "show one, e.g. SNVT_temp_p, temp_p or 105", "",
         "tovarek catalog show temp_p", CatalogOptions(), ShowType},
        {"catalog find", "WORD", "find types by name, unit and text", "", "tovarek catalog find pressure",
         CatalogOptions(), FindTypes},
    };
}

}  // namespace tovarek
