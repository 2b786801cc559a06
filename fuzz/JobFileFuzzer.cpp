#include "Fuzzing.h"
#include "cli/Assignments.h"
#include "component/Tovarek.h"

std::vector<std::string> tovarek::fuzz::Seeds() {
    return {
        R"({"iniTemplateFile": "template.ini", "mustGenerateTypes": false, "localeID": 1033, "creator": "Acm\u00e9",
            "xmlTemplateNode": {"file": "t.xml", "element": "T"}, "outputXIFfile": "node.xif"})",
        R"({"majorVersion": 2147483648, "minorVersion": -1.5, "webPage": null})",
        R"({"email": "a", "email": "b"})",
        R"([[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[{}]]]]]]]]]]]]]]]]]]]]]]]]]]]]]]]]]]]])",
        "\xEF\xBB\xBF{\"phone\": \"\\ud800\"}",
        "{}",
    };
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tovarek;
    const fuzz::InputFile file(fuzz::View(data, size));
    fuzz::Accepts([&] {
        Tovarek component;
        try {
            const CErrorHandler errors;
            RaisingSink findings(errors);
            for (const SetProperty& set : AssignJob(component, file.Path(), findings))
                fuzz::Require(set.line >= 0 && set.job == file.Path(), "a property is set in the job");
        } catch (const WrongUse& fault) {
            fuzz::Require(*fault.what() != '\0', "a refusal says why");
        }
    });
    return 0;
}
