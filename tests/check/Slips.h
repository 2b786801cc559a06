// Mistakes that a person makes in the example device, each with all that `tovarek check` finds in it.
#pragma once

#include <cstddef>
#include <map>
#include <set>
#include <span>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Platform.h"
#include "Scratch.h"
#include "base/Text.h"
#include "cli/CommandLine.h"
#include "cli/Json.h"

namespace tovarek::test {

// Which inputs a job has: the INI forms without types, or the XML forms (with an XIF profile in `xif`), with
// types.
enum class Form { ini, xml, xif };

struct Slip {
    const char* file;      // of examples/fan-coil
    const char* right;     // stands there once; empty: the start of the file
    const char* wrong;     // what stands there instead
    const char* findings;  // "LINE:COLUMN NAME", separated by blanks and "; ", sorted; null: see findings/
    Form form = Form::ini;
    std::vector<std::string> more{};  // options
    bool isEverywhere = false;        // `right` may stand there several times
};

// The example with one file changed, checked.
class SlipCheck {
  public:
    // How the bytes of the changed file are stored.
    using Stored = std::string (*)(const std::string&);

    explicit SlipCheck(const Slip& slip, Stored form = nullptr) {
        std::set<std::string> names = {"template.ini", "profile.ini"};
        if (slip.form != Form::ini)
            names = {"job.json",    "template.xml", "profile.xml",
                     "profile.xif", "format.xml",   "user-types.xml"};
        if (FileExists(Example(slip.file)))
            names.insert(slip.file);
        for (const std::string& name : names) {
            std::string text = ReadFile(Example(name));
            if (name == slip.file)
                Change(slip, text);
            if (name == slip.file && form != nullptr)
                text = form(text);
            scratch_.File(name, text);
        }
        arguments_ = {"tovarek", "check", "--catalogDir", TOVAREK_CATALOG};
        if (slip.form == Form::ini)
            Add({"--iniTemplateFile", scratch_.Path("template.ini"), "--iniProfileFile",
                 scratch_.Path("profile.ini"), "--mustGenerateTypes", "false"});
        else
            Add({"--job", scratch_.Path("job.json"), "--typeFilesDirectory", scratch_.Folder()});
        if (slip.form == Form::xif)
            Add({"--xifProfileFile", scratch_.Path("profile.xif")});
        Add({"--outputXIFfile", scratch_.Path("node.xif")});
        Add(slip.more);
    }

    // An option that names a file of the example.
    void AddFile(const char* option, const char* file) { Add({option, scratch_.Path(file)}); }

    // All findings as "LINE:COLUMN NAME; ...", those of other files with the name of the file in front.
    std::string Findings(const std::string& file) { return TextOf(Run(), file); }
    static std::string TextOf(const Json& answer, const std::string& file) {
        std::string text;
        for (const Json& finding : answer["findings"]) {
            std::string path = finding.value("file", "");
            path.erase(0, path.find_last_of("/\\") + 1);
            text += text.empty() ? "" : "; ";
            text += path == file || path.empty() ? "" : path + ":";
            text += std::to_string(finding.value("line", 0)) + ":" +
                    std::to_string(finding.value("column", 0)) + " " + finding["name"].get<std::string>();
        }
        return text;
    }

    Json Run(const std::vector<std::string>& more = {}) {
        std::vector<std::string> arguments = arguments_;
        arguments.insert(arguments.end(), more.begin(), more.end());
        arguments.insert(arguments.end(), {"--format", "json"});
        std::ostringstream out;
        std::ostringstream error;
        RunCommandLine(arguments, {out, error});
        return Json::parse(out.str());
    }

    // The same, all that is told of each in a line, behind the number of the slip: place, message, notes,
    // mend.
    std::string WholeFindings(const Json& answer, std::ptrdiff_t number) const {
        std::string text;
        for (const Json& finding : answer["findings"]) {
            text += std::to_string(number) + ". " + Place(finding) + finding["message"].get<std::string>() +
                    " [" + finding["name"].get<std::string>() + "]";
            for (const Json& note : finding["notes"])
                text += " NOTE " + Place(note) + note["message"].get<std::string>();
            for (const Json& piece : finding.value("mend", Json::array()))
                text += " MEND " + Place(piece) + piece["text"].dump();
            text += '\n';
        }
        // Files are named by their folder, which is another in each run.
        const std::string folder = scratch_.Path("");
        for (std::size_t at = 0; (at = text.find(folder, at)) != std::string::npos;)
            text.erase(at, folder.size());
        return text;
    }

    std::string Path(const char* file) const { return scratch_.Path(file); }

