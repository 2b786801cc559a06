// The opening of a standard catalog and all lookups. An input is a catalog file; where it holds a NUL, what
// follows the first one is the standard type file, else that of the shipped catalog is used.
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "Fuzzing.h"
#include "control/QVxTypes.h"
#include "control/StandardCatalog.h"
#include "formats/language/LanguageFile.h"

namespace {

namespace fs = std::filesystem;
using namespace tovarek;

constexpr std::int32_t kMostTypes = 24;

// A folder with texts and formats, small ones since every input reads them anew; gone when the program ends.
class Folder {
  public:
    Folder() : path_(fs::temp_directory_path() / ("tovarek-fuzz-" + std::to_string(getpid()))) {
        fs::create_directories(path_);
        LanguageFile texts;
        texts.language = "enu";
        texts.strings = {"degrees C", "percent"};
        std::string bytes;
        fuzz::Require(WriteLanguageFile(texts, bytes).Ok(), "the texts can be written");
        Put("standard.enu", bytes);
        Put("standard.fmt",
            "SNVT_amp#milli: text(\"%f\",*1000+0(0:2));\r\nSNVT_alarm: text(\"%s "
            "%d\",location,object_id);\r\n"
            "SNVT_count: int;\r\nSNVT_date_cal: date(year,month,day);\r\n");
    }
    ~Folder() {
        std::error_code ignored;
        fs::remove_all(path_, ignored);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    std::string Put(const char* name, std::string_view bytes) const {
        std::string path = (path_ / name).string();
        WriteFile(path, bytes);
        return path;
    }

  private:
    fs::path path_;
};

const std::string& ShippedTypes() {
    static const std::string bytes = ReadFile(std::string(TOVAREK_CATALOG_FOLDER) + "/standard.typ");
    return bytes;
}

void AskEverything(const StandardCatalog& catalog) {
    const std::vector<CatalogEntry> nvs = catalog.NvTypes();
    const std::vector<CatalogEntry> cps = catalog.CpTypes();
    for (std::int32_t i = -1; i < kMostTypes; ++i) {
        fuzz::Require(catalog.HasNv(i) || catalog.Nv(i) == nullptr, "what is not there has no description");
        catalog.NvFields(i);
        catalog.CpFields(i);
        catalog.EnumerationSet(i);
        catalog.DefaultParameters(i);
    }
    for (std::size_t i = 0; i < std::min<std::size_t>(nvs.size(), kMostTypes); ++i) {
        fuzz::Require(catalog.NvSize(nvs[i].index) == nvs[i].size, "a type has one size");
        fuzz::Require(catalog.HasNv(catalog.NvIndex(nvs[i].name)), "a listed name is found");
        catalog.Formats(nvs[i].name);
    }
    for (std::size_t i = 0; i < std::min<std::size_t>(cps.size(), kMostTypes); ++i)
        fuzz::Require(catalog.CpIndex(cps[i].name) == cps[i].index, "a listed name is found");
}

}  // namespace

std::vector<std::string> tovarek::fuzz::Seeds() {
    const std::string catalog = "# Tovarek resource catalog 1\n.\n";
    return {catalog, "# Tovarek resource catalog 1\r\n# sets\r\nnowhere\r\n\r\n.\\\r\n", "\x01\x02 foreign",
            catalog + '\0' + ShippedTypes()};
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Folder folder;
    const std::string_view input = fuzz::View(data, size);
    const std::size_t end = std::min(input.find('\0'), size);
    const std::string path = folder.Put("ldrf.cat", input.substr(0, end));
    folder.Put("standard.typ",
               end == size ? ShippedTypes() : fuzz::WithRightChecksums(std::string(input.substr(end + 1))));

    std::unique_ptr<StandardCatalog> catalog;
    if (StandardCatalog::Open(path, catalog).Ok())
        AskEverything(*catalog);
    else
        fuzz::Require(catalog == nullptr, "a catalog that was refused is not there");

    QVxTypes control;
    control.CatalogDirectory(path.substr(0, path.rfind('/')));
    control.CatalogFileName("ldrf.cat");
    control.OpenCatalog();
    control.SelectedTypeIndex(static_cast<std::int32_t>(size % kMostTypes));
    TypeFormat format;
    for (std::int32_t i = 0; i <= std::min(control.SelectedTypeFormatCount(), kMostTypes); ++i)
        control.SelectedTypeFormat(i, format);
    return 0;
}
