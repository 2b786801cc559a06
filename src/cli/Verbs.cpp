#include "cli/Verbs.h"

#include <sstream>

namespace tovarek {

const std::vector<Verb>& Verbs() {
    static const std::vector<Verb> verbs = [] {
        std::vector<Verb> all;
        for (const auto group : {JobVerbs, FindingVerbs, CatalogVerbs, FileVerbs, ValueVerbs, PrintVerbs})
            for (Verb& verb : group())
                all.push_back(std::move(verb));
        return all;
    }();
    return verbs;
}

std::vector<Operand> OperandsOf(const Verb& verb) {
    std::vector<Operand> operands;
    std::istringstream words{std::string(verb.operands)};
    for (std::string word; words >> word;) {
        if (word.starts_with('['))
            word = word.substr(1, word.size() - 2);
        if (word == "OPTIONS" || word.starts_with('-'))
            continue;
        const bool isRepeatable = word.ends_with("...");
        operands.push_back({word.substr(0, word.find('.')), isRepeatable});
    }
    return operands;
}

std::string UsageOf(const Verb& verb) {
    return std::string(verb.name) + (verb.operands.empty() ? "" : " ") + std::string(verb.operands);
}

std::vector<OptionRow> CommonOptions() {
    return {{"--format", "text|json", "how results and errors are shown"},
            {"--help", "", "tells of one command"}};
}

std::vector<OptionRow> CatalogOptions() {
    return {{"--catalogDir", "DIR", "folder of another catalog than the shipped one"},
            {"--catalogFile", "FILE", "its file name, ldrf.cat by default"}};
}

std::vector<OptionRow> Join(std::vector<OptionRow> first, const std::vector<OptionRow>& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

}  // namespace tovarek
