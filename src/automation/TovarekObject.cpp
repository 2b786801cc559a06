#include "automation/TovarekObject.h"

#include "automation/Module.h"

namespace tovarek {
namespace {

// The description of the interface; no registration is needed for it.
ComPtr<ITypeInfo> LoadTypeInfo() {
    ComPtr<ITypeInfo> information;
    const HRESULT status =
        LoadOwnTypeLibrary(REGKIND_NONE)->GetTypeInfoOfGuid(IID__Tovarek, information.Out());
    if (FAILED(status))
        throw StatusError(status, "The type library does not describe the interface");
    return information;
}

}  // namespace

HRESULT TovarekObject::QueryInterface(REFIID iid, void** object) {
    if (object == nullptr)
        return E_POINTER;
    *object = nullptr;
    if (iid == IID_IUnknown || iid == IID_IDispatch || iid == IID__Tovarek)
        *object = static_cast<_Tovarek*>(this);
    else if (iid == IID_ISupportErrorInfo)
        *object = static_cast<ISupportErrorInfo*>(this);
    else
        return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

HRESULT TovarekObject::InterfaceSupportsErrorInfo(REFIID iid) {
    return iid == IID__Tovarek || iid == IID_IDispatch ? S_OK : S_FALSE;
}

ITypeInfo* TovarekObject::TypeInfo() {
    if (!typeInfo_)
        typeInfo_ = LoadTypeInfo();
    return typeInfo_.Get();
}

HRESULT TovarekObject::GetTypeInfoCount(UINT* count) {
    if (count == nullptr)
        return E_POINTER;
    *count = 1;
    return S_OK;
}

HRESULT TovarekObject::GetTypeInfo(UINT index, LCID /*locale*/, ITypeInfo** information) {
    if (information == nullptr)
        return E_POINTER;
    *information = nullptr;
    if (index != 0)
        return DISP_E_BADINDEX;
    return Guarded([&] { *information = ComPtr<ITypeInfo>::Share(TypeInfo()).Detach(); });
}

HRESULT TovarekObject::GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID /*locale*/,
                                     DISPID* ids) {
    if (reserved != IID_NULL)
        return DISP_E_UNKNOWNINTERFACE;
    HRESULT answer = E_FAIL;
    const HRESULT status = Guarded([&] { answer = DispGetIDsOfNames(TypeInfo(), names, count, ids); });
    return FAILED(status) ? status : answer;
}

HRESULT TovarekObject::Invoke(DISPID id, REFIID reserved, LCID /*locale*/, WORD flags, DISPPARAMS* arguments,
                              VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) {
    if (reserved != IID_NULL)
        return DISP_E_UNKNOWNINTERFACE;
    HRESULT answer = E_FAIL;
    const HRESULT status = Guarded([&] {
        answer = DispInvoke(static_cast<_Tovarek*>(this), TypeInfo(), id, flags, arguments, result, exception,
                            wrongArgument);
    });
    return FAILED(status) ? status : answer;
}

}  // namespace tovarek
