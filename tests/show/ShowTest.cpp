#include <algorithm>

#include "../Samples.h"
#include "../Scratch.h"
#include "Program.h"
#include "base/Text.h"
#include "formats/xif/XifFile.h"
#include "system/Files.h"

namespace tovarek::test {
namespace {

const std::string kExample = TOVAREK_EXAMPLE;

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    for (std::string_view rest = text; !rest.empty();)
        lines.emplace_back(TakeLine(rest));
    return lines;
}

// The example as the generator writes it, and the files of its types.
struct Example {
    Example() {
        const Answer made =
            Call({"generate", "--catalogDir", TOVAREK_CATALOG, "--job", kExample + "/job.json",
                  "--typeFilesDirectory", scratch.Folder(), "--outputXIFfile", scratch.Path("fan-coil.xif")});
        EXPECT_EQ(made.status, 0) << made.error;
    }
    Answer Show(std::vector<std::string> more = {}) const {
        more.insert(more.begin(), {"show", "--catalogDir", TOVAREK_CATALOG, scratch.Path("fan-coil.xif")});
        return Call(more);
    }
    Scratch scratch;
};

void ExpectLines(const std::string& text, const std::vector<std::string>& wanted) {
    const std::vector<std::string> lines = Lines(text);
    for (const std::string& line : wanted)
        EXPECT_NE(std::find(lines.begin(), lines.end(), line), lines.end()) << line << "\nin\n" << text;
}

TEST(Show, TellsADeviceAsText) {
    const Example example;
    const Answer shown = example.Show({example.scratch.Path("fancoil_6.typ")});
    EXPECT_EQ(shown.status, 0) << shown.error;
    ExpectLines(
        shown.out,
        {"fan-coil.xif",
         "============", "Fan-coil unit controller, 2-pipe, with room unit and 4 window contacts",
         "maker       FFFFF (1048575)", "channel     04 (4), twisted pair, free topology, 78 kbit/s",
         "Chip                       3150 (0)", "Clock                      10 MHz (5)",
         "Transceiver                free topology (7)",
         "Addresses                  15 entries of 5 bytes: 75 bytes",
         "application input             5      42    210", "all                                        588",
         "┌─ Object 0: node object ──────────────────────────────────────────────────────┐",
         "│ → nviFanMode: UNVT__fanMode             nvoWaterFlow: UNVT__waterFlow, l/h → │",
         "│ • UCPT_1_cpMaxSupplyTemp = 70 °C                                             │",
         "│ • UCPT_2_cpStartFanMode = FM_AUTO                                            │",
         "┌─ Object 2: profile 8020 ─────────────────────────────────────────────────────┐", "  4 FM_AUTO",
         "  coil: structure", "UNVT__waterFlow (2 bytes): unsigned long, 0 to 5000 l/h (raw 0 to 10000)"});
    EXPECT_TRUE(example.Show({"--as", "markdown"}).out.starts_with("# "));
}

TEST(Show, HasDrawnThePictureOfTheDocuments) {
    const Example example;
    EXPECT_EQ(example.Show({"--as", "svg"}).out, ReadFile(kExample + "/../../docs/fan-coil.svg"));
    const Answer json = example.Show({"--as", "svg", "--format", "json"});
    EXPECT_EQ(json.out.rfind("{\n  \"as\": \"svg\",\n  \"content\": \"<svg ", 0), 0U) << json.out;
}

TEST(Show, ReadsWhatTellsADevice) {
    const Example example;
    const std::string ini = kExample + "/template.ini";
    const std::string profile = kExample + "/profile.ini";
    const struct {
        std::vector<std::string> words;
        bool hasChip;
        bool hasTypes;
    } rows[] = {
        {{kExample + "/job.json"}, true, true},
        {{ini}, false, false},
        {{ini, profile}, true, false},
        {{profile, ini}, true, false},
        {{kExample + "/template.xml#DEVICE", kExample + "/profile.xml#DEVICEPROFILE"}, true, false},
        {{ini, example.scratch.Path("fancoil_6.enu"), example.scratch.Path("fancoil_6.typ")}, false, true},
    };
    for (const auto& row : rows) {
        std::vector<std::string> words = {"show", "--catalogDir", TOVAREK_CATALOG};
        words.insert(words.end(), row.words.begin(), row.words.end());
        const Answer shown = Call(words);
        EXPECT_EQ(shown.status, 0) << row.words.front() << shown.error;
        EXPECT_EQ(shown.out.find("\nChip ") != std::string::npos, row.hasChip) << row.words.front();
        EXPECT_EQ(shown.out.find("\n  4 FM_AUTO\n") != std::string::npos, row.hasTypes) << row.words.front();
        EXPECT_NE(shown.out.find("nviRequest: SNVT_obj_request"), std::string::npos) << row.words.front();
    }
}

TEST(Show, TakesTheSetsBesideAnInterfaceFileOrThoseThatAreNamed) {
    const Example example;
    const std::string found = example.Show().out;
    for (const char* line : {"nvoWaterTemp: UNVT__waterTemp, °C", "UCPT_1_powerLimit = 1500 W"})
        EXPECT_NE(found.find(line), std::string::npos) << line;
    const std::string named = example.Show({example.scratch.Path("fancoil_3.typ")}).out;
    for (const char* line : {"nvoWaterTemp: own type of 2 bytes", "UCPT_1_powerLimit = 1500 W"})
        EXPECT_NE(named.find(line), std::string::npos) << line;
}

// Resource files name standard units by the numbers of the catalog that they were made with. The shipped one
// numbers texts its own way, so it tells the unit only of what was made with it just now.
TEST(Show, TakesUnitsFromTheShippedCatalogForTypesOfAJobAlone) {
    const Example example;
    const std::string job = Call({"show", kExample + "/job.json"}).out;
    EXPECT_NE(job.find("UCPT_1_valveTime = 90 seconds "), std::string::npos) << job;
    const std::string file = Call({"show", example.scratch.Path("fan-coil.xif")}).out;
    EXPECT_NE(file.find("UCPT_1_valveTime = 90  "), std::string::npos) << file;
}

TEST(Show, RefusesWhatIsNoDevice) {
    const Example example;
    const std::string types = example.scratch.Path("fancoil_6.typ");
    const struct {
        std::vector<std::string> words;
        const char* told;
    } rows[] = {
        {{}, "show needs a device"},
        {{types}, "show needs a device"},
        {{kExample + "/profile.ini"}, "holds no template"},
        {{kExample + "/profile.ini", kExample + "/profile.ini"}, "two inputs hold a profile"},
        {{kExample + "/template.ini", "--as", "picture"},
         "there is no form 'picture' of a device; give --as text or --as markdown"},
        {{kExample + "/template.ini", types, example.scratch.Path("copy.typ")}, "the second set of scope 6"},
    };
    std::filesystem::copy_file(types, example.scratch.Path("copy.typ"));
    for (const auto& row : rows) {
        std::vector<std::string> words = {"show", "--catalogDir", TOVAREK_CATALOG};
        words.insert(words.end(), row.words.begin(), row.words.end());
        const Answer shown = Call(words);
        EXPECT_EQ(shown.status, 2);
        EXPECT_NE(shown.error.find(row.told), std::string::npos) << shown.error;
    }
}

TEST(Show, KeepsToTheWidthOfALine) {
    const Example example;
    // What no screen shows is taken for what is usual.
    for (const auto& [columns, width] :
         {std::pair("40", 40U), {"80", 80U}, {"131", 131U}, {"1000", 1000U}, {"1001", 80U}}) {
        SetVariable("COLUMNS", columns);
        const std::vector<std::string> lines =
            Lines(example.Show({example.scratch.Path("fancoil_6.typ")}).out);
        UnsetVariable("COLUMNS");
        std::size_t longest = 0;
        for (const std::string& line : lines)
            longest = std::max(longest, CharacterCount(line));
        EXPECT_EQ(longest, width);
    }
}

TEST(Show, ShowsEveryFileOfOtherTools) {
    for (const std::string& path : SampleFiles("xif")) {
        XifFile file;
        if (!ReadXifFile(ReadFile(path), file).Ok())
            continue;
        const Answer shown = Call({"show", "--catalogDir", TOVAREK_CATALOG, path});
        EXPECT_EQ(shown.status, 0) << path << shown.error;
        EXPECT_TRUE(IsUtf8(shown.out)) << path;
        for (const std::string& line : Lines(shown.out))
            EXPECT_LE(CharacterCount(line), 80U) << path;
    }
}

}  // namespace
}  // namespace tovarek::test
