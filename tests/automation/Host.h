// A host written in C++: creates the registered server, calls it through the vtable and through IDispatch,
// and reads what a failure tells.
#pragma once

#include <QVTovarek_h.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <vector>

#include "base/Error.h"
#include "system/Bstr.h"
#include "system/ComPtr.h"
#include "system/Variant.h"
#include "system/Wide.h"

namespace tovarek::test {

// COM for the thread at hand.
class Apartment {
  public:
    explicit Apartment(DWORD kind = COINIT_APARTMENTTHREADED) {
        EXPECT_TRUE(SUCCEEDED(CoInitializeEx(nullptr, kind)));
    }
    ~Apartment() { CoUninitialize(); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
};

// A value as hosts hand it over.
class Variant : public tovarek::Variant {
  public:
    Variant() = default;
    explicit Variant(const std::wstring& text) {
        Get().vt = VT_BSTR;
        Get().bstrVal = NewBstr(text);
    }
    explicit Variant(LONG number) {
        Get().vt = VT_I4;
        Get().lVal = number;
    }
    explicit Variant(bool flag) {
        Get().vt = VT_BOOL;
        Get().boolVal = flag ? VARIANT_TRUE : VARIANT_FALSE;
    }
    explicit Variant(IDispatch* object) {
        Get().vt = VT_DISPATCH;
        Get().pdispVal = ComPtr<IDispatch>::Share(object).Detach();
    }

    // The value as text; True and False for booleans, "object" or "nothing" for objects.
    std::string Text() const {
        const VARIANT& value = Get();
        switch (value.vt) {
            case VT_BSTR:
                return FromWide(ViewOf(value.bstrVal));
            case VT_I4:
                return std::to_string(value.lVal);
            case VT_BOOL:
                return value.boolVal == VARIANT_TRUE    ? "True"
                       : value.boolVal == VARIANT_FALSE ? "False"
                                                        : "neither";
            case VT_DISPATCH:
                return value.pdispVal == nullptr ? "nothing" : "object";
            default:
                return "type " + std::to_string(value.vt);
        }
    }
};

inline ComPtr<_Tovarek> CreateServer() {
    ComPtr<_Tovarek> server;
    EXPECT_EQ(CoCreateInstance(CLSID_Tovarek, nullptr, CLSCTX_INPROC_SERVER, IID__Tovarek, server.OutVoid()),
              S_OK);
    return server;
}

// What a failed call tells: "number source: description". The number is the status in hexadecimal.
inline std::string Telling(HRESULT status, std::wstring_view source, std::wstring_view description) {
    char number[16];
    std::snprintf(number, sizeof number, "%08lX", static_cast<unsigned long>(status));
    return number + (' ' + FromWide(source)) + ": " + FromWide(description);
}

// The same for a call through the vtable, from the thread's error information; "S_OK" for a call that
// succeeded and left none behind.
inline std::string Telling(HRESULT status) {
    ComPtr<IErrorInfo> information;
    Bstr source;
    Bstr description;
    if (GetErrorInfo(0, information.Out()) != S_OK)
        return status == S_OK ? "S_OK" : Telling(status, L"", L"");
    information->GetSource(source.Out());
    information->GetDescription(description.Out());
    return Telling(status, source.View(), description.View());
}

// One call through IDispatch, by name.
struct DispatchAnswer {
    std::string told;  // "S_OK", the telling of a raised error, or that of another status
    Variant value;
};

inline DispatchAnswer Dispatch(IDispatch* object, const std::string& name, WORD flags,
                               Variant* argument = nullptr) {
    DispatchAnswer answer;
    std::wstring wide = ToWide(name);
    LPOLESTR names[] = {wide.data()};
    DISPID id = 0;
    HRESULT status = object->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id);
    if (FAILED(status)) {
        answer.told = Telling(status, L"names", L"");
        return answer;
    }
    DISPID put = DISPID_PROPERTYPUT;
    const bool isPut = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    DISPPARAMS arguments{argument == nullptr ? nullptr : &argument->Get(), isPut ? &put : nullptr,
                         argument == nullptr ? 0U : 1U, isPut ? 1U : 0U};
    EXCEPINFO exception{};
    UINT wrong = 0;
    status = object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &arguments, &answer.value.Get(),
                            &exception, &wrong);
    if (status == DISP_E_EXCEPTION)
        answer.told =
            Telling(exception.scode, ViewOf(exception.bstrSource), ViewOf(exception.bstrDescription));
    else
        answer.told = status == S_OK ? "S_OK" : Telling(status, L"", L"");
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrHelpFile);
    return answer;
}

inline std::string DispatchPut(IDispatch* object, const std::string& name, Variant value,
                               WORD flags = DISPATCH_PROPERTYPUT) {
    return Dispatch(object, name, flags, &value).told;
}

inline DispatchAnswer DispatchGet(IDispatch* object, const std::string& name) {
    return Dispatch(object, name, DISPATCH_PROPERTYGET);
}

// A document of the platform's DOM.
inline ComPtr<IDispatch> LoadXml(const std::wstring& text) {
    CLSID id{};
    ComPtr<IDispatch> document;
    EXPECT_EQ(CLSIDFromProgID(L"MSXML2.DOMDocument", &id), S_OK);
    EXPECT_EQ(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, document.OutVoid()), S_OK);
    Variant xml(text);
    const DispatchAnswer loaded = Dispatch(document.Get(), "loadXML", DISPATCH_METHOD, &xml);
    EXPECT_EQ(loaded.value.Text(), "True");
    return document;
}

inline ComPtr<IDispatch> ObjectOf(const ComPtr<IDispatch>& object, const std::string& property) {
    DispatchAnswer answer = DispatchGet(object.Get(), property);
    EXPECT_EQ(answer.value.Text(), "object") << property;
    return ComPtr<IDispatch>::Share(answer.value.Get().pdispVal);
}

inline ULONG ReferencesOf(IUnknown* object) {
    object->AddRef();
    return object->Release();
}

// ---- the public interface, from its one list ----
enum class MemberKind { string, boolean, integer, node, method };

struct Member {
    int number;
    std::string name;
    MemberKind kind;
};

inline const std::vector<Member>& Members() {
    static const std::vector<Member> members = {
#define TOVAREK_PROPERTY(number, name, kind, help) {number, #name, MemberKind::kind},
#define TOVAREK_METHOD(number, name, help) {number, #name, MemberKind::method},
#include "component/PropertyList.inc"
#undef TOVAREK_PROPERTY
#undef TOVAREK_METHOD
    };
    return members;
}

}  // namespace tovarek::test
