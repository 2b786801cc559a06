#include "base/Text.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace tovarek {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

unsigned char Byte(std::string_view text, std::size_t i) {
    return static_cast<unsigned char>(text[i]);
}

// Simple upper-case pairs outside ASCII, as ranges of lower-case letters. `step` 1: the whole range is
// shifted by `delta`. `step` 2: lower-case letters are every second code point from `first`, the capital just
// before.
struct CaseRange {
    char32_t first;
    char32_t last;
    int delta;
    int step;
};
constexpr CaseRange kCaseRanges[] = {
    {0x00E0, 0x00F6, -32, 1}, {0x00F8, 0x00FE, -32, 1}, {0x00FF, 0x00FF, 121, 1}, {0x0101, 0x012F, -1, 2},
    {0x0133, 0x0137, -1, 2},  {0x013A, 0x0148, -1, 2},  {0x014B, 0x0177, -1, 2},  {0x017A, 0x017E, -1, 2},
    {0x03AC, 0x03AC, -38, 1}, {0x03AD, 0x03AF, -37, 1}, {0x03B1, 0x03C1, -32, 1}, {0x03C3, 0x03CB, -32, 1},
    {0x03CC, 0x03CC, -64, 1}, {0x03CD, 0x03CE, -63, 1}, {0x0430, 0x044F, -32, 1}, {0x0450, 0x045F, -80, 1},
};

char32_t UpperCharacter(char32_t c) {
    if (c < 0x80)
        return static_cast<char32_t>(AsciiUpper(static_cast<char>(c)));
    for (const CaseRange& range : kCaseRanges)
        if (c >= range.first && c <= range.last && (c - range.first) % static_cast<char32_t>(range.step) == 0)
            return static_cast<char32_t>(static_cast<std::int32_t>(c) + range.delta);
    return c;
}

bool IsSurrogate(char32_t c) {
    return c >= 0xD800 && c <= 0xDFFF;
}

// Length of the sequence that a lead byte announces, and the bits that it carries; 0 for no lead byte.
std::size_t SequenceLength(unsigned char lead, char32_t& bits) {
    if (lead >= 0xC2 && lead <= 0xDF) {
        bits = lead & 0x1FU;
        return 2;
    }
    if (lead >= 0xE0 && lead <= 0xEF) {
        bits = lead & 0x0FU;
        return 3;
    }
    if (lead >= 0xF0 && lead <= 0xF4) {
        bits = lead & 0x07U;
        return 4;
    }
    return 0;
}

// Characters in front of the first line end.
std::size_t LineLength(std::string_view text) {
    const auto isLineEnd = [](char c) { return c == '\n' || c == '\r'; };
    return static_cast<std::size_t>(std::find_if(text.begin(), text.end(), isLineEnd) - text.begin());
}

}  // namespace

char32_t NextCharacter(std::string_view text, std::size_t& position) {
    const unsigned char lead = Byte(text, position);
    const std::size_t start = position++;
    if (lead < 0x80)
        return lead;
    char32_t character = 0;
    const std::size_t length = SequenceLength(lead, character);
    if (length == 0 || start + length > text.size())
        return kReplacement;
    for (std::size_t i = 1; i < length; ++i) {
        const unsigned char next = Byte(text, start + i);
        if ((next & 0xC0U) != 0x80U)
            return kReplacement;
        character = (character << 6U) | (next & 0x3FU);
    }
    const bool overlong = (length == 3 && character < 0x800) || (length == 4 && character < 0x10000);
    if (overlong || IsSurrogate(character) || character > 0x10FFFF)
        return kReplacement;
    position = start + length;
    return character;
}

void AppendUtf8(std::string& text, char32_t character) {
    if (IsSurrogate(character) || character > 0x10FFFF)
        character = kReplacement;
    const auto put = [&text](char32_t byte) { text.push_back(static_cast<char>(byte)); };
    if (character < 0x80) {
        put(character);
    } else if (character < 0x800) {
        put(0xC0 | (character >> 6U));
        put(0x80 | (character & 0x3FU));
    } else if (character < 0x10000) {
        put(0xE0 | (character >> 12U));
        put(0x80 | ((character >> 6U) & 0x3FU));
        put(0x80 | (character & 0x3FU));
    } else {
        put(0xF0 | (character >> 18U));
        put(0x80 | ((character >> 12U) & 0x3FU));
        put(0x80 | ((character >> 6U) & 0x3FU));
        put(0x80 | (character & 0x3FU));
    }
}

bool IsAscii(std::string_view text) {
    // Eight bytes at a time: nearly every text is asked, and nearly every one is.
    constexpr std::uint64_t kHighBits = 0x8080808080808080U;
    std::uint64_t seen = 0;
    std::size_t position = 0;
    for (; position + sizeof seen <= text.size(); position += sizeof seen) {
        std::uint64_t piece = 0;
        std::memcpy(&piece, text.data() + position, sizeof piece);
        seen |= piece;
    }
    for (; position < text.size(); ++position)
        seen |= Byte(text, position);
    return (seen & kHighBits) == 0;
}

std::size_t CharacterCount(std::string_view text) {
    if (IsAscii(text))
        return text.size();
    std::size_t count = 0;
    for (std::size_t position = 0; position < text.size(); ++count)
        NextCharacter(text, position);
    return count;
}

std::string_view FirstCharacters(std::string_view text, std::size_t characters) {
    if (IsAscii(text.substr(0, characters)))
        return text.substr(0, characters);
    std::size_t position = 0;
    for (std::size_t count = 0; count < characters && position < text.size(); ++count)
        NextCharacter(text, position);
    return text.substr(0, position);
}

