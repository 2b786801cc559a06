#include <algorithm>
#include <nlohmann/json.hpp>
#include <set>

#include "../Scratch.h"
#include "Program.h"
#include "base/Text.h"
#include "cli/NewFolder.h"
#include "formats/xif/XifProperties.h"
#include "profile/ProfileFields.h"
#include "starter/Starter.h"

namespace tovarek::test {
namespace {

constexpr const char* kNewForms[] = {"ini", "xml"};

class New : public testing::Test {
  protected:
    New() { SetVariable("SOURCE_DATE_EPOCH", "1795254067"); }
    ~New() override { UnsetVariable("SOURCE_DATE_EPOCH"); }

    static Answer CallOn(const std::vector<std::string>& words) {
        std::vector<std::string> arguments = words;
        arguments.insert(arguments.end(), {"--catalogDir", TOVAREK_CATALOG});
        return Call(arguments);
    }

    // Makes the folder `name`, with its outputs beside its inputs.
    std::string Make(const std::string& name, std::vector<std::string> words) const {
        words.insert(words.begin(), {"new", scratch_.Path(name)});
        const Answer run = CallOn(words);
        EXPECT_EQ(run.status, 0) << run.error;
        return scratch_.Path(name);
    }

    // The interface file of the job, with its resource files beside it.
    std::string Source(const std::string& name, const std::string& job) const {
        const std::string folder = scratch_.Path(name);
        EXPECT_TRUE(MakeDirectory(folder));
        const Answer run = CallOn({"generate", "--job", job, "--typeFilesDirectory", folder,
                                   "--outputXIFfile", folder + "/source.xif"});
        EXPECT_EQ(run.status, 0) << run.error;
        return folder + "/source.xif";
    }

    static std::vector<std::string> JobCall(const std::string& verb, const std::string& folder) {
        return {verb,
                "--job",
                folder + "/job.json",
                "--outputXIFfile",
                folder + "/out.xif",
                "--typeFilesDirectory",
                folder + "/types",
                "--format",
                "json"};
    }

    // The names of what check finds.
    static std::multiset<std::string> Findings(const std::string& folder) {
        std::vector<std::string> words = JobCall("check", folder);
        words.emplace_back("--pedantic");
        std::multiset<std::string> names;
        const auto report = nlohmann::json::parse(CallOn(words).out);
        for (const auto& finding : report.at("findings"))
            names.insert(finding.at("name"));
        return names;
    }

    static std::string Generated(const std::string& folder) {
        const Answer run = CallOn(JobCall("generate", folder));
        EXPECT_EQ(run.status, 0) << run.out << run.error;
        return run.status == 0 ? ReadFile(folder + "/out.xif") : "";
    }

