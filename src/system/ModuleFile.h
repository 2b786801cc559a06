// Windows only: where a loaded program or library lies.
#pragma once

#include <windows.h>

#include <string>

namespace tovarek {

// The path of the file of `module`, null for the program itself; empty when the system does not tell.
inline std::wstring ModuleFile(HMODULE module) {
    // A path of the platform has at most 32,767 code units.
    std::wstring path(0x8000, L'\0');
    const DWORD length = GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
    path.resize(length < path.size() ? length : 0);
    return path;
}

}  // namespace tovarek
