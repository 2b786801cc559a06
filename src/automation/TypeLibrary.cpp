#include "automation/TypeLibrary.h"

#include "automation/Module.h"
#include "automation/Status.h"

namespace tovarek {

ComPtr<ITypeLib> LoadOwnTypeLibrary(REGKIND kind) {
    ComPtr<ITypeLib> library;
    const HRESULT status = LoadTypeLibEx(ModulePath().c_str(), kind, library.Out());
    if (FAILED(status))
        throw StatusError(status, kind == REGKIND_REGISTER ? "The type library cannot be registered"
                                                           : "The type library cannot be loaded");
    return library;
}

}  // namespace tovarek
