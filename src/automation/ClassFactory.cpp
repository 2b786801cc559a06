#include "automation/ClassFactory.h"

#include "automation/TovarekObject.h"

namespace tovarek {

HRESULT ClassFactory::QueryInterface(REFIID iid, void** object) {
    if (object == nullptr)
        return E_POINTER;
    *object = nullptr;
    if (iid != IID_IUnknown && iid != IID_IClassFactory)
        return E_NOINTERFACE;
    *object = static_cast<IClassFactory*>(this);
    AddRef();
    return S_OK;
}

HRESULT ClassFactory::CreateInstance(IUnknown* outer, REFIID iid, void** object) {
    if (object == nullptr)
        return E_POINTER;
    *object = nullptr;
    if (outer != nullptr)
        return CLASS_E_NOAGGREGATION;
    ComPtr<TovarekObject> made;
    const HRESULT status = Guarded([&] { made = ComPtr<TovarekObject>(new TovarekObject); });
    return FAILED(status) ? status : made->QueryInterface(iid, object);
}

HRESULT ClassFactory::LockServer(BOOL lock) {
    if (lock != FALSE)
        LockModule();
    else
        UnlockModule();
    return S_OK;
}

}  // namespace tovarek
