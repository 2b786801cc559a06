// tovarek_inputs FOLDER FORM RECORDS: writes the inputs of one measurement into an existing folder.
//   ini, xml   template.ini or template.xml, profile.ini
//   types      template.xml, format.xml, types.xml, profile.ini
#include <charconv>
#include <cstdio>
#include <string>
#include <string_view>

#include "Inputs.h"
#include "system/Files.h"

namespace {

namespace bench = tovarek::bench;

bool Write(const std::string& folder, std::string_view form, int records) {
    const auto put = [&](const char* name, const std::string& text) {
        tovarek::WriteFile(folder + "/" + name, text);
    };
    put("profile.ini", bench::IniProfile());
    if (form == "ini") {
        put("template.ini", bench::IniTemplate(records));
    } else if (form == "xml") {
        put("template.xml", bench::XmlTemplate(records));
    } else if (form == "types") {
        put("template.xml", bench::XmlTemplate(bench::TemplateTypes(records), bench::TypeUse::user));
        put("format.xml", bench::FormatFile(records));
        put("types.xml", bench::UserTypeFile(records));
    } else {
        return false;
    }
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    int records = 0;
    if (argc == 4) {
        const std::string_view text = argv[3];
        std::from_chars(text.data(), text.data() + text.size(), records);
    }
    try {
        if (records > 0 && Write(argv[1], argv[2], records))
            return 0;
        std::fputs("usage: tovarek_inputs FOLDER ini|xml|types RECORDS\n", stderr);
    } catch (const tovarek::Error& error) {
        std::fprintf(stderr, "%s: %s\n", error.Context().file.c_str(), error.what());
    }
    return 2;
}
