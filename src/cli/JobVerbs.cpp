// The verbs that take a job.
#include "cli/BatchCommand.h"
#include "cli/CheckCommand.h"
#include "cli/GenerateCommand.h"
#include "cli/Verbs.h"
#include "component/PropertyTable.h"

namespace tovarek {
namespace {

std::string_view ArgumentOf(const Property& property) {
    switch (property.kind) {
        case PropertyKind::boolean:
            return "BOOL";
        case PropertyKind::integer:
            return "N";
        case PropertyKind::node:
            return "FILE#ELEMENT";
        case PropertyKind::string:
            break;
    }
    return "TEXT";
}

// The options that set properties act in the order in which they stand, so each may come again.
std::vector<OptionRow> WithSettings(const std::vector<OptionRow>& own) {
    std::vector<OptionRow> rows = {{"--set", "PROPERTY=VALUE", "set a property", true},
                                   {"--job", "FILE",
                                    "set the properties of a JSON object {property: value}; in it inputs\n"
                                    "count from the folder of FILE",
                                    true}};
    rows = Join(std::move(rows), own);
    for (const Property& property : Properties())
        rows.push_back({"--" + std::string(property.name), ArgumentOf(property), property.help, true});
    return rows;
}

std::vector<Setting> SettingsOf(const Given& given) {
    std::vector<Setting> settings;
    for (const auto& [name, value] : given.options) {
        if (name == "--set")
            settings.push_back({Setting::Kind::pair, {}, value});
        else if (name == "--job")
            settings.push_back({Setting::Kind::job, {}, value});
        else if (FindProperty(name.substr(2)) != nullptr)
            settings.push_back({Setting::Kind::property, name.substr(2), value});
    }
    return settings;
}

int Generate(const Given& given, Streams streams) {
    const GenerateWishes wishes = {.build = {.depfile = given.Text("--depfile"),
                                             .stamp = given.Text("--stamp"),
                                             .ifChanged = given.Has("--if-changed")},
                                   .warns = !given.Has("--no-warnings")};
    return RunGenerate(SettingsOf(given), wishes, given.format, streams);
}

int Batch(const Given& given, Streams streams) {
    return RunBatch(
        {.jobs = given.All("JOB"),
         .threads = given.Text("--jobs"),
         .failFast = given.Has("--fail-fast"),
         .generate = {.build = {.depfile = {}, .stamp = {}, .ifChanged = given.Has("--if-changed")},
                      .warns = !given.Has("--no-warnings")}},
        given.format, streams);
}

int Check(const Given& given, Streams streams) {
    CheckWishes wishes;
    wishes.options.ignored = given.All("--ignore");
    wishes.options.isPedantic = given.Has("--pedantic");
    wishes.warningsAsErrors = given.Has("--warnings-as-errors");
    wishes.isMending = given.Has("--fix");
    wishes.isTrial = given.Has("--dry-run");
    wishes.color = given.Text("--color", wishes.color);
    return RunCheck(SettingsOf(given), wishes, given.format, streams);
}

constexpr std::string_view kOrder = "Options act in the order in which they stand:";

}  // namespace

std::vector<Verb> JobVerbs() {
    return {
        {"generate", "[OPTIONS]", "write the XIF file and the resource files", kOrder,
         "tovarek generate --job job.json --outputXIFfile fan-coil.xif",
         WithSettings(
             {{"--no-warnings", "", "do not tell what is read otherwise than it was written"},
              {"--if-changed", "", "leave an output alone that would be the same but for its date"},
              {"--stamp", "FILE", "touch FILE in the end, whether or not an output has changed"},
              {"--depfile", "FILE", "write what FILE of --stamp was made from, for Make and Ninja"}}),
         Generate},
        {"batch",
         "JOB...",
         "generate with many job files, each as if it were alone",
         "JOB is a job file, or @LIST: a file with one on each line, as it counts from the folder of LIST.",
         "tovarek batch job.json --jobs 4",
         {{"--jobs", "N", "how many run at a time, 1 to 256; without it as many as processors"},
          {"--fail-fast", "", "begin no job behind one that failed"},
          {"--no-warnings", "", "do not tell what is read otherwise than it was written"},
          {"--if-changed", "", "leave an output alone that would be the same but for its date"}},
         Batch},
        {"check", "[OPTIONS]", "find every fault of a job; nothing is written", kOrder,
         "tovarek check --iniTemplateFile template.ini --mustGenerateTypes false --mustGenerateXif false",
         WithSettings(
             {{"--ignore", "NAME", "leave a warning out, e.g. --ignore ignored-key; may be repeated", true},
              {"--pedantic", "", "weak warnings too"},
              {"--warnings-as-errors", "", "exit status 1 for a warning as well"},
              {"--fix", "", "mend in the inputs what has exactly one mend, and check again"},
              {"--dry-run", "", "with --fix: show the mends as a diff; nothing is written"},
              {"--color", "auto|always|never", "colours; auto: on a terminal, unless NO_COLOR is set", true},
              {"--format", "sarif", "for code hosts: SARIF 2.1.0"},
              {"--format", "junit", "for build servers: a test case for each input, in JUnit's XML"}}),
         Check},
    };
}

}  // namespace tovarek
