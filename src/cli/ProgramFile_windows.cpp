#include <io.h>

#include <cstdio>
#include <cstdlib>

#include "cli/ProgramFile.h"
#include "system/ModuleFile.h"
#include "system/Wide.h"

namespace tovarek {

std::string ProgramFile() {
    return FromWide(ModuleFile(nullptr));
}

std::string EnvironmentText(const char* name) {
    const wchar_t* const text = _wgetenv(ToWide(name).c_str());
    return text == nullptr ? "" : FromWide(text);
}

bool OutIsTerminal() {
    return _isatty(_fileno(stdout)) != 0;
}

bool ErrorIsTerminal() {
    return _isatty(_fileno(stderr)) != 0;
}

std::size_t TerminalWidth() {
    CONSOLE_SCREEN_BUFFER_INFO info{};
    if (GetConsoleScreenBufferInfo(GetStdHandle(STD_OUTPUT_HANDLE), &info) == 0)
        return 0;
    const int width = info.srWindow.Right - info.srWindow.Left + 1;
    return width > 0 ? static_cast<std::size_t>(width) : 0;
}

}  // namespace tovarek
