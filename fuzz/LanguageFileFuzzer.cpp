#include "Fuzzing.h"
#include "formats/language/LanguageFile.h"

std::vector<std::string> tovarek::fuzz::Seeds() {
    LanguageFile file;
    file.header.title = TitleText(ResourceKind::language, 1, 2);
    file.header.contact = ContactText("Acme", "555-0100", "info@acme.example");
    file.header.scope = 3;
    file.language = "enu";
    std::vector<std::string> seeds(2);
    WriteLanguageFile(file, seeds[0]);
    file.strings = {"Language strings", "", "Acme\r\nWorks", "degrees C \xC2\xB0"};
    WriteLanguageFile(file, seeds[1]);
    return seeds;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tovarek;
    LanguageFile file;
    ReadLanguageFile(fuzz::View(data, size), file);
    const std::string bytes = fuzz::WithRightChecksums(std::string(fuzz::View(data, size)));
    if (!ReadLanguageFile(bytes, file).Ok())
        return 0;

    // What can be read and written again has the same content.
    std::string written;
    if (!WriteLanguageFile(file, written).Ok())
        return 0;
    LanguageFile again;
    fuzz::Require(ReadLanguageFile(written, again).Ok(), "a written file can be read");
    fuzz::Require(again.strings == file.strings, "a written file has the same strings");
    return 0;
}
