// The entry points of the server, the ones that every in-process server has.
#include <QVTovarek_h.h>
#include <windows.h>

#include "automation/ClassFactory.h"
#include "automation/Module.h"
#include "automation/Registration.h"
#include "automation/Status.h"
#include "system/ComPtr.h"

extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID /*reserved*/) {
    if (reason == DLL_PROCESS_ATTACH)
        tovarek::SetModule(module);
    return TRUE;
}

// A factory for the class `id`, which must be that of the component.
STDAPI DllGetClassObject(REFCLSID id, REFIID iid, LPVOID* object) {
    if (object == nullptr)
        return E_POINTER;
    *object = nullptr;
    if (id != CLSID_Tovarek)
        return CLASS_E_CLASSNOTAVAILABLE;
    tovarek::ComPtr<tovarek::ClassFactory> factory;
    const HRESULT status = tovarek::Guarded(
        [&] { factory = tovarek::ComPtr<tovarek::ClassFactory>(new tovarek::ClassFactory); });
    return FAILED(status) ? status : factory->QueryInterface(iid, object);
}

// S_OK when no object, factory or lock is left.
STDAPI DllCanUnloadNow() {
    return tovarek::IsModuleInUse() ? S_FALSE : S_OK;
}

STDAPI DllRegisterServer() {
    return tovarek::Guarded(tovarek::RegisterServer);
}

STDAPI DllUnregisterServer() {
    return tovarek::Guarded(tovarek::UnregisterServer);
}
