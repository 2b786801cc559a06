#include "cli/RunProgram.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <new>

#include "cli/CommandLine.h"
#include "cli/ProgramFile.h"

namespace tovarek {

namespace {

// Says it without memory: the way of all other errors needs some.
int ReportNoMemory() {
    std::fputs("tovarek: error 7 outOfMemory: Out of memory\n", stderr);
    return kFailed;
}

std::terminate_handler usualEnd = nullptr;

// An exception takes memory as well: when none is left for it, the program is ended without any. And nobody
// can catch what is thrown before the program begins.
[[noreturn]] void EndProgram() {
    try {
        if (const std::exception_ptr cause = std::current_exception())
            std::rethrow_exception(cause);
    } catch (const std::bad_alloc&) {
    } catch (...) {
        usualEnd();
    }
    std::_Exit(ReportNoMemory());
}

// Made before the objects of other libraries, whose making takes memory.
[[gnu::init_priority(101)]] const struct TerminateHandler {
    TerminateHandler() noexcept { usualEnd = std::set_terminate(EndProgram); }
} kTerminateHandler;

}  // namespace

int RunProgram(const std::function<std::vector<std::string>()>& arguments) noexcept {
    try {
        std::ios::sync_with_stdio(false);
        const int status =
            RunCommandLine(arguments(), {std::cout, std::cerr, OutIsTerminal(), {}, ErrorIsTerminal()});
        // Output that could not be written is a failure like any other.
        if (!std::cout.flush() && status == kDone) {
            std::cerr << "tovarek: the output could not be written\n";
            return kFailed;
        }
        return status;
    } catch (const std::bad_alloc&) {
        return ReportNoMemory();
    }
}

}  // namespace tovarek
