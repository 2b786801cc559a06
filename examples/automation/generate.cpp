// Generates the XIF file and the resource files of the example device, a fan-coil unit controller.
//
//     generate.exe [OUTPUT FOLDER]
//
// The README beside this file tells how to build it.
#include <QVTovarek_h.h>
#include <windows.h>

#include <filesystem>
#include <iostream>
#include <memory>
#include <string>

namespace fs = std::filesystem;

// A text in the form in which automation takes it.
class Text {
  public:
    explicit Text(const std::wstring& text)
        : bstr_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {}
    ~Text() { SysFreeString(bstr_); }
    Text(const Text&) = delete;
    Text& operator=(const Text&) = delete;
    operator BSTR() const { return bstr_; }

  private:
    BSTR bstr_;
};

struct Failure {
    HRESULT status;
    std::wstring description;
};

// What the generator said of the failure.
std::wstring LastDescription() {
    IErrorInfo* information = nullptr;
    if (GetErrorInfo(0, &information) != S_OK)
        return L"no description";
    BSTR text = nullptr;
    information->GetDescription(&text);
    information->Release();
    const std::wstring description = text == nullptr ? L"" : text;
    SysFreeString(text);
    return description;
}

void Check(HRESULT status) {
    if (FAILED(status))
        throw Failure{status, LastDescription()};
}

// Where COM is in use. It outlives the objects that are made inside of it.
class Apartment {
  public:
    Apartment() { Check(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)); }
    ~Apartment() { CoUninitialize(); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
};

struct Release {
    void operator()(IUnknown* object) const { object->Release(); }
};
using Generator = std::unique_ptr<_Tovarek, Release>;

Generator NewGenerator() {
    void* object = nullptr;
    Check(CoCreateInstance(__uuidof(Tovarek), nullptr, CLSCTX_INPROC_SERVER, __uuidof(_Tovarek), &object));
    return Generator(static_cast<_Tovarek*>(object));
}

fs::path ProgramFolder() {
    std::wstring file(0x8000, L'\0');
    file.resize(GetModuleFileNameW(nullptr, file.data(), static_cast<DWORD>(file.size())));
    return fs::path(file).parent_path();
}

void Generate(const fs::path& output) {
    const fs::path examples = ProgramFolder().parent_path();
    const fs::path inputs = examples / "fan-coil";

    const Generator generator = NewGenerator();
    Check(generator->put_catalogDir(Text(examples.parent_path() / "catalog")));
    Check(generator->put_iniProfileFile(Text(inputs / "profile.ini")));
    Check(generator->put_iniTemplateFile(Text(inputs / "template.ini")));
    Check(generator->put_outputXIFfile(Text(output / "fan-coil.xif")));

    // The device's own types: where they are defined, and what becomes of them.
    Check(generator->put_typeFilesXMLFormat(Text(inputs / "format.xml")));
    Check(generator->put_userTypeFilePath(Text(inputs)));
    Check(generator->put_typeFilesDirectory(Text(output)));
    Check(generator->put_typeFilesBaseName(Text(L"fancoil")));
    Check(generator->put_creator(Text(L"Example Climate Works")));

    Check(generator->Generate());
}

int wmain(int count, wchar_t** arguments) {
    try {
        const Apartment apartment;
        Generate(count > 1 ? fs::absolute(arguments[1]) : fs::current_path());
    } catch (const Failure& failure) {
        std::wcerr << L"Error 0x" << std::hex << std::uppercase << static_cast<unsigned long>(failure.status)
                   << L": " << failure.description << L'\n';
        return 1;
    }
    std::wcout << L"Done: fan-coil.xif, and the resource files that files.lst names\n";
    return 0;
}
