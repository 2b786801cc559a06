#include "automation/Registration.h"

#include <QVTovarek_h.h>
#include <olectl.h>

#include <string>
#include <vector>

#include "automation/Module.h"
#include "automation/Status.h"
#include "system/Bstr.h"
#include "system/ComPtr.h"

namespace tovarek {
namespace {

constexpr const wchar_t* kProgId = L"QVTovarek.Tovarek";
constexpr const wchar_t* kVersionedProgId = L"QVTovarek.Tovarek.1";

#ifdef _WIN64
constexpr SYSKIND kSystem = SYS_WIN64;
constexpr REGSAM kOtherWidth = KEY_WOW64_32KEY;
#else
constexpr SYSKIND kSystem = SYS_WIN32;
constexpr REGSAM kOtherWidth = KEY_WOW64_64KEY;
#endif

struct RegistryValue {
    std::wstring key;
    const wchar_t* name;  // null: the key's own value
    std::wstring text;
};

std::wstring TextOf(REFGUID id) {
    wchar_t text[40];
    const int length = StringFromGUID2(id, text, static_cast<int>(std::size(text)));
    return {text, static_cast<std::size_t>(length) - 1};
}

std::wstring ClassKey() {
    return L"CLSID\\" + TextOf(CLSID_Tovarek);
}

// What the type library says of itself.
struct LibraryFacts {
    std::wstring description;
    WORD major = 0;
    WORD minor = 0;
};

LibraryFacts FactsOf(ITypeLib& library) {
    Bstr description;
    TLIBATTR* attributes = nullptr;
    if (FAILED(library.GetDocumentation(-1, nullptr, description.Out(), nullptr, nullptr)) ||
        FAILED(library.GetLibAttr(&attributes)))
        throw StatusError(SELFREG_E_TYPELIB, "The type library cannot be read");
    LibraryFacts facts{std::wstring(description.View()), attributes->wMajorVerNum, attributes->wMinorVerNum};
    library.ReleaseTLibAttr(attributes);
    return facts;
}

std::vector<RegistryValue> RegistryValues(const LibraryFacts& library) {
    const std::wstring id = TextOf(CLSID_Tovarek);
    const std::wstring key = ClassKey();
    const std::wstring progId = kProgId;
    const std::wstring versioned = kVersionedProgId;
    return {
        {progId, nullptr, library.description},
        {progId + L"\\CLSID", nullptr, id},
        {progId + L"\\CurVer", nullptr, versioned},
        {versioned, nullptr, library.description},
        {versioned + L"\\CLSID", nullptr, id},
        {key, nullptr, library.description},
        {key + L"\\InprocServer32", nullptr, ModulePath()},
        {key + L"\\InprocServer32", L"ThreadingModel", L"Apartment"},
        {key + L"\\ProgID", nullptr, versioned},
        {key + L"\\VersionIndependentProgID", nullptr, progId},
        {key + L"\\Programmable", nullptr, L""},
        {key + L"\\TypeLib", nullptr, TextOf(LIBID_QVTovarek)},
        {key + L"\\VERSION", nullptr, std::to_wstring(library.major) + L"." + std::to_wstring(library.minor)},
    };
}

void Require(LSTATUS status) {
    if (status != ERROR_SUCCESS)
        throw StatusError(SELFREG_E_CLASS, "The registry cannot be changed; administrators can");
}

void Write(const RegistryValue& value) {
    HKEY key = nullptr;
    Require(RegCreateKeyExW(HKEY_CLASSES_ROOT, value.key.c_str(), 0, nullptr, 0, KEY_SET_VALUE, nullptr, &key,
                            nullptr));
    const LSTATUS status =
        RegSetValueExW(key, value.name, 0, REG_SZ, reinterpret_cast<const BYTE*>(value.text.c_str()),
                       static_cast<DWORD>((value.text.size() + 1) * sizeof(wchar_t)));
    RegCloseKey(key);
    Require(status);
}

void RemoveTree(const wchar_t* key) {
    const LSTATUS status = RegDeleteTreeW(HKEY_CLASSES_ROOT, key);
    if (status != ERROR_FILE_NOT_FOUND)
        Require(status);
}

// The programmatic identifiers serve both widths of the system; the classes are kept apart.
bool IsOtherWidthRegistered() {
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_CLASSES_ROOT, ClassKey().c_str(), 0, KEY_READ | kOtherWidth, &key) !=
        ERROR_SUCCESS)
        return false;
    RegCloseKey(key);
    return true;
}

}  // namespace

void RegisterServer() {
    try {
        const ComPtr<ITypeLib> library = LoadOwnTypeLibrary(REGKIND_REGISTER);
        for (const RegistryValue& value : RegistryValues(FactsOf(*library.Get())))
            Write(value);
    } catch (...) {
        try {
            UnregisterServer();
        } catch (const StatusError&) {
            // The first failure is the one that is told.
        }
        throw;
    }
}

void UnregisterServer() {
    const LibraryFacts library = FactsOf(*LoadOwnTypeLibrary(REGKIND_NONE).Get());
    // Absent registrations answer as failures do, so failures of this call tell nothing.
    UnRegisterTypeLib(LIBID_QVTovarek, library.major, library.minor, LOCALE_NEUTRAL, kSystem);
    RemoveTree(ClassKey().c_str());
    if (IsOtherWidthRegistered())
        return;
    RemoveTree(kProgId);
    RemoveTree(kVersionedProgId);
}

}  // namespace tovarek
