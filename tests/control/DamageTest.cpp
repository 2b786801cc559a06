// Damaged files: every cut is noticed, every change of a byte that counts as well, and no change makes a
// reader crash or run away, also where the checksums were made right again.
#include <random>

#include "Fixtures.h"
#include "control/Crc16.h"

namespace tovarek {
namespace {

std::int32_t ReadAs(std::size_t kind, std::string_view bytes) {
    LanguageFile language;
    TypeFile types;
    ProfileFile profiles;
    switch (kind) {
        case 0:
            return ReadLanguageFile(bytes, language).code;
        case 1:
            return ReadTypeFile(bytes, types).code;
        default:
            return ReadProfileFile(bytes, profiles).code;
    }
}

std::uint32_t Number(const std::string& bytes, std::size_t position) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        value = value << 8U | static_cast<unsigned char>(bytes[position + i]);
    }
    return value;
}

void Put16(std::string& bytes, std::size_t position, std::uint16_t value) {
    bytes[position] = static_cast<char>(value >> 8U);
    bytes[position + 1] = static_cast<char>(value & 0xFFU);
}

// Makes both checksums right, so that damage reaches the checks behind them.
void Repair(std::string& bytes) {
    const std::size_t headerEnd = Number(bytes, 0x314);
    const std::size_t data = Number(bytes, 0x31A);
    const std::size_t length = Number(bytes, 0x31E);
    if (length > 2 && data < bytes.size() && length <= bytes.size() - data) {
        Put16(bytes, data, Crc16(std::string_view(bytes).substr(data + 2, length - 2)));
    }
    if (headerEnd >= 0x31A && headerEnd <= bytes.size()) {
        Put16(bytes, 0x318,
              Crc16(std::string_view(bytes).substr(0x31A, headerEnd - 0x31A),
                    Crc16(std::string_view(bytes).substr(0, 0x318))));
    }
}

// Our own files, then the samples, with their kind.
std::vector<std::pair<std::size_t, std::string>> AllFiles() {
    std::vector<std::pair<std::size_t, std::string>> files;
    const std::vector<std::string> own = ExampleBytes();
    for (std::size_t kind = 0; kind < own.size(); ++kind) {
        files.emplace_back(kind, own[kind]);
    }
    const char* extensions[] = {".enu", ".typ", ".fpt"};
    for (std::size_t kind = 0; kind < 3; ++kind) {
        for (const std::string& path : Samples(extensions[kind])) {
            files.emplace_back(kind, ReadFile(path));
        }
    }
    return files;
}

TEST(Damage, EveryCutIsNoticed) {
    const std::vector<std::string> own = ExampleBytes();
    for (std::size_t kind = 0; kind < own.size(); ++kind) {
        for (std::size_t length = 0; length < own[kind].size(); ++length) {
            ASSERT_NE(ReadAs(kind, std::string_view(own[kind]).substr(0, length)), 0)
                << kind << ' ' << length;
        }
    }
}

TEST(Damage, EveryBitThatAChecksumCoversIsNoticed) {
    const std::vector<std::string> own = ExampleBytes();
    for (std::size_t kind = 0; kind < own.size(); ++kind) {
        const std::size_t headerEnd = Number(own[kind], 0x314);
        const std::size_t data = kind == 2 ? own[kind].size() : Number(own[kind], 0x31A);
        for (std::size_t i = 0; i < own[kind].size() - 1; ++i) {
            if (i >= headerEnd && i < data) {
                continue;  // room for the tables, or the two bytes behind a file without records
            }
            std::string bytes = own[kind];
            bytes[i] = static_cast<char>(bytes[i] ^ (1 << (i % 8)));
            ASSERT_NE(ReadAs(kind, bytes), 0) << kind << ' ' << i;
        }
    }
}

