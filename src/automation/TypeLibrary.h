// The type library that lies in the server's own file.
#pragma once

#include <windows.h>

#include "system/ComPtr.h"

namespace tovarek {

// Loads it; with `kind` REGKIND_REGISTER it is registered as well. Throws a StatusError.
ComPtr<ITypeLib> LoadOwnTypeLibrary(REGKIND kind);

}  // namespace tovarek
