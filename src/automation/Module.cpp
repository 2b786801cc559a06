#include "automation/Module.h"

#include <atomic>

#include "automation/Status.h"
#include "system/ModuleFile.h"

namespace tovarek {
namespace {

HINSTANCE ownModule = nullptr;
std::atomic<long> users = 0;

}  // namespace

void SetModule(HINSTANCE module) {
    ownModule = module;
}

std::wstring ModulePath() {
    std::wstring path = ModuleFile(ownModule);
    if (path.empty())
        throw StatusError(E_FAIL, "The file of the server is unknown");
    return path;
}

ComPtr<ITypeLib> LoadOwnTypeLibrary(REGKIND kind) {
    ComPtr<ITypeLib> library;
    const HRESULT status = LoadTypeLibEx(ModulePath().c_str(), kind, library.Out());
    if (FAILED(status))
        throw StatusError(status, kind == REGKIND_REGISTER ? "The type library cannot be registered"
                                                           : "The type library cannot be loaded");
    return library;
}

void LockModule() {
    ++users;
}

void UnlockModule() {
    --users;
}

bool IsModuleInUse() {
    return users != 0;
}

}  // namespace tovarek
