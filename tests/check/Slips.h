// Mistakes that a person makes in the example device, each with all that `tovarek check` finds in it.
#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "Scratch.h"
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
    const char* findings;  // "LINE:COLUMN NAME", separated by blanks and "; ", sorted
    Form form = Form::ini;
    std::vector<std::string> more{};  // options
};

// The example with one file changed, checked.
class SlipCheck {
  public:
    explicit SlipCheck(const Slip& slip) {
        for (const char* name : {"template.ini", "template.xml", "profile.ini", "profile.xml", "profile.xif",
                                 "format.xml", "user-types.xml", "job.json"}) {
            std::string text = ReadFile(std::string(TOVAREK_EXAMPLE) + "/" + name);
            if (std::string(slip.file) == name)
                Change(slip, text);
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
    std::string Findings(const std::string& file) {
        const Json answer = Run();
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

    Json Run() {
        std::vector<std::string> arguments = arguments_;
        arguments.insert(arguments.end(), {"--format", "json"});
        std::ostringstream out;
        std::ostringstream error;
        RunCommandLine(arguments, {out, error});
        return Json::parse(out.str());
    }

  private:
    void Add(const std::vector<std::string>& more) {
        arguments_.insert(arguments_.end(), more.begin(), more.end());
    }
    static void Change(const Slip& slip, std::string& text) {
        const std::string right = slip.right;
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

template <std::size_t N>
void ExpectFindings(const Slip (&slips)[N]) {
    for (const Slip& slip : slips)
        EXPECT_EQ(SlipCheck(slip).Findings(slip.file), slip.findings) << slip.wrong;
}

}  // namespace tovarek::test