    Scratch scratch_;
};

// The values of the profile.
std::vector<XifNumber> ProfilePartOf(const std::string& xif) {
    XifFile file;
    EXPECT_TRUE(ReadXifFile(xif, file).Ok());
    std::vector<XifNumber> values;
    for (const ProfileField& field : kProfileFields)
        for (const XifParameters& line : file.parameters)
            if (line.line == field.line)
                values.push_back(line.numbers.at(static_cast<std::size_t>(field.token) - 1));
    EXPECT_EQ(values.size(), kProfileFields.size());
    return values;
}

// What follows the names of file and tool, and the date.
std::string BehindHead(const std::string& xif) {
    return xif.substr(std::min(xif.size(), xif.find("\r\n\r\n")));
}

// What a starter has to show, in words.
std::set<std::string> KindsIn(const std::string& xif) {
    XifFile file;
    EXPECT_TRUE(ReadXifFile(xif, file).Ok());
    std::set<std::string> kinds;
    for (const XifVariable& nv : file.variables) {
        constexpr std::size_t kDirection = 3;
        kinds.insert(nv.Attribute(kDirection) == 0 ? "input" : "output");
        if (nv.Number(3) > 1)
            kinds.insert("array");
        if (nv.standardType == 0)
            kinds.insert("own type");
    }
    for (const XifProperty& property : ReadXifTemplate(file).properties) {
        kinds.insert("property of " + property.appliesTo);
        kinds.insert("property in " + property.scope);
    }
    if (!file.tags.empty())
        kinds.insert("tag");
    return kinds;
}

TEST_F(New, EachDeviceGeneratesCleanAndAlikeInBothForms) {
    const std::set<std::string> all = {"input",
                                       "output",
                                       "array",
                                       "own type",
                                       "property of 0",
                                       "property of 1",
                                       "property of 2",
                                       "property in 0",
                                       "property in 3",
                                       "property in 6",
                                       "tag"};
    std::set<std::string> interfaces;
    for (const Starter* starter : Starters()) {
        const std::string like(starter->name);
        std::set<std::string> alike;
        std::string xif;
        for (const char* form : kNewForms) {
            const std::string folder = Make(like + form, {"--like", like, "--form", form});
            EXPECT_EQ(Findings(folder), std::multiset<std::string>{"maker-number"}) << like << form;
            xif = Generated(folder);
            alike.insert(BehindHead(xif));
            EXPECT_EQ(DirectoryEntries(folder + "/types").size(), 9U) << "two scopes and files.lst";
            const std::string readMe = ReadFile(folder + "/README.md");
            EXPECT_EQ(std::count(readMe.begin(), readMe.end(), '\n'), 10) << readMe;
            EXPECT_NE(readMe.find(std::string("programID in template.") + form), std::string::npos);
        }
        ASSERT_EQ(alike.size(), 1U) << like;
        EXPECT_EQ(KindsIn(xif), all) << like;
        interfaces.insert(*alike.begin());
    }
    EXPECT_EQ(interfaces.size(), Starters().size());
}

// What people see of each: variables and properties with their values, types of its own, and what its README
// says.
TEST_F(New, EachDeviceIsWhatItsTableSays) {
    SetVariable("COLUMNS", "150");
    std::string seen;
    for (const Starter* starter : Starters()) {
        const std::string folder = Make(std::string(starter->name), {"--like", std::string(starter->name)});
        const std::string page = CallOn({"show", folder + "/job.json"}).out;
        seen += page.substr(std::min(page.size(), page.find("Network variables\n")));
        const std::string xif = Generated(folder);
        const std::size_t profile = xif.find("\r\n2 15 ");
        EXPECT_EQ(xif.substr(profile + 2, xif.find("\r\n*\r\n", profile) - profile - 2),
                  "2 15 0 " + std::to_string(starter->variables.size()) +
                      " 1 4 3 2 2 3 5 9 9 9 9 2 0 16 15 1 1 11 " + std::to_string(starter->variables.size()) +
                      "\r\n0 5 7 13 28 944 0 15 5 3 265 4\r\n1 7 1 0 4 4 5 15 200 0\r\n"
                      "78125 0 0 0 0 0 0 0 0 0 0 0\r\n90 0 240 0 0 0 40 40 0 5 1 2 5 0 1");
    }
    seen += ReadFile(scratch_.Path("switch/README.md"));
    UnsetVariable("COLUMNS");
    ExpectText(seen, TOVAREK_EXPECTED "/starters.txt");
}

TEST_F(New, ProfileOrAllOfADeviceComesFromItsInterfaceFile) {
    std::vector<std::string> sources = {Source("example", std::string(TOVAREK_EXAMPLE) + "/job.json")};
    for (const Starter* starter : Starters()) {
        const std::string like(starter->name);
        sources.push_back(Source("of " + like, Make(like, {"--like", like}) + "/job.json"));
    }
    const std::multiset<std::string> ofExample = {"eight-bit-text", "eight-bit-text", "maker-number",
                                                  "no-default"};
    const std::multiset<std::string> ofStarter = {"maker-number"};
    for (const std::string& source : sources)
        for (const char* form : kNewForms) {
            const std::string name = std::to_string(&source - sources.data()) + form;
            // Another profile than that of the starters.
            std::string other = ReadFile(source);
            other.replace(other.find(" 944 "), 5, " 945 ");
            const std::string profile =
                Make("p" + name, {"--from", scratch_.File("other.xif", other), "--form", form});
            EXPECT_EQ(ProfilePartOf(Generated(profile)), ProfilePartOf(other));
            EXPECT_EQ(Findings(profile), ofStarter);
            const std::string all = Make("a" + name, {"--from", source, "--all", "--form", form});
            EXPECT_EQ(BehindHead(Generated(all)), BehindHead(ReadFile(source)));
            EXPECT_EQ(Findings(all), &source == sources.data() ? ofExample : ofStarter) << source << form;
            EXPECT_TRUE(FileExists(all + "/format.xml"));
            EXPECT_NE(ReadFile(all + "/template." + form).find("bytes of one element"), std::string::npos);
        }
}

TEST_F(New, ADeviceWithoutResourceFilesHasAJobWithoutTypes) {
    const std::string source = ReadFile(Source("example", std::string(TOVAREK_EXAMPLE) + "/job.json"));
    const std::string folder = Make("alone", {"--from", scratch_.File("alone.xif", source), "--all"});
    EXPECT_EQ(BehindHead(Generated(folder)), BehindHead(source));
    EXPECT_FALSE(FileExists(folder + "/format.xml"));
    const std::string readMe = ReadFile(folder + "/README.md");
    EXPECT_EQ(std::count(readMe.begin(), readMe.end(), '\n'), 10) << readMe;
    for (const char* told :
         {"` in this folder writes alone.xif; `", "another interface needs one of its own; `tovarek",
          "4. Types of the device's own: an interface file does not hold them"})
        EXPECT_NE(readMe.find(told), std::string::npos) << readMe;
    EXPECT_EQ(readMe.find("\n5. "), std::string::npos);
}

TEST_F(New, AProfileOfALaterVersionIsFittedOrAskedFor) {
    std::string later = ReadFile(Source("older", Make("like", {"--like", "switch"}) + "/job.json"));
    later.replace(later.find("\r\n0 5 7 "), 8, "\r\n32 5 7 ");
    later.replace(later.find("\r\n2 15 "), 7, "\r\n2 99 ");
    const std::string file = scratch_.File("later.xif", later);
    for (const std::vector<std::string>& more : {std::vector<std::string>{}, {"--all"}}) {
        const std::string folder = scratch_.Path("new" + std::to_string(more.size()));
        std::vector<std::string> words = {"new", folder, "--from", file};
        words.insert(words.end(), more.begin(), more.end());
        const Answer asked = CallOn(words);
        EXPECT_EQ(asked.status, 2);
        EXPECT_NE(asked.error.find("typeNeuron is 32"), std::string::npos) << asked.error;
        EXPECT_FALSE(FolderExists(folder)) << "nothing is left";
        words.insert(words.end(), {"--set", "typeNeuron=0"});
        const Answer run = CallOn(words);
        EXPECT_EQ(run.status, 0) << run.error;
        EXPECT_NE(run.error.find("addresses: 15 instead of 99"), std::string::npos) << run.error;
        EXPECT_EQ(Findings(folder), std::multiset<std::string>{"maker-number"});
    }
}

TEST_F(New, CommentsTellWhatEachKeyMeans) {
    const std::string ini = Make("i", {"--like", "switch"});
    const std::string xml = Make("x", {"--like", "switch", "--form", "xml"});
    const std::pair<std::string, std::string> profiles[] = {{ReadFile(ini + "/profile.ini"), "\n; "},
                                                            {ReadFile(xml + "/profile.xml"), "<!-- "}};
    for (const ProfileField& field : kProfileFields)
        for (const auto& [profile, mark] : profiles) {
            const std::size_t at = profile.find(mark + std::string(field.meaning) + "; accepted: ");
            ASSERT_NE(at, std::string::npos) << field.name;
            // The range, then the value itself in the next line.
            const std::size_t end = profile.find("\r\n", at);
            EXPECT_GT(end, at + field.meaning.size() + std::string_view("; accepted: ").size() + 1);
            const std::size_t value = profile.find_first_not_of(" <", end + 2);
            EXPECT_EQ(UpperCase(profile.substr(value, field.iniKey.size())), UpperCase(field.iniKey));
        }
    for (const std::string& text : {ReadFile(ini + "/template.ini"), ReadFile(xml + "/template.xml")})
        for (const char* told : {"program ID, 16", "0 input, 1 output", "bytes of one element", "SNVT_switch",
                                 "SCPTmaxSendTime: 60 seconds"})
            EXPECT_NE(text.find(told), std::string::npos) << told;
    EXPECT_NE(ReadFile(ini + "/template.ini").find("; cpHoldTimes\r\n"), std::string::npos)
        << "names of properties";
}

TEST_F(New, NothingIsOverwrittenAndWrongUseTellsWhatExists) {
    const std::string folder = Make("there", {"--like", "sensor"});
    const std::string file = scratch_.File("file", "mine");
    const struct {
        std::vector<std::string> words;
        int status;
        const char* message;
    } rows[] = {
        {{folder, "--like", "switch"}, 2, "exists, and nothing is overwritten"},
        {{folder + "/", "--like", "switch"}, 2, "exists, and nothing is overwritten"},
        {{file, "--like", "switch"}, 2, "exists, and nothing is overwritten"},
        {{scratch_.Path("none/new"), "--like", "switch"}, 1, "there is no folder"},
        {{scratch_.Path("a")}, 2, "--like fan-coil or --like sensor or --like switch"},
        {{scratch_.Path("a"), "--like", "sensr"}, 2, "did you mean 'sensor'?"},
        {{scratch_.Path("a"), "--like", "sensor", "--form", "json"}, 2, "--form ini or --form xml"},
        {{"--like", "sensor"}, 2, "needs the name of the folder"},
        {{scratch_.Path("a"), "--like", "sensor", "--all"}, 2, "belong to --from"},
        {{scratch_.Path("a"), "--like", "sensor", "--set", "domains=1"}, 2, "belong to --from"},
        {{scratch_.Path("a"), "--like", "sensor", "--all", "--from", file}, 2, "give one of them"},
        {{scratch_.Path("a"), "--from", file}, 2, "does not begin like an XIF file"},
        {{scratch_.Path("a"), "--from", scratch_.Path("none.xif")}, 1, "File not found"},
        {{scratch_.Path("a"), "--from", std::string(TOVAREK_EXAMPLE) + "/profile.xif", "--set", ""},
         2,
         "--set '' names no field of a profile"},
    };
    const std::string before = ReadFile(folder + "/template.ini");
    for (const auto& row : rows) {
        std::vector<std::string> words = {"new"};
        words.insert(words.end(), row.words.begin(), row.words.end());
        const Answer run = CallOn(words);
        EXPECT_EQ(run.status, row.status) << row.message;
        EXPECT_NE(run.error.find(row.message), std::string::npos) << run.error;
    }
    EXPECT_EQ(DirectoryEntries(folder).size(), 6U);
    EXPECT_EQ(ReadFile(folder + "/template.ini"), before);
    EXPECT_EQ(ReadFile(file), "mine");
    EXPECT_FALSE(FolderExists(scratch_.Path("a")));
}

TEST_F(New, AFolderThatIsNotFinishedIsRemoved) {
    {
        const NewFolder half(scratch_.Path("half"));
        WriteFile(half.PathOf("a"), "x");
    }
    EXPECT_FALSE(FolderExists(scratch_.Path("half")));
    NewFolder(scratch_.Path("whole")).Finish();
    EXPECT_TRUE(FolderExists(scratch_.Path("whole")));
}

}  // namespace
}  // namespace tovarek::test
