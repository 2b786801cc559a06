// The automation object: the component behind the dual interface _Tovarek. It converts and forwards; every
// member is made from the list of properties.
#pragma once

#include <QVTovarek_h.h>
#include <windows.h>

#include "automation/Counted.h"
#include "automation/Values.h"
#include "component/Tovarek.h"
#include "system/ComPtr.h"

namespace tovarek {

class TovarekObject final : public Counted<TovarekObject, _Tovarek, ISupportErrorInfo> {
  public:
    // ---- IUnknown ----
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;

    // ---- ISupportErrorInfo ----
    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) override;

    // ---- IDispatch, by way of the type library in the server's own file ----
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** information) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags,
                                     DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                                     UINT* wrongArgument) override;

    // ---- _Tovarek ----
    // Objects are assigned with or without "Set".
#define TOVAREK_PUTREF_string(name)
#define TOVAREK_PUTREF_boolean(name)
#define TOVAREK_PUTREF_integer(name)
#define TOVAREK_PUTREF_node(name)                                        \
    HRESULT STDMETHODCALLTYPE putref_##name(IDispatch* value) override { \
        return put_##name(value);                                        \
    }
#define TOVAREK_PROPERTY(number, name, kind, help)                                                   \
    HRESULT STDMETHODCALLTYPE get_##name(AutomationType<PropertyKind::kind>::Type* value) override { \
        return Get(value, [this]() -> decltype(auto) { return component_.name(); });                 \
    }                                                                                                \
    HRESULT STDMETHODCALLTYPE put_##name(AutomationType<PropertyKind::kind>::Type value) override {  \
        return Guarded([&] { component_.name(FromAutomation(value)); });                             \
    }                                                                                                \
    TOVAREK_PUTREF_##kind(name)
#define TOVAREK_METHOD(number, name, help)          \
    HRESULT STDMETHODCALLTYPE name() override {     \
        return Guarded([&] { component_.name(); }); \
    }
#include "component/PropertyList.inc"
#undef TOVAREK_PROPERTY
#undef TOVAREK_METHOD
#undef TOVAREK_PUTREF_string
#undef TOVAREK_PUTREF_boolean
#undef TOVAREK_PUTREF_integer
#undef TOVAREK_PUTREF_node

  private:
    friend Counted;
    ~TovarekObject() = default;

    template <class Value, class Getter>
    static HRESULT Get(Value* value, const Getter& getter) {
        if (value == nullptr)
            return E_POINTER;
        *value = {};
        return Guarded([&] { *value = ToAutomation(getter()); });
    }

    ITypeInfo* TypeInfo();

    ComPtr<ITypeInfo> typeInfo_;
    Tovarek component_;
};

}  // namespace tovarek
