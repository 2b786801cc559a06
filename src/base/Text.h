// Text: UTF-8 inside the system (its edges: system/CodePage.h). Lengths and positions count characters (code
// points), never bytes. A byte that is not part of valid UTF-8 counts as one character.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tovarek {

// Takes the character at `position` (a byte offset below text.size()) and moves `position` behind it. An
// invalid byte is consumed alone and answered as U+FFFD.
char32_t NextCharacter(std::string_view text, std::size_t& position);

// Appends `character` in UTF-8. Surrogates and values above U+10FFFF become U+FFFD.
void AppendUtf8(std::string& text, char32_t character);

// The number of characters.
std::size_t CharacterCount(std::string_view text);

// The longest prefix that has at most `characters` characters.
std::string_view FirstCharacters(std::string_view text, std::size_t characters);

// `text` as an error message shows it: at most 80 characters, "..." behind them when there are more.
std::string Excerpt(std::string_view text);
// The same between quotation marks.
std::string QuotedExcerpt(std::string_view text);

// Blanks and what ends lines.
inline constexpr std::string_view kWhiteSpace = " \t\r\n";

// `text` without the characters of `blanks` (ASCII) at both ends.
std::string_view Trim(std::string_view text, std::string_view blanks = kWhiteSpace);

// `text` without the blanks (U+0020 only) at both ends.
std::string_view TrimBlanks(std::string_view text);

// Takes the next line off `rest` and answers it without its line end: CR LF, LF or CR.
std::string_view TakeLine(std::string_view& rest);

// Upper case, position for position. A character outside ASCII never turns into one inside it.
std::string UpperCase(std::string_view text);

// ASCII letters alone; for names that are compared with names of ours.
constexpr char AsciiUpper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}
constexpr char AsciiLower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
std::string AsciiLowerCase(std::string_view text);
constexpr bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}
// 0 to 15, or -1 for what is no hexadecimal digit.
constexpr int HexValue(char c) {
    if (IsDigit(c))
        return c - '0';
    const char upper = AsciiUpper(c);
    return upper >= 'A' && upper <= 'F' ? upper - 'A' + 10 : -1;
}
constexpr bool IsHexDigit(char c) {
    return HexValue(c) >= 0;
}

// True when every byte is below 0x80: UTF-8 and code page agree and one byte is one character.
bool IsAscii(std::string_view text);

// True when all of it is valid UTF-8.
bool IsUtf8(std::string_view bytes);

// Whether a file begins like UTF-16: with its mark, or with an ASCII character in two bytes.
bool LooksLikeUtf16(std::string_view bytes);

// UTF-16 code units in the given byte order (no mark) to UTF-8. Unpaired surrogates become U+FFFD; a lone
// last byte is dropped.
std::string FromUtf16(std::string_view bytes, bool bigEndian);

// UTF-8 to UTF-16 code units in the given byte order, without a mark.
std::string ToUtf16(std::string_view text, bool bigEndian);

// Appends `value` in hexadecimal, in upper case, with zeros in front up to `digits` (1 to 16) digits.
void AppendHex(std::string& text, std::uint64_t value, unsigned digits);

// "00 1A FF", or with another character between the bytes.
std::string HexText(std::string_view bytes, char separator = ' ');

// "9F:FF:50" of "9FFF50"; nothing of what is no such digits.
std::string HexPairs(std::string_view digits);

// "001AFF" to three bytes; nothing when a character is no hexadecimal digit or their number is odd.
std::optional<std::string> FromHex(std::string_view digits);

// `text` without control characters: they appear as \r, \n, \t and \x1A.
std::string Printable(std::string_view text);

}  // namespace tovarek