std::string Excerpt(std::string_view text) {
    constexpr std::size_t kLongestExcerpt = 80;
    const std::string_view shown = FirstCharacters(text, kLongestExcerpt);
    return std::string(shown) + (shown.size() < text.size() ? "..." : "");
}

std::string QuotedExcerpt(std::string_view text) {
    return '"' + Excerpt(text) + '"';
}

std::string_view Trim(std::string_view text, std::string_view blanks) {
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::string_view TrimBlanks(std::string_view text) {
    return Trim(text, " ");
}

std::string AsciiLowerCase(std::string_view text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(), AsciiLower);
    return lower;
}

std::string_view TakeLine(std::string_view& rest) {
    const std::size_t end = LineLength(rest);
    const std::string_view line = rest.substr(0, end);
    const std::size_t ending = rest.substr(end).starts_with("\r\n") ? 2 : 1;
    rest.remove_prefix(std::min(end + ending, rest.size()));
    return line;
}

std::string UpperCase(std::string_view text) {
    std::string result;
    if (IsAscii(text)) {
        result = text;
        std::transform(result.begin(), result.end(), result.begin(), AsciiUpper);
        return result;
    }
    result.reserve(text.size());
    for (std::size_t position = 0; position < text.size();) {
        const std::size_t start = position;
        const char32_t character = NextCharacter(text, position);
        const char32_t upper = UpperCharacter(character);
        if (upper == character)
            result.append(text, start, position - start);
        else
            AppendUtf8(result, upper);
    }
    return result;
}

bool IsUtf8(std::string_view bytes) {
    constexpr std::size_t kReplacementBytes = 3;
    for (std::size_t position = 0; position < bytes.size();) {
        const std::size_t start = position;
        // An invalid byte is answered like the character that replaces it, but alone.
        if (NextCharacter(bytes, position) == kReplacement && position - start < kReplacementBytes)
            return false;
    }
    return true;
}

bool LooksLikeUtf16(std::string_view bytes) {
    return bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF") ||
           bytes.substr(0, 2).find('\0') != std::string_view::npos;
}

std::string FromUtf16(std::string_view bytes, bool bigEndian) {
    const auto unit = [&](std::size_t i) -> char32_t {
        const char32_t first = Byte(bytes, i);
        const char32_t second = Byte(bytes, i + 1);
        return bigEndian ? (first << 8U) | second : (second << 8U) | first;
    };
    std::string text;
    text.reserve(bytes.size() / 2);
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        char32_t character = unit(i);
        if (character >= 0xD800 && character <= 0xDBFF && i + 3 < bytes.size()) {
            const char32_t low = unit(i + 2);
            if (low >= 0xDC00 && low <= 0xDFFF) {
                character = 0x10000 + ((character - 0xD800) << 10U) + (low - 0xDC00);
                i += 2;
            }
        }
        AppendUtf8(text, character);
    }
    return text;
}

std::string ToUtf16(std::string_view text, bool bigEndian) {
    std::string bytes;
    bytes.reserve(text.size() * 2);
    const auto put = [&](char32_t unit) {
        const char high = static_cast<char>(unit >> 8U);
        const char low = static_cast<char>(unit & 0xFFU);
        bytes.push_back(bigEndian ? high : low);
        bytes.push_back(bigEndian ? low : high);
    };
    for (std::size_t position = 0; position < text.size();) {
        const char32_t character = NextCharacter(text, position);
        if (character < 0x10000) {
            put(character);
        } else {
            put(0xD800 + ((character - 0x10000) >> 10U));
            put(0xDC00 + ((character - 0x10000) & 0x3FFU));
        }
    }
    return bytes;
}

void AppendHex(std::string& text, std::uint64_t value, unsigned digits) {
    constexpr unsigned kMostDigits = 16;
    while (digits < kMostDigits && (value >> (4 * digits)) != 0)
        ++digits;
    while (digits-- > 0)
        text += "0123456789ABCDEF"[(value >> (4 * digits)) & 0x0FU];
}

std::string HexText(std::string_view bytes, char separator) {
    std::string text;
    text.reserve(3 * bytes.size());
    for (const char c : bytes) {
        if (!text.empty())
            text += separator;
        AppendHex(text, static_cast<unsigned char>(c), 2);
    }
    return text;
}

std::string HexPairs(std::string_view digits) {
    return HexText(FromHex(digits).value_or(""), ':');
}

std::optional<std::string> FromHex(std::string_view digits) {
    if (digits.size() % 2 != 0)
        return std::nullopt;
    std::string bytes;
    bytes.reserve(digits.size() / 2);
    for (std::size_t i = 0; i < digits.size(); i += 2) {
        const int high = HexValue(digits[i]);
        const int low = HexValue(digits[i + 1]);
        if (high < 0 || low < 0)
            return std::nullopt;
        bytes.push_back(static_cast<char>(16 * high + low));
    }
    return bytes;
}

std::string Printable(std::string_view text) {
    std::string printable;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= 0x20 && byte != 0x7F) {
            printable += c;
        } else if (c == '\r') {
            printable += "\\r";
        } else if (c == '\n') {
            printable += "\\n";
        } else if (c == '\t') {
            printable += "\\t";
        } else {
            printable += "\\x";
            AppendHex(printable, byte, 2);
        }
    }
    return printable;
}

}  // namespace tovarek
