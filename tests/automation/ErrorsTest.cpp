#include "Host.h"
#include "Scratch.h"

namespace tovarek::test {
namespace {

// One failure of every family: an error of the component, of the control behind it, the runtime's own.
TEST(Failures, TellNumberSourceAndDescriptionOnBothWays) {
    const Apartment apartment;
    const Scratch scratch;
    const std::string goodTemplate = scratch.File("good.ini", "[general]\r\nprogramID=9000010a0b040100\r\n");
    const std::string badTemplate = scratch.File("bad.ini", "[general]\r\nprogramID=9000\r\n");
    const struct {
        const char* property;
        std::string value;
        const char* told;
    } rows[] = {
        {"iniTemplateFile", "", "80040032 QVTovarek: Template file is not defined."},
        {"iniTemplateFile", badTemplate, "80040034 QVTovarek: Bad program ID."},
        {"xmlTemplateFile", scratch.Path("none.xml"), "80040057 QVTovarek: Error loading template XML file."},
        {"xifProfileFile", scratch.Path("none.xif"), "800A0035 QVTovarek: File not found"},
        {"xifProfileFile", scratch.Path("no/where.xif"), "800A004C QVTovarek: Path not found"},
        {"xifProfileFile", scratch.Folder(), "800A004B QVTovarek: Path/File access error"},
        {"xifProfileFile", scratch.File("short.xif", "one line\r\n"),
         "800A003E QVTovarek: Input past end of file"},
        {"xifProfileFile", "", "80040033 QVTovarek: Profile file is not defined."},
    };
    for (const auto& row : rows) {
        const auto server = CreateServer();
        EXPECT_EQ(DispatchPut(server.Get(), "mustGenerateTypes", Variant(false)), "S_OK");
        EXPECT_EQ(DispatchPut(server.Get(), "iniTemplateFile", Variant(ToWide(goodTemplate))), "S_OK");
        EXPECT_EQ(DispatchPut(server.Get(), row.property, Variant(ToWide(row.value))), "S_OK");
        EXPECT_EQ(Telling(server->Generate()), row.told) << row.property << ' ' << row.value;
        EXPECT_EQ(Dispatch(server.Get(), "Generate", DISPATCH_METHOD).told, row.told)
            << row.property << ' ' << row.value;
    }
}

TEST(Failures, ACatalogThatDoesNotOpenIsToldAndStaysStored) {
    const Apartment apartment;
    const Scratch scratch;
    const auto server = CreateServer();
    const Bstr folder(ToWide(scratch.Path("nowhere")));
    EXPECT_EQ(Telling(server->put_catalogDir(folder.Get())),
              "80040082 QVTovarek: Error accessing SNVT master list catalog.");
    EXPECT_EQ(DispatchGet(server.Get(), "catalogDir").value.Text(), scratch.Path("nowhere"));
}

TEST(Failures, ErrorInformationIsAnnouncedAndNeverStale) {
    const Apartment apartment;
    const auto server = CreateServer();
    ComPtr<ISupportErrorInfo> support;
    ASSERT_EQ(server->QueryInterface(IID_ISupportErrorInfo, support.OutVoid()), S_OK);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID__Tovarek), S_OK);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID_IClassFactory), S_FALSE);
    EXPECT_TRUE(FAILED(server->Generate()));
    LONG locale = 0;
    EXPECT_EQ(server->get_localeID(&locale), S_OK);
    ComPtr<IErrorInfo> left;
    EXPECT_EQ(GetErrorInfo(0, left.Out()), S_FALSE) << "the success behind a failure leaves no explanation";
}

TEST(Failures, OutOfMemoryIsTheStatusOfThePlatform) {
    const Apartment apartment;
    const Scratch scratch;
    // A file of more than a gigabyte that takes no room.
    const std::string big = scratch.File("big.xif", "");
    HANDLE file = CreateFileW(ToWide(big).c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    LARGE_INTEGER size{};
    size.QuadPart = (LONGLONG{1} << 30U) + 1;
    ASSERT_TRUE(SetFilePointerEx(file, size, nullptr, FILE_BEGIN));
    ASSERT_TRUE(SetEndOfFile(file));
    CloseHandle(file);
    const auto server = CreateServer();
    const std::string goodTemplate = scratch.File("good.ini", "[general]\r\nprogramID=9000010a0b040100\r\n");
    EXPECT_EQ(DispatchPut(server.Get(), "mustGenerateTypes", Variant(false)), "S_OK");
    EXPECT_EQ(DispatchPut(server.Get(), "iniTemplateFile", Variant(ToWide(goodTemplate))), "S_OK");
    EXPECT_EQ(DispatchPut(server.Get(), "xmlProfileFile", Variant(ToWide(big))), "S_OK");
    EXPECT_EQ(Telling(server->Generate()), "80040057 QVTovarek: Error loading template XML file.");
    EXPECT_EQ(DispatchPut(server.Get(), "iniTemplateFile", Variant(ToWide(goodTemplate))), "S_OK");
    EXPECT_EQ(DispatchPut(server.Get(), "xifProfileFile", Variant(ToWide(big))), "S_OK");
    EXPECT_EQ(Telling(server->Generate()), "8007000E QVTovarek: Out of memory");
}

}  // namespace
}  // namespace tovarek::test
