// Inputs that no user means to give: every loader answers with a clear error, quickly, and nothing breaks.
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <vector>

#include "Device.h"

namespace tovarek::test {
namespace {

std::string Nested(int levels) {
    std::string text;
    for (int i = 0; i < levels; ++i)
        text += "<NVS>";
    for (int i = 0; i < levels; ++i)
        text += "</NVS>";
    return text;
}

// What each loader answers for a file; `set` names the file as its source.
struct Loader {
    const char* name;
    std::function<void(Tovarek&, const std::string& path)> set;
    int missing, folder, empty, binary, nested, cyclic;
};

const Loader kLoaders[] = {
    {"INI template", [](Tovarek& c, const std::string& p) { c.iniTemplateFile(p); }, 1052, 1052, 1052, 1052,
     1052, 1052},
    {"XML template", [](Tovarek& c, const std::string& p) { c.xmlTemplateFile(p); }, 1087, 1087, 1087, 1087,
     1087, 1087},
    {"INI profile", [](Tovarek& c, const std::string& p) { c.iniProfileFile(p); }, 1001, 1001, 1001, 1001,
     1001, 1001},
    {"XML profile", [](Tovarek& c, const std::string& p) { c.xmlProfileFile(p); }, 1087, 1087, 1087, 1087,
     1087, 1087},
    {"XIF profile", [](Tovarek& c, const std::string& p) { c.xifProfileFile(p); }, 53, 75, 62, 62, 62, 62},
};

TEST(BadInput, EveryLoaderAnswersWithItsError) {
    std::string binary(70000, '\0');
    for (std::size_t i = 0; i < binary.size(); ++i)
        binary[i] = static_cast<char>(static_cast<unsigned char>(i * 7919U >> 3U));
    std::erase(binary, '\n');
    std::erase(binary, '\r');
    const std::string cyclic =
        "<!DOCTYPE NVS [<!ELEMENT NVS ANY><!ENTITY a '&b;'><!ENTITY b '&a;'>]><NVS>&a;</NVS>";
    for (const Loader& loader : kLoaders) {
        Device device;
        device.Component().xmlTemplateNodeName("NVS");
        device.Component().xmlProfileNodeName("NVS");
        const auto answer = [&](const std::string& path) {
            loader.set(device.Component(), path);
            return device.Generate();
        };
        const auto answerTo = [&](const std::string& content) {
            return answer(device.Files().File("bad", content));
        };
        EXPECT_EQ(answer(device.Files().Path("missing")), loader.missing) << loader.name;
        EXPECT_EQ(answer(device.Files().Folder()), loader.folder) << loader.name;
        EXPECT_EQ(answerTo(""), loader.empty) << loader.name;
        EXPECT_EQ(answerTo(binary), loader.binary) << loader.name;
        EXPECT_EQ(answerTo(Nested(100000)), loader.nested) << loader.name;
        EXPECT_EQ(answerTo(cyclic), loader.cyclic) << loader.name;
        EXPECT_EQ(answerTo(std::string(8 * 1024 * 1024, '[')), loader.nested) << loader.name;
    }
}

// A profile that is cut in front of its last value is refused wherever it is cut: never is half of one taken
// for whole.
TEST(BadInput, ProfilesCutAnywhereAreRefused) {
    Device device;
    ASSERT_EQ(device.Generate(), 0);
    const std::string xif = device.Xif();
    const std::string ini = kProfileIni;
    const std::size_t lastKey = ini.find("rawData4=");
    const std::size_t lastToken = xif.find("\r\n*\r\n") - 1;
    for (std::size_t length = 0; length < lastKey; length += 11) {
        device.Component().iniProfileFile(device.Files().File("cut", ini.substr(0, length)));
        EXPECT_NE(device.Generate(), 0) << "INI cut after " << length;
    }
    for (std::size_t length = 0; length <= lastToken; length += 3) {
        device.Component().xifProfileFile(device.Files().File("cut", xif.substr(0, length)));
        EXPECT_NE(device.Generate(), 0) << "XIF cut after " << length;
    }
}

// A template says how many records it has, so one that is cut never grows: it is refused or a smaller device.
TEST(BadInput, TemplatesCutAnywhereNeverGrow) {
    Device device;
    ASSERT_EQ(device.Generate(), 0);
    const std::string xif = device.Xif();
    const std::string ini = kTemplateIni;
    int refused = 0;
    for (std::size_t length = 0; length < ini.size(); length += 11) {
        device.Component().iniTemplateFile(device.Files().File("cut", ini.substr(0, length)));
        if (device.Generate() != 0) {
            ++refused;
        } else {
            EXPECT_LE(device.Xif().size(), xif.size()) << "cut after " << length;
        }
    }
    EXPECT_GT(refused, 20);
}

TEST(BadInput, CountsBeyondReasonAnswerAtOnce) {
    const std::pair<const char*, int> rows[] = {
        {"[nvs]\nnumberOfStaticNvs=4096\nmaximumNumberOfNvs=4096\n", 1054},
        {"[nvs]\nnumberOfStaticNvs=2147483647\nmaximumNumberOfNvs=2147483647\n", 1053},
        {"[tags]\nnumberOfTags=2147483647\n", 1073},
        {"[cps]\nnumberOfCp=2147483647\nversion=1\n", 1080},
        {"[cps]\nnumberOfCp=4096\nversion=1\n", 1080},
        {"[nvs]\nnumberOfStaticNvs=4294967296\n", 0},
        {"[cps]\nnumberOfCp=1\nversion=1\n[cp1]\ndeclaration=0,0,0,1,1073741823\n", 7},
    };
    for (const auto& [text, number] : rows) {
        Device device;
        device.Component().iniTemplateFile(
            device.Files().File("t.ini", std::string("[general]\nprogramID=9000010A0B040100\n") + text));
        EXPECT_EQ(device.Generate(), number) << text;
    }
}

TEST(BadInput, OutputsThatCannotBeWrittenAreErrors) {
    Device device;
    std::vector<std::pair<std::string, int>> rows = {
        {device.Files().Path("no/where.xif"), 76}, {device.Files().Folder(), 75}, {"", 53}};
    if (HasFullDisk())
        rows.emplace_back(kFullDisk, 61);
    for (const auto& [path, number] : rows) {
        device.Component().outputXIFfile(path);
        EXPECT_EQ(device.Generate(), number) << path;
        EXPECT_TRUE(device.Component().WrittenFiles().empty());
    }
}

}  // namespace
}  // namespace tovarek::test
