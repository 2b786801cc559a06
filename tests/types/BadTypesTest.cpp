// Types and outputs that no user means to have.
#include <filesystem>
#include <memory>

#include "DriverDevice.h"
#include "formats/language/LanguageFile.h"
#include "formats/profile/ProfileFile.h"

namespace tovarek::test {
namespace {

// A full disk in the place of each output in turn.
TEST(BadOutput, AFullDiskIsAnErrorForEveryFile) {
    if (kIsWindows)
        GTEST_SKIP() << "needs a link to a disk that is full";
    const struct {
        const char* file;
        int error;
        std::size_t written;
    } rows[] = {{"node_6.ENU", 1119, 0},
                {"node_6.fpt", 1119, 1},
                {"node_6.typ", 1119, 2},
                {"node_6.fmt", 61, 3},
                {"files.lst", 61, 4}};
    for (const auto& row : rows) {
        DriverDevice device;
        device.AddNv(310);
        device.WriteFiles(kElements);
        ASSERT_TRUE(MakeDirectory(device.scratch.Path("out")));
        std::filesystem::create_symlink(kFullDisk, device.scratch.Path("out/" + std::string(row.file)));
        const auto error = Raised([&] { device.Generate(); });
        ASSERT_TRUE(error) << row.file;
        EXPECT_EQ(RaisedNumber([&] { device.Generate(); }), row.error) << row.file;
        EXPECT_EQ(device.written.size(), row.written) << row.file;
        const bool byControl = row.error == 1119;
        EXPECT_EQ(error->Context().reason.find("runtime error 61") != std::string::npos, byControl)
            << row.file;
    }
}

// A file whose writing fails at call `failAt`, counted over all files; what was written before stays in it.
class FailingFile : public FileSink {
  public:
    FailingFile(const std::string& path, int& calls, int failAt)
        : file_(path), calls_(calls), failAt_(failAt) {}
    void Append(std::string_view bytes) override {
        // Half of the piece still arrives, as on a disk that fills up.
        if (calls_++ == failAt_) {
            file_.Append(bytes.substr(0, bytes.size() / 2));
            RaiseRuntimeError(RuntimeError::diskFull, {.reason = "make room"});
        }
        file_.Append(bytes);
    }
    void Close() override {
        if (calls_++ == failAt_)
            RaiseRuntimeError(RuntimeError::deviceIoError, {.reason = "make room"});
        file_.Close();
    }

