#include <windows.h>

#include <iostream>
#include <string>
#include <vector>

#include "cli/RunProgram.h"
#include "system/Wide.h"

namespace {

// The texts that the program prints are UTF-8. A console shows them right while it is told so; what it showed
// before comes back with the end of the program.
class Utf8Console {
  public:
    Utf8Console() : before_(GetConsoleOutputCP()) { SetConsoleOutputCP(CP_UTF8); }
    ~Utf8Console() { SetConsoleOutputCP(before_); }
    Utf8Console(const Utf8Console&) = delete;
    Utf8Console& operator=(const Utf8Console&) = delete;

  private:
    UINT before_;
};

}  // namespace

int wmain(int argc, wchar_t** argv) {
    const Utf8Console console;
    return tovarek::RunProgram([=] {
        std::vector<std::string> arguments;
        arguments.reserve(static_cast<std::size_t>(argc));
        for (int i = 0; i < argc; ++i)
            arguments.push_back(tovarek::FromWide(argv[i]));
        return arguments;
    });
}