  private:
    static std::string Example(const std::string& name) { return TOVAREK_EXAMPLE "/" + name; }
    // "FILE:LINE:COLUMN-END ", as far as it is told.
    static std::string Place(const Json& json) {
        std::string text = json.value("file", "");
        text.erase(0, text.find_last_of("/\\") + 1);
        for (const auto& [name, sign] : {std::pair("line", ":"), {"column", ":"}, {"endColumn", "-"}})
            if (json.contains(name))
                text += sign + json[name].dump();
        return text + " ";
    }
    void Add(const std::vector<std::string>& more) {
        arguments_.insert(arguments_.end(), more.begin(), more.end());
    }
    static void Change(const Slip& slip, std::string& text) {
        const std::string right = slip.right;
        if (slip.isEverywhere) {
            for (std::size_t at = 0; (at = text.find(right, at)) != std::string::npos;) {
                text.replace(at, right.size(), slip.wrong);
                at += std::string_view(slip.wrong).size();
            }
            return;
        }
        const std::size_t at = text.find(right);
        if (at == std::string::npos || (!right.empty() && text.find(right, at + 1) != std::string::npos))
            ADD_FAILURE() << slip.file << " does not hold this once: " << right;
        else
            text.replace(at, right.size(), slip.wrong);
    }

    Scratch scratch_;
    std::vector<std::string> arguments_;
};

// In the INI and the XML form of the template.
inline Slip Ini(const char* right, const char* wrong, const char* findings) {
    return {"template.ini", right, wrong, findings};
}
inline Slip Xml(const char* right, const char* wrong, const char* findings) {
    return {"template.xml", right, wrong, findings, Form::xml};
}

// `text`, UTF-8 with or without a mark, with the mends of these findings: what an editor would make of it.
inline std::string Mended(const std::string& text, const Json& findings) {
    const std::string mark = text.starts_with("\xEF\xBB\xBF") ? text.substr(0, 3) : "";
    std::map<std::pair<int, int>, std::pair<int, std::string>> pieces;
    for (const Json& finding : findings)
        for (const Json& piece : finding.value("mend", Json::array()))
            pieces[{piece["line"], piece["column"]}] = {piece["endColumn"], piece["text"]};
    std::string mended;
    int line = 1;
    int column = 1;
    int skippedTo = 0;
    for (std::size_t at = mark.size(); at < text.size();) {
        const auto piece = pieces.find({line, column});
        if (piece != pieces.end() && skippedTo != -1) {
            mended += piece->second.second;
            skippedTo = piece->second.first;
            pieces.erase(piece);
        }
        const std::size_t start = at;
        NextCharacter(text, at);
        if (column >= skippedTo)
            mended.append(text, start, at - start);
        if (text[start] == '\n') {
            ++line;
            column = 1;
            skippedTo = 0;
        } else if (text[start] != '\r') {
            ++column;
        }
    }
    return mark + mended;
}

// Where findings have a mend, --fix makes it and nothing else, and they are gone; no others come. Answers
// what --fix told, or null where nothing has one.
inline Json ExpectMended(const Slip& slip, SlipCheck& check, const Json& answer) {
    std::multiset<std::string> names;
    Json mended = Json::array();
    for (const Json& finding : answer["findings"]) {
        if (!finding.contains("mend"))
            names.insert(finding["name"]);
        else if (finding.value("file", "") == check.Path(slip.file))
            mended.push_back(finding);
    }
    if (mended.empty())
        return nullptr;
    const std::string expected = Mended(ReadFile(check.Path(slip.file)), mended);
    Json fixed = check.Run({"--fix"});
    EXPECT_EQ(ReadFile(check.Path(slip.file)), expected) << slip.wrong;
    EXPECT_EQ(fixed["mends"].size(), mended.size()) << slip.wrong << fixed["left"];
    for (const Json& finding : fixed["findings"]) {
        const auto known = names.find(finding["name"]);
        EXPECT_TRUE(known != names.end()) << slip.wrong << finding;
        if (known != names.end())
            names.erase(known);
    }
    return fixed;
}

// What is told of all slips of a test stands in findings/TEST.txt. Systems name files in words of their own.
inline void ExpectWhole(const std::string& whole) {
    const std::string test = testing::UnitTest::GetInstance()->current_test_info()->name();
    if (kIsWindows && whole.find(" job.json:") != std::string::npos)
        return;
    ExpectText(whole, std::string(TOVAREK_FINDINGS) + "/" + test + ".txt");
}

inline void ExpectFindings(std::span<const Slip> slips) {
    std::string whole;
    for (const Slip& slip : slips) {
        SlipCheck check(slip);
        const Json answer = check.Run();
        if (slip.findings != nullptr) {
            EXPECT_EQ(SlipCheck::TextOf(answer, slip.file), slip.findings) << slip.wrong;
        }
        ExpectMended(slip, check, answer);
        whole += check.WholeFindings(answer, &slip - slips.data() + 1);
    }
    ExpectWhole(whole);
}

}  // namespace tovarek::test
