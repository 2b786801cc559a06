#if __has_include(<malloc.h>)
#include <malloc.h>
#endif

#include <iostream>
#include <string>
#include <vector>

#include "cli/CommandLine.h"

int main(int argc, char** argv) {
#ifdef M_MXFAST
    // An XML tree is a great many small blocks that are given back at once. Joined right away they cost less
    // than in glibc's lists of small blocks, which it tidies up one by one later. And the heap grows in steps
    // of a megabyte instead of 128 KiB.
    mallopt(M_MXFAST, 0);
    mallopt(M_TOP_PAD, 1 << 20);
#endif
    std::ios::sync_with_stdio(false);
    const int status =
        tovarek::RunCommandLine(std::vector<std::string>(argv, argv + argc), {std::cout, std::cerr});
    // Output that could not be written is a failure like any other.
    if (!std::cout.flush() && status == tovarek::kDone) {
        std::cerr << "tovarek: the output could not be written\n";
        return tovarek::kFailed;
    }
    return status;
}
