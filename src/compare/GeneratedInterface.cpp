#include "compare/GeneratedInterface.h"

#include "component/XifWriter.h"
#include "support/CErrorHandler.h"

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

}  // namespace tovarek
