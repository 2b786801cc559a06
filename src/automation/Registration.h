// What the registry holds of the server, under HKEY_CLASSES_ROOT: the class, its two programmatic
// identifiers, the type library and its interface.
#pragma once

#include <windows.h>

namespace tovarek {

// Both throw a StatusError when the registry refuses. A registration that fails half-way leaves nothing
// behind; taking away what is not there is no failure.
void RegisterServer();
void UnregisterServer();

}  // namespace tovarek
