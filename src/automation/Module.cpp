#include "automation/Module.h"

#include <atomic>

#include "automation/Status.h"

namespace tovarek {
namespace {

HINSTANCE ownModule = nullptr;
std::atomic<long> users = 0;

}  // namespace

void SetModule(HINSTANCE module) {
    ownModule = module;
}

std::wstring ModulePath() {
    // A path of the platform has at most 32,767 code units.
    std::wstring path(0x8000, L'\0');
    const DWORD length = GetModuleFileNameW(ownModule, path.data(), static_cast<DWORD>(path.size()));
    if (length == 0 || length >= path.size())
        throw StatusError(E_FAIL, "The file of the server is unknown");
    path.resize(length);
    return path;
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
