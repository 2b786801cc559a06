// The loaded server: where it lies, the type library in it, and whether anybody still uses it.
#pragma once

#include <windows.h>

#include <string>

#include "system/ComPtr.h"

namespace tovarek {

// Tells the module its handle; once, when it is loaded.
void SetModule(HINSTANCE module);

// The path of the server's file. Throws a StatusError when the system does not tell.
std::wstring ModulePath();

// Loads the type library that lies in this file; with `kind` REGKIND_REGISTER it is registered as well.
// Throws a StatusError.
ComPtr<ITypeLib> LoadOwnTypeLibrary(REGKIND kind);

// Counts what keeps the server in memory: objects, class factories, locks of hosts.
void LockModule();
void UnlockModule();
bool IsModuleInUse();

// One such count, for the life of an object.
class ModuleLock {
  public:
    ModuleLock() { LockModule(); }
    ~ModuleLock() { UnlockModule(); }
    ModuleLock(const ModuleLock&) = delete;
    ModuleLock& operator=(const ModuleLock&) = delete;
};

}  // namespace tovarek