  private:
    OutputFile file_;
    int& calls_;
    int failAt_;
};

TEST(BadOutput, AWriteThatFailsAtAnyCallLeavesNoFileThatPasses) {
    constexpr int kMostCalls = 1000;
    int failAt = 0;
    for (bool failed = true; failed; ++failAt) {
        ASSERT_LT(failAt, kMostCalls);
        DriverDevice device;
        device.AddNv(320);
        device.AddCp(310, 1, "limit");
        device.WriteFiles(kElements);
        int calls = 0;
        device.catalog.types.SetFileOpener([&](const std::string& path) -> std::unique_ptr<FileSink> {
            return std::make_unique<FailingFile>(path, calls, failAt);
        });
        const auto error = Raised([&] { device.Generate(); });
        failed = error.has_value();
        if (!failed)
            continue;
        EXPECT_EQ(error->Number(), eQVXIFerr_GenericErrorEditFile) << failAt;
        EXPECT_NE(error->Context().reason.find("cannot be written: make room; runtime error"),
                  std::string::npos)
            << failAt << error->Context().reason;
        // Only what was finished is reported, and only that passes a reader.
        LanguageFile language;
        ProfileFile profile;
        TypeFile types;
        const bool outcomes[] = {
            ReadLanguageFile(device.MaybeOutput("node_6.ENU"), language).Ok(),
            ReadProfileFile(device.MaybeOutput("node_6.fpt"), profile).Ok(),
            ReadTypeFile(device.MaybeOutput("node_6.typ"), types).Ok(),
        };
        const bool wasCut = error->Context().reason.find("runtime error 61") != std::string::npos;
        for (std::size_t i = device.written.size(); wasCut && i < std::size(outcomes); ++i)
            EXPECT_FALSE(outcomes[i]) << "call " << failAt << ", file " << i;
        EXPECT_LT(device.written.size(), 3U);
    }
    EXPECT_GT(failAt, 5) << "several calls were made to fail";
}

TEST(BadTypes, WhatDoesNotFitTheFormatsIsRefusedWithItsError) {
    const std::string type = "<SNVT_300><TYPE>USER</TYPE><LENGTH>1</LENGTH>";
    std::string values;
    for (int i = 0; i < 70000; ++i)
        values += "<V" + std::to_string(i) + ">" + std::to_string(i % 128) + "</V" + std::to_string(i) + ">";
    const std::pair<std::string, int> rows[] = {
        {type + "<NAME>" + std::string(300, 'n') + "</NAME></SNVT_300>", 1116},
        {type + "<NAME>x</NAME><DESC>" + std::string(100000, 'd') + "</DESC></SNVT_300>", 1109},
        {"<SNVT_300><TYPE>ENUM</TYPE><NAME>e</NAME><ENUMS>" + values + "</ENUMS></SNVT_300>", 1111},
        {"<SNVT_300><TYPE>ENUM</TYPE><NAME>e</NAME><ENUMS><" + std::string(300, 'v') + ">1</" +
             std::string(300, 'v') + "></ENUMS></SNVT_300>",
         1111},
    };
    for (const auto& [elements, number] : rows) {
        DriverDevice device;
        device.AddNv(300);
        device.WriteFiles(elements);
        EXPECT_EQ(RaisedNumber([&] { device.Generate(); }), number);
        EXPECT_LT(device.written.size(), 3U);
    }
}

TEST(BadTypes, CreationFaultsReachTheUserAsTheirErrors) {
    const struct {
        const char* what;
        void (*change)(DriverDevice&);
        int error;
    } rows[] = {
        {"program ID", [](DriverDevice& d) { d.deviceTemplate.programID = "90"; }, 1100},
        {"creator text too long", [](DriverDevice& d) { d.settings.creator = std::string(300, 'c'); }, 1102},
        {"major version", [](DriverDevice& d) { d.settings.majorVersion = 65536; }, 1103},
        {"minor version", [](DriverDevice& d) { d.settings.minorVersion = -1; }, 1103},
        {"locale", [](DriverDevice& d) { d.settings.localeID = 1; }, 1104},
        {"control character in the creator", [](DriverDevice& d) { d.settings.email = "a\nb"; }, 1105},
        {"folder that cannot be made", [](DriverDevice& d) { d.settings.typeFilesDirectory += "/a/b"; },
         1101},
    };
    for (const auto& row : rows) {
        DriverDevice device;
        device.AddNv(310);
        device.WriteFiles(kElements);
        row.change(device);
        const auto error = Raised([&] { device.Generate(); });
        ASSERT_TRUE(error) << row.what;
        EXPECT_EQ(error->Number(), ErrorValue(row.error - 1000)) << row.what;
        EXPECT_EQ(error->Context().field, row.error == 1104 ? "localeID" : "") << row.what;
        EXPECT_TRUE(device.written.empty()) << row.what;
    }
}

// The format's limit: the driver writes 65,535 types and leaves the rest out, as required.
TEST(BadTypes, TypesBeyondTheLimitOfTheFormatAreLeftOut) {
    constexpr int kMost = 65535;
    DriverDevice device;
    for (int i = 0; i < kMost + 3; ++i)
        device.AddNv(300);
    device.WriteFiles("<SNVT_300><TYPE>USER</TYPE><LENGTH>1</LENGTH><NAME>x</NAME></SNVT_300>");
    EXPECT_EQ(RaisedNumber([&] { device.Generate(); }), 0);
    EXPECT_EQ(device.OutputTypes("node_6.typ").nvTypes.size(), static_cast<std::size_t>(kMost));
}

}  // namespace
}  // namespace tovarek::test
