#include "Fuzzing.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

#include "formats/records/Crc16.h"
#include "formats/records/ResourceKinds.h"

namespace tovarek::fuzz {
namespace {

// Places of the resource files' header.
constexpr std::size_t kHeaderEnd = 0x314;
constexpr std::size_t kHeaderChecksum = 0x318;
constexpr std::size_t kDataStart = 0x31A;
constexpr std::size_t kDataLength = 0x31E;
constexpr std::size_t kSmallest = 0x32B;
constexpr std::size_t kStringCount = 0x32F;
constexpr std::size_t kStringTable = 0x335;

std::size_t Number(std::string_view bytes, std::size_t at, std::size_t size) {
    std::size_t value = 0;
    for (const char c : bytes.substr(at, size))
        value = (value << 8U) | static_cast<unsigned char>(c);
    return value;
}

void PutU16(std::string& bytes, std::size_t at, unsigned value) {
    bytes[at] = static_cast<char>((value >> 8U) & 0xFFU);
    bytes[at + 1] = static_cast<char>(value & 0xFFU);
}

// Each string of a language file carries a checksum of its own.
void FixStrings(std::string& bytes, std::size_t headerEnd) {
    const std::size_t count = Number(bytes, kStringCount, 3);
    for (std::size_t i = 0; i < count && kStringTable + 4 * (i + 1) <= headerEnd; ++i) {
        const std::size_t at = Number(bytes, kStringTable + 4 * i, 4);
        if (at + 8 > bytes.size())
            continue;
        const std::size_t length = Number(bytes, at + 3, 2);
        if (length < 3 || at + 5 + length > bytes.size())
            continue;
        PutU16(bytes, at + 5, Crc16(std::string_view(bytes).substr(at + 8, length - 3)));
    }
}

}  // namespace

InputFile::InputFile(std::string_view bytes) : descriptor_(memfd_create("input", MFD_CLOEXEC)) {
    Require(descriptor_ >= 0, "the system has files in memory");
    while (!bytes.empty()) {
        const ssize_t count = write(descriptor_, bytes.data(), bytes.size());
        Require(count > 0, "a file in memory can be written");
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    path_ = "/proc/self/fd/" + std::to_string(descriptor_);
}

InputFile::~InputFile() {
    close(descriptor_);
}

void Require(bool kept, const char* promise) {
    if (kept)
        return;
    std::fprintf(stderr, "broken promise: %s\n", promise);
    std::abort();
}

std::string WithRightChecksums(std::string bytes) {
    if (bytes.size() < kStringTable)
        return bytes;
    const std::size_t headerEnd = Number(bytes, kHeaderEnd, 4);
    const std::size_t dataStart = Number(bytes, kDataStart, 4);
    const std::size_t dataLength = Number(bytes, kDataLength, 4);
    if (headerEnd < kSmallest || headerEnd > bytes.size())
        return bytes;
    if (bytes.starts_with(RowOf(ResourceKind::language).magic))
        FixStrings(bytes, headerEnd);
    if (dataLength >= 2 && dataStart <= bytes.size() && dataLength <= bytes.size() - dataStart)
        PutU16(bytes, dataStart, Crc16(std::string_view(bytes).substr(dataStart + 2, dataLength - 2)));
    const std::string_view view = bytes;
    const std::uint16_t before = Crc16(view.substr(0, kHeaderChecksum));
    PutU16(bytes, kHeaderChecksum, Crc16(view.substr(kDataStart, headerEnd - kDataStart), before));
    return bytes;
}

}  // namespace tovarek::fuzz
