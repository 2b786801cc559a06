// replay_<Name> CORPUS_FOLDER MUTATIONS: runs the target over its seeds, the inputs kept in the folder (which
// need not exist) and MUTATIONS changed copies of them, always the same ones.
// replay_<Name> --write-seeds FOLDER: writes the seeds as files.
// replay_<Name> --input FILE: runs the target over one file.
#include <unistd.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "Fuzzing.h"

// Provided by the address sanitizer where it is linked.
// NOLINTNEXTLINE(clang-diagnostic-reserved-identifier)
extern "C" __attribute__((weak)) void __sanitizer_set_death_callback(void (*callback)());

namespace {

namespace fs = std::filesystem;
namespace fuzz = tovarek::fuzz;

// No input of a few kilobytes may take longer.
constexpr unsigned kSecondsPerInput = 20;
constexpr const char* kFailedInput = "failed-input.bin";

// What is running now, for the handlers.
std::string currentInput;

void KeepFailedInput() {
    std::fprintf(stderr, "the input is kept as %s\n", kFailedInput);
    if (std::FILE* file = std::fopen(kFailedInput, "wb")) {
        std::fwrite(currentInput.data(), 1, currentInput.size(), file);
        std::fclose(file);
    }
}

void OnSignal(int signal) {
    std::fprintf(stderr, "%s\n",
                 signal == SIGALRM ? "an input takes too long" : "an input ended the program");
    KeepFailedInput();
    _exit(1);
}

void RunInput(std::string bytes) {
    currentInput = std::move(bytes);
    alarm(kSecondsPerInput);
    // A copy of exact size, so that the address sanitizer sees a read beyond the end.
    const std::vector<std::uint8_t> exact(currentInput.begin(), currentInput.end());
    LLVMFuzzerTestOneInput(exact.data(), exact.size());
    alarm(0);
}

// A small generator (splitmix64) that gives the same numbers on every platform.
class Random {
  public:
    std::uint64_t Next() {
        state_ += 0x9E3779B97F4A7C15U;
        std::uint64_t z = state_;
        z = (z ^ (z >> 30U)) * 0xBF58476D1CE4E5B9U;
        z = (z ^ (z >> 27U)) * 0x94D049BB133111EBU;
        return z ^ (z >> 31U);
    }
    std::size_t Below(std::size_t limit) { return limit == 0 ? 0 : static_cast<std::size_t>(Next() % limit); }

  private:
    std::uint64_t state_ = 20261121;
};

// Numbers at which counts, offsets and lengths go wrong, as texts and as bytes.
constexpr auto kNumbers = std::to_array<std::string_view>({"0", "-1", "1", "255", "256", "4096", "65535",
                                                           "65536", "2147483647", "-2147483648", "4294967295",
                                                           "1e400", "0x7fffffff", "999999999999999999999"});
constexpr auto kBytes =
    std::to_array<unsigned char>({0x00, 0x01, 0x7F, 0x80, 0xFE, 0xFF, '"', '<', '=', '\r'});

void ReplaceNumber(std::string& bytes, Random& random) {
    std::size_t at = random.Below(bytes.size());
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    while (at < bytes.size() && !isDigit(bytes[at]))
        ++at;
    std::size_t end = at;
    while (end < bytes.size() && isDigit(bytes[end]))
        ++end;
    bytes.replace(at, end - at, kNumbers[random.Below(kNumbers.size())]);
}

void MutateOnce(std::string& bytes, const std::string& other, Random& random) {
    const std::size_t at = random.Below(bytes.size());
    const std::size_t piece = random.Below(std::min<std::size_t>(bytes.size() - at, 64) + 1);
    switch (random.Below(8)) {
        case 0:
            if (!bytes.empty())
                bytes[at] =
                    static_cast<char>(static_cast<unsigned char>(bytes[at]) ^ (1U << random.Below(8)));
            break;
        case 1:
            if (!bytes.empty())
                bytes[at] = static_cast<char>(kBytes[random.Below(kBytes.size())]);
            break;
        case 2:
            bytes.erase(at, piece);
            break;
        case 3:
            bytes.insert(at, bytes.substr(at, piece));
            break;
        case 4:
            bytes.resize(at);
            break;
        case 5:
            bytes.insert(at, other.substr(random.Below(other.size()), 64));
            break;
        case 6:
            for (std::size_t i = at; i < std::min(at + 4, bytes.size()); ++i)
                bytes[i] = static_cast<char>(kBytes[random.Below(6)]);
            break;
        default:
            ReplaceNumber(bytes, random);
            break;
    }
}

int WriteSeeds(const fs::path& folder) {
    fs::create_directories(folder);
    int number = 0;
    for (const std::string& seed : fuzz::Seeds())
        tovarek::WriteFile((folder / ("seed-" + std::to_string(++number))).string(), seed);
    return 0;
}

// The kept inputs, by name: folders are listed in no order.
std::vector<std::string> CorpusOf(const fs::path& folder) {
    std::vector<fs::path> files;
    if (fs::is_directory(folder))
        for (const fs::directory_entry& entry : fs::directory_iterator(folder))
            files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    std::vector<std::string> corpus;
    corpus.reserve(files.size());
    for (const fs::path& file : files)
        corpus.push_back(tovarek::ReadFile(file.string()));
    return corpus;
}

int Replay(const fs::path& folder, int mutations) {
    std::vector<std::string> inputs = fuzz::Seeds();
    for (std::string& kept : CorpusOf(folder))
        inputs.push_back(std::move(kept));
    RunInput({});
    for (const std::string& input : inputs)
        RunInput(input);
    Random random;
    for (int i = 0; i < mutations; ++i) {
        std::string bytes = inputs[static_cast<std::size_t>(i) % inputs.size()];
        for (std::size_t steps = 1 + random.Below(4); steps > 0; --steps)
            MutateOnce(bytes, inputs[random.Below(inputs.size())], random);
        RunInput(std::move(bytes));
    }
    std::printf("%zu inputs and %d mutations\n", inputs.size(), mutations);
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    const std::string_view first = argc > 1 ? argv[1] : "";
    if (argc == 3 && first == "--write-seeds")
        return WriteSeeds(argv[2]);
    for (const int signal : {SIGALRM, SIGABRT})
        std::signal(signal, OnSignal);
    if (__sanitizer_set_death_callback != nullptr)
        __sanitizer_set_death_callback(KeepFailedInput);
    if (argc == 3 && first == "--input") {
        RunInput(tovarek::ReadFile(argv[2]));
        return 0;
    }
    int mutations = 0;
    if (argc == 3) {
        const std::string_view text = argv[2];
        std::from_chars(text.data(), text.data() + text.size(), mutations);
        return Replay(argv[1], mutations);
    }
    std::fputs("usage: replay CORPUS_FOLDER MUTATIONS | --write-seeds FOLDER | --input FILE\n", stderr);
    return 2;
}
