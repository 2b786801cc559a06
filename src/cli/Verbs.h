// What the program can do: one table of verbs and their options. The command line is parsed by it, and what
// helps people with the command line is made of it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "cli/Given.h"
#include "cli/Streams.h"

namespace tovarek {

// An option of a verb. A row named "--format" is one more format of output: `argument` names it.
struct OptionRow {
    std::string name;           // "--bytes"
    std::string_view argument;  // the word for its value, "FILE"; empty: it takes none
    std::string_view help;      // for people, in lines of at most 65 characters
    bool isRepeatable = false;
};

// Every verb has --help and --format text|json as well.
struct Verb {
    std::string_view name;  // "dump", "catalog list"
    std::string_view
        operands;  // as the help shows them; each is given by its word: "FILE", "VALUE...", "[ID]"
    std::string_view summary;  // empty for what only groups verbs, such as "catalog", or serves programs
    std::string_view note;     // lines of the help in front of the options
    std::string_view example;  // works in the folder of the example device, behind those in front of it
    std::vector<OptionRow> options;
    int (*run)(const Given& given, Streams streams);
};

// All verbs, in the order of the help.
const std::vector<Verb>& Verbs();

// The words of a verb's operands; the last one may take several values.
struct Operand {
    std::string name;
    bool isRepeatable;
};
std::vector<Operand> OperandsOf(const Verb& verb);

// What "generate [OPTIONS]" is to `generate`.
std::string UsageOf(const Verb& verb);

// The groups.
std::vector<Verb> JobVerbs();      // generate, check
std::vector<Verb> FindingVerbs();  // explain, errors
std::vector<Verb> CatalogVerbs();
std::vector<Verb> FileVerbs();   // new, show, dump, diff, convert
std::vector<Verb> ValueVerbs();  // value, program-id
std::vector<Verb> PrintVerbs();  // schema, print

// The options of every verb.
std::vector<OptionRow> CommonOptions();

// The options that name another catalog than the shipped one.
std::vector<OptionRow> CatalogOptions();

std::vector<OptionRow> Join(std::vector<OptionRow> first, const std::vector<OptionRow>& second);

}  // namespace tovarek
