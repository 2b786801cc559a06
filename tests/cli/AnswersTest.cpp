// What the program answers, word by word: a session in a copy of the example device, one command behind the
// other.
#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>
#include <sstream>

#include "Platform.h"
#include "Program.h"
#include "Scratch.h"

namespace tovarek::test {
namespace {

// Paths have their own marks on each system, and the scratch folder another name in each run.
std::string Comparable(std::string text, const std::string& folder) {
    for (std::size_t at = text.find(folder); at != std::string::npos; at = text.find(folder, at))
        text.replace(at, folder.size(), ".");
    std::string comparable;
    for (const char c : text)
        if (c != '\\')
            comparable += c;
        else if (!comparable.ends_with('/'))
            comparable += '/';
    return comparable;
}

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
    return text.replace(text.find(from), from.size(), to);
}

// What a command prints, what it tells on standard error behind "! ", and a status other than 0 behind "= ".
std::string Transcript(const std::string& command) {
    std::istringstream words(command);
    const Answer run = Call({std::istream_iterator<std::string>(words), {}});
    std::string text = run.out;
    std::istringstream lines(run.error);
    for (std::string line; std::getline(lines, line);)
        text += "! " + line + '\n';
    return text + (run.status == 0 ? "" : "= " + std::to_string(run.status) + '\n');
}

// The file has each command behind "$ ", and then its answer.
TEST(Answers, AreThoseOfTheSession) {
    namespace fs = std::filesystem;
    std::istringstream session(ReadFile(TOVAREK_EXPECTED "/answers.txt"));
    const Scratch scratch;
    const fs::path before = fs::current_path();
    const fs::path folder = StandardPath(scratch.Path("fan-coil"));
    fs::copy(TOVAREK_EXAMPLE, folder);
    fs::current_path(folder);
    WriteFile("odd.ini",
              "[general]\nprogramID=9FFFFF5014030401\nselfDock=\xCE\xA9\n[nvs]\nnumberOfStaticNvs=none\n"
              "[nv1]\nname=a\n[tags]\nnumberOfTags=1\n[tag1]\nname=t & \"u\"\nbindable=2\n");
    WriteFile("odd.json", R"({"iniTemplateFile": "odd.ini", "iniProfileFile": "profile.ini", )"
                          R"("mustGenerateTypes": false, "outputXIFfile": "odd.xif"})");
    WriteFile("xif.json", R"({"iniTemplateFile": "template.ini", "iniProfileFile": "profile.ini", )"
                          R"("mustGenerateTypes": false, "outputXIFfile": "node.xif"})");
    WriteFile("fast.ini", Replaced(ReadFile("profile.ini"), "protocolClockRate=5", "protocolClockRate=9"));
    WriteFile("fast.json", R"({"iniTemplateFile": "template.ini", "iniProfileFile": "fast.ini", )"
                           R"("mustGenerateTypes": false, "outputXIFfile": "fast.xif"})");
    WriteFile("lame.ini", "[general\nprogramID=9FFFFF5014030401\n");
    WriteFile("jobs.txt", "xif.json\nodd.json\n");
    WriteFile("edited.ini", Replaced(Replaced(ReadFile("template.ini"), "nviRequest", "nviDemand"),
                                     "maxRate=8", "maxRate=9"));
    SetVariable("SOURCE_DATE_EPOCH", "1795254067");
    // How long the interface file is depends on the version of the program, so nothing in the session tells
    // it.
    Call({"generate", "--job", "xif.json"});
    WriteFile("worn.xif",
              Replaced(Replaced(ReadFile("node.xif"), "107 * 2", "108 * 2"), "1,1,5\\x80,1,2;", "worn;") +
                  "\r\nATTIC 1 2\r\n3 4\r\n");
    WriteFile("alone.fmt", "set a;\r\n");
    WriteFile("odd.xml", "<T><SNVT_300><TYPE>USER</TYPE><NAME>a</NAME></SNVT_300></T>");
    std::string seen;
    for (std::string line; std::getline(session, line);)
        if (line.starts_with("$ "))
            seen += line + '\n' + Transcript(line.substr(2));
    UnsetVariable("SOURCE_DATE_EPOCH");
    const std::string here = SystemSpelling(fs::current_path());
    fs::current_path(before);
    ExpectText(Comparable(seen, here), TOVAREK_EXPECTED "/answers.txt");
}

}  // namespace
}  // namespace tovarek::test
