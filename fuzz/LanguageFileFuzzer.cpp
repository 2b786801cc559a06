#include "Runs.h"
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
    const auto same = [](const LanguageFile& again, const LanguageFile& file) {
        fuzz::Require(again.strings == file.strings, "a written file has the same strings");
    };
    fuzz::ReadWriteRead(fuzz::View(data, size), ReadLanguageFile, WriteLanguageFile, same);
    return 0;
}
