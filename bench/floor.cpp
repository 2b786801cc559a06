// tovarek_floor OUTPUT BYTES FILE...: the least that a generator does. Reads every FILE, one that ends in
// ".xml" into a tree without validating it, and writes BYTES bytes to OUTPUT. Time and memory of the real
// program are measured against this one, so it does nothing else, and it is linked to the same libraries:
// what loading them costs is part of the floor.
#include <fcntl.h>
#include <libxml/parser.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr std::size_t kPiece = std::size_t{64} * 1024;

bool ReadWhole(const char* path, std::string& bytes) {
    const int file = open(path, O_RDONLY | O_CLOEXEC);
    struct stat status {};
    if (file < 0 || fstat(file, &status) != 0)
        return false;
    bytes.resize(static_cast<std::size_t>(status.st_size));
    std::size_t filled = 0;
    while (filled < bytes.size()) {
        const ssize_t count = read(file, bytes.data() + filled, bytes.size() - filled);
        if (count <= 0)
            break;
        filled += static_cast<std::size_t>(count);
    }
    close(file);
    return filled == bytes.size();
}

bool WriteBytes(const char* path, std::size_t total) {
    const int file = open(path, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (file < 0)
        return false;
    const std::string piece(std::min(total, kPiece), '0');
    while (total > 0) {
        const ssize_t count = write(file, piece.data(), std::min(total, piece.size()));
        if (count <= 0)
            break;
        total -= static_cast<std::size_t>(count);
    }
    return close(file) == 0 && total == 0;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 3) {
        std::fputs("usage: tovarek_floor OUTPUT BYTES FILE...\n", stderr);
        return 2;
    }
    std::size_t total = 0;
    const std::string_view count = argv[2];
    std::from_chars(count.data(), count.data() + count.size(), total);

    // A generator holds on to its inputs until it writes.
    std::vector<xmlDocPtr> trees;
    std::string bytes;
    for (int i = 3; i < argc; ++i) {
        if (!ReadWhole(argv[i], bytes)) {
            std::perror(argv[i]);
            return 1;
        }
        if (!std::string_view(argv[i]).ends_with(".xml"))
            continue;
        constexpr int kOptions = XML_PARSE_NOENT | XML_PARSE_NONET | XML_PARSE_COMPACT;
        xmlDocPtr tree =
            xmlReadMemory(bytes.data(), static_cast<int>(bytes.size()), argv[i], nullptr, kOptions);
        if (tree == nullptr)
            return 1;
        trees.push_back(tree);
    }
    const bool written = WriteBytes(argv[1], total);
    for (xmlDocPtr tree : trees)
        xmlFreeDoc(tree);
    return written ? 0 : 1;
}
