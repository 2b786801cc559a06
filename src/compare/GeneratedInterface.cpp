#include "compare/GeneratedInterface.h"

#include "component/FilesList.h"
#include "component/XifWriter.h"
#include "support/CErrorHandler.h"
#include "types/TypeFilesDriver.h"

namespace tovarek {
namespace {

class TextSink : public FileSink {
  public:
    void Append(std::string_view bytes) override { text_ += bytes; }
    void Close() override {}
    const std::string& Text() const { return text_; }

  private:
    std::string text_;
};

template <class File>
void ReadKept(const KeptOutput& kept, const std::string& path, Outcome (*reader)(std::string_view, File&),
              File& file) {
    if (path.empty())
        return;
    if (const Outcome outcome = reader(kept.Files().at(path), file); !outcome.Ok())
        CErrorHandler().RaiseQVxTypesEditError(outcome.code, {.file = path, .reason = outcome.reason});
}

}  // namespace

XifFile GeneratedInterface(CTemplate device, const ProfileValues& profile, bool addsNames, CCatalog& catalog,
                           const std::string& path) {
    const CErrorHandler errorHandler;
    device.errorHandler = &errorHandler;
    device.catalog = &catalog;
    device.VerifyData();
    if (addsNames)
        device.AddNameInCp();
    CProfile whole;
    static_cast<ProfileValues&>(whole) = profile;
    TextSink sink;
    WriteXifText(sink, "interface", whole, device, CResources(), *FixedClock(0));
    XifFile file;
    if (const Outcome outcome = ReadXifFile(sink.Text(), file); !outcome.Ok())
        errorHandler.RaiseQVxTypesEditError(
            outcome.code, {.record = "interface file as generate would write it",
                           .file = path,
                           .reason = outcome.reason + "; 'tovarek check' tells which text is at fault"});
    return file;
}

std::vector<OwnTypes> GeneratedTypes(CTemplate device, const GeneratedTypesInput& input, CCatalog& catalog) {
    const CErrorHandler errorHandler;
    device.errorHandler = &errorHandler;
    device.catalog = &catalog;
    device.VerifyData();
    CTypes types;
    types.prefixTypes = input.prefix;
    types.useReferenceUnits = input.takesUnits;
    // What a job says of files and makers changes no type.
    const TypeFilesSettings settings{.typeFilesDirectory = ".", .typeFilesBaseName = "own"};
    RaisingSink findings(errorHandler);
    std::vector<std::string> written;
    KeptOutput kept;
    GenerateTypeFilesAndList(
        types, {device, catalog, errorHandler, settings, input.formatFile, input.userTypeFilePath},
        {findings, written, &kept});
    std::vector<OwnTypes> sets;
    for (std::uint8_t scope = 1; scope <= kOwnScope; ++scope) {
        const ResourceSetFiles files = KeptResourceSet(kept, settings, scope);
        if (files.types.empty())
            continue;
        OwnTypes& own = sets.emplace_back();
        ReadKept(kept, files.types, ReadTypeFile, own.types);
        ReadKept(kept, files.language, ReadLanguageFile, own.texts);
    }
    return sets;
}

}  // namespace tovarek