TEST(Damage, CodesTellWhatIsWrong) {
    const std::vector<std::string> own = ExampleBytes();
    EXPECT_EQ(ReadAs(0, ""), 5);
    EXPECT_EQ(ReadAs(0, std::string(5000, 'x')), 5);
    EXPECT_EQ(ReadAs(0, own[1]), 12);
    std::string bytes = own[1];
    bytes[0x500] ^= 1;
    EXPECT_EQ(ReadAs(1, bytes), 10);
    bytes = own[1];
    bytes[0x312] = 5;
    Repair(bytes);
    EXPECT_EQ(ReadAs(1, bytes), 7);
    bytes = own[1];
    bytes[0x348] = 3;  // more NV types than the tables hold
    Repair(bytes);
    EXPECT_EQ(ReadAs(1, bytes), 6);
    bytes = own[1];
    bytes[0x48A] = 2;  // the first record gives another number
    Repair(bytes);
    EXPECT_EQ(ReadAs(1, bytes), 20);
    bytes = own[0];
    bytes[0x367 + 1] ^= 1;  // the checksum of a string
    Repair(bytes);
    EXPECT_EQ(ReadAs(0, bytes), 10);
}

// Records may not overlap without end: 65,535 table entries over one small data section.
TEST(Damage, OverlappingRecordsDoNotMultiplyTheWork) {
    LanguageFile file;
    file.header.title = TitleText(ResourceKind::language, 1, 0);
    file.language = "enu";
    for (int i = 0; i < 60000; ++i) {
        file.strings.emplace_back("");
    }
    std::string bytes;
    ASSERT_TRUE(WriteLanguageFile(file, bytes).Ok());
    const std::size_t data = Number(bytes, 0x31A);
    for (std::size_t i = 0; i < 60000; ++i) {
        Put16(bytes, data + 2 + 9 * i + 3, 0xFFFF);  // each string claims to be as long as can be
    }
    Repair(bytes);
    EXPECT_NE(ReadAs(0, bytes), 0);
}

TEST(Damage, RandomChangesNeverCrashAReader) {
    std::mt19937 random(20260101);
    const auto files = AllFiles();
    int accepted = 0;
    for (int round = 0; round < 6000; ++round) {
        const auto& [kind, original] = files[random() % files.size()];
        std::string bytes = original;
        const std::size_t data = std::min<std::size_t>(Number(bytes, 0x31A), bytes.size() - 1);
        for (auto change = random() % 6 + 1; change > 0; --change) {
            const std::size_t from = random() % 4 == 0 ? 0x300 : data;
            const std::size_t position = from + random() % (bytes.size() - from);
            const unsigned interesting[] = {0, 1, 0x7F, 0x80, 0xFF, static_cast<unsigned>(random())};
            bytes[position] = static_cast<char>(interesting[random() % 6]);
        }
        if (random() % 8 == 0) {
            bytes.resize(random() % bytes.size());
        }
        if (bytes.size() > 0x400) {
            Repair(bytes);
        }
        accepted += ReadAs(kind, bytes) == 0 ? 1 : 0;
        FormatFile formats;
        ReadFormatFile(std::string_view(bytes).substr(bytes.size() / 2), formats);
    }
    EXPECT_GT(accepted, 100) << "the changes must get past the checksums";
}

TEST(Damage, RandomTextNeverCrashesTheFormatReader) {
    std::mt19937 random(7);
    const std::string pieces[] = {"T",    ": ",  "text(", "\"",     "%d",  "%",   ",",     ")",
                                  ";",    "!",   "\n",    "*",      "1.8", "+",   "(0:1)", "#",
                                  "set ", "int", "\\",    "a.b[1]", "!=",  "\x1A"};
    for (int round = 0; round < 20000; ++round) {
        std::string text;
        for (auto i = random() % 30; i > 0; --i) {
            text += pieces[random() % std::size(pieces)];
        }
        FormatFile file;
        if (ReadFormatFile(text, file).Ok()) {
            WriteFormatFile(file);
        }
    }
}

}  // namespace
}  // namespace tovarek
