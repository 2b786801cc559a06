#include <windows.h>

#include "cli/ProgramFile.h"
#include "system/Wide.h"

namespace tovarek {

std::string ProgramFile() {
    // A path of the platform has at most 32,767 code units.
    std::wstring path(0x8000, L'\0');
    const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    return length < path.size() ? FromWide(std::wstring_view(path).substr(0, length)) : std::string();
}

}  // namespace tovarek
