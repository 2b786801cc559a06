// Registers and unregisters the server, given as the program's only argument of its own, and compares what
// the registry holds before and after. It leaves the server unregistered.
#include <QVTovarek_h.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <map>
#include <string>

#include "system/Wide.h"

namespace tovarek::test {
namespace {

std::wstring serverPath;

// Keys with their values as text, the name of a value behind "\\", from `key` down.
using Registry = std::map<std::string, std::string>;

void Read(HKEY key, const std::wstring& path, Registry& registry) {
    registry[FromWide(path)] = "key";
    wchar_t name[512];
    for (DWORD i = 0;; ++i) {
        DWORD nameLength = static_cast<DWORD>(std::size(name));
        wchar_t text[2048];
        DWORD size = sizeof text;
        DWORD type = 0;
        if (RegEnumValueW(key, i, name, &nameLength, nullptr, &type, reinterpret_cast<BYTE*>(text), &size) !=
            ERROR_SUCCESS)
            break;
        const bool isText = type == REG_SZ && size >= sizeof(wchar_t);
        registry[FromWide(path + L"\\\\" + name)] =
            isText ? FromWide(std::wstring_view(text, size / sizeof(wchar_t) - 1))
                   : "type " + std::to_string(type);
    }
    for (DWORD i = 0;; ++i) {
        DWORD nameLength = static_cast<DWORD>(std::size(name));
        if (RegEnumKeyExW(key, i, name, &nameLength, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS)
            break;
        HKEY below = nullptr;
        if (RegOpenKeyExW(key, name, 0, KEY_READ, &below) == ERROR_SUCCESS) {
            Read(below, path + L"\\" + name, registry);
            RegCloseKey(below);
        }
    }
}

Registry Classes() {
    Registry registry;
    Read(HKEY_CLASSES_ROOT, L"", registry);
    return registry;
}

class Registration : public testing::Test {
  protected:
    Registration() : module_(LoadLibraryW(serverPath.c_str())) {
        EXPECT_NE(module_, nullptr) << FromWide(serverPath);
    }
    ~Registration() override { FreeLibrary(module_); }

    HRESULT Call(const char* entry) const {
        const auto function =
            reinterpret_cast<HRESULT(WINAPI*)()>(reinterpret_cast<void*>(GetProcAddress(module_, entry)));
        return function == nullptr ? E_NOTIMPL : function();
    }

  private:
    HMODULE module_;
};

TEST_F(Registration, WritesTheClassAndLeavesNothingBehind) {
    ASSERT_EQ(Call("DllUnregisterServer"), S_OK) << "an interrupted run may have left it registered";
    const Registry before = Classes();
    ASSERT_FALSE(before.empty());
    ASSERT_FALSE(before.contains("\\QVTovarek.Tovarek")) << "something has registered the server already";

    ASSERT_EQ(Call("DllRegisterServer"), S_OK);
    Registry with = Classes();
    const std::string id = "{861AE0C2-EFCD-4665-BF29-8932A777F237}";
    const std::string library = "{143A4707-9A0B-49CA-8B39-FD5EA5797970}";
    const std::string classKey = "\\CLSID\\" + id;
    const std::pair<std::string, std::string> rows[] = {
        {"\\QVTovarek.Tovarek\\CLSID\\\\", id},
        {"\\QVTovarek.Tovarek\\CurVer\\\\", "QVTovarek.Tovarek.1"},
        {"\\QVTovarek.Tovarek.1\\CLSID\\\\", id},
        {classKey + "\\InprocServer32\\\\", FromWide(serverPath)},
        {classKey + "\\InprocServer32\\\\ThreadingModel", "Apartment"},
        {classKey + "\\ProgID\\\\", "QVTovarek.Tovarek.1"},
        {classKey + "\\VersionIndependentProgID\\\\", "QVTovarek.Tovarek"},
        {classKey + "\\TypeLib\\\\", library},
    };
    for (const auto& [key, text] : rows)
        EXPECT_EQ(with[key], text) << key;
    EXPECT_EQ(Call("DllRegisterServer"), S_OK) << "once more";
    EXPECT_EQ(Classes(), with);

    EXPECT_EQ(Call("DllUnregisterServer"), S_OK);
    EXPECT_EQ(Classes(), before);
    EXPECT_EQ(Call("DllUnregisterServer"), S_OK) << "taking away nothing is no failure";
}

// The programmatic identifiers belong to both widths of the system; they go with the last of them.
TEST_F(Registration, LeavesTheIdentifiersToTheOtherWidth) {
    if (sizeof(void*) == 4)
        GTEST_SKIP() << "seen from the 64-bit side";
    const wchar_t* const other = L"Wow6432Node\\CLSID\\{861AE0C2-EFCD-4665-BF29-8932A777F237}";
    ASSERT_EQ(Call("DllRegisterServer"), S_OK);
    HKEY key = nullptr;
    ASSERT_EQ(RegCreateKeyExW(HKEY_CLASSES_ROOT, other, 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr),
              ERROR_SUCCESS);
    RegCloseKey(key);
    EXPECT_EQ(Call("DllUnregisterServer"), S_OK);
    Registry left = Classes();
    EXPECT_TRUE(left.contains("\\QVTovarek.Tovarek\\CLSID"));
    EXPECT_FALSE(left.contains("\\CLSID\\{861AE0C2-EFCD-4665-BF29-8932A777F237}"));
    RegDeleteKeyW(HKEY_CLASSES_ROOT, other);
    EXPECT_EQ(Call("DllUnregisterServer"), S_OK);
    EXPECT_FALSE(Classes().contains("\\QVTovarek.Tovarek"));
}

TEST(VersionResource, NamesTheVersion) {
    DWORD ignored = 0;
    const DWORD size = GetFileVersionInfoSizeW(serverPath.c_str(), &ignored);
    ASSERT_GT(size, 0U);
    std::string block(size, '\0');
    ASSERT_TRUE(GetFileVersionInfoW(serverPath.c_str(), 0, size, block.data()));
    VS_FIXEDFILEINFO* facts = nullptr;
    UINT length = 0;
    ASSERT_TRUE(VerQueryValueW(block.data(), L"\\", reinterpret_cast<void**>(&facts), &length));
    EXPECT_EQ(facts->dwFileVersionMS, 0x00010000U);
    EXPECT_EQ(facts->dwFileVersionLS, 0x00060000U);
}

}  // namespace
}  // namespace tovarek::test

int wmain(int argc, wchar_t** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (argc != 2)
        return 2;
    tovarek::test::serverPath = argv[1];
    return RUN_ALL_TESTS();
}
