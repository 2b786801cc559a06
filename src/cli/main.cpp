#if __has_include(<malloc.h>)
#include <malloc.h>
#endif

#include <string>
#include <vector>

#include "cli/RunProgram.h"

int main(int argc, char** argv) {
#ifdef M_MXFAST
    // An XML tree is a great many small blocks that are given back at once. Joined right away they cost less
    // than in glibc's lists of small blocks, which it tidies up one by one later. And the heap grows in steps
    // of a megabyte instead of 128 KiB.
    mallopt(M_MXFAST, 0);
    mallopt(M_TOP_PAD, 1 << 20);
#endif
    return tovarek::RunProgram([=] { return std::vector<std::string>(argv, argv + argc); });
}
