// tovarek_measure RUNS COMMAND... [:: COMMAND...]...: runs the commands in turns, RUNS times each, and prints
// one line per command: least and median wall time in microseconds, peak memory in KiB. Taking turns spreads
// what else happens on the machine over all of them alike. This program is small so that its own memory,
// which the system counts for a moment as a child's, does not show.
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <string_view>
#include <vector>

namespace {

struct Command {
    std::vector<char*> words;
    std::vector<long> microseconds;
    long peakKiB = 0;
};

bool Run(Command& command) {
    using Clock = std::chrono::steady_clock;
    const Clock::time_point start = Clock::now();
    pid_t child = 0;
    if (posix_spawnp(&child, command.words[0], nullptr, nullptr, command.words.data(), environ) != 0)
        return false;
    int status = 0;
    rusage usage{};
    if (wait4(child, &status, 0, &usage) != child || status != 0)
        return false;
    const auto time = std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - start);
    command.microseconds.push_back(static_cast<long>(time.count()));
    command.peakKiB = std::max(command.peakKiB, usage.ru_maxrss);
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    int runs = 0;
    std::vector<Command> commands(1);
    if (argc > 2) {
        const std::string_view text = argv[1];
        std::from_chars(text.data(), text.data() + text.size(), runs);
    }
    for (int i = 2; i < argc; ++i) {
        if (std::string_view(argv[i]) == "::")
            commands.emplace_back();
        else
            commands.back().words.push_back(argv[i]);
    }
    for (Command& command : commands) {
        if (runs < 1 || command.words.empty()) {
            std::fputs("usage: tovarek_measure RUNS COMMAND... [:: COMMAND...]...\n", stderr);
            return 2;
        }
        command.words.push_back(nullptr);
    }
    for (int run = 0; run < runs; ++run) {
        for (Command& command : commands) {
            if (!Run(command)) {
                std::fprintf(stderr, "tovarek_measure: '%s' failed\n", command.words[0]);
                return 1;
            }
        }
    }
    for (Command& command : commands) {
        std::vector<long>& times = command.microseconds;
        std::sort(times.begin(), times.end());
        std::printf("%ld %ld %ld\n", times.front(), times[times.size() / 2], command.peakKiB);
    }
    return 0;
}
