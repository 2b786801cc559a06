#include "xml/XmlText.h"

#include <algorithm>
#include <utility>

#include "base/Text.h"
#include "system/DoubleByte.h"
#include "xml/Encodings.h"

namespace tovarek {
namespace {

// Lead bytes between `firstLead` and 0xFE begin a pair, but for the range of single bytes.
struct DoubleByteEncoding {
    std::string_view name;
    std::string_view aliases;
    int codePage;
    unsigned char firstSingle;
    unsigned char lastSingle;
};
constexpr DoubleByteEncoding kDoubleByteEncodings[] = {
    {"Shift_JIS", "SHIFT-JIS SJIS X-SJIS MS_KANJI CSSHIFTJIS WINDOWS-31J MS932 CP932", 932, 0xA1, 0xDF},
    {"GB2312", "GB_2312-80 CSGB2312 GBK MS936 CP936", 936, 1, 0},
    {"Big5", "BIG-5 CSBIG5 MS950 CP950", 950, 1, 0},
    {"EUC-KR", "EUCKR CSEUCKR KS_C_5601-1987 MS949 CP949", 949, 1, 0},
};

constexpr std::string_view kMark = "\xEF\xBB\xBF";
constexpr std::string_view kBlanks = " \t\r\n";

bool IsUtf8(std::string_view name) {
    return IsEncodingName(name, "UTF-8", "UTF8");
}
bool IsUtf16(std::string_view name) {
    return IsEncodingName(name, "UTF-16", "UTF16 UTF-16LE UTF-16BE ISO-10646-UCS-2 UCS-2");
}
const DoubleByteEncoding* FindDoubleByte(std::string_view name) {
    for (const DoubleByteEncoding& encoding : kDoubleByteEncodings)
        if (IsEncodingName(name, encoding.name, encoding.aliases))
            return &encoding;
    return nullptr;
}

[[noreturn]] void RefuseEncoding(std::string_view name) {
    std::string reason = "the encoding '" + Excerpt(name) + "' is not known; known are UTF-8, UTF-16, ";
    reason += EncodingNames();
    for (const DoubleByteEncoding& encoding : kDoubleByteEncodings)
        reason.append(", ").append(encoding.name);
    throw XmlFault{std::move(reason), 1};
}

unsigned char ByteAt(std::string_view bytes, std::size_t i) {
    return i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0;
}

// The text that `next` reads out of `bytes`, character by character; it moves its position and answers 0 for
// what is no character.
template <class Next>
std::string Decode(std::string_view bytes, std::string_view encoding, Next&& next) {
    std::string text;
    text.reserve(bytes.size());
    int line = 1;
    bool isAfterReturn = false;
    for (std::size_t position = 0; position < bytes.size();) {
        const std::size_t start = position;
        char32_t character = next(position);
        if (character == 0) {
            std::string reason = "the bytes";
            for (std::size_t i = start; i < position; ++i)
                AppendHex(reason += " 0x", ByteAt(bytes, i), 2);
            throw XmlFault{reason + " do not make a character in " + std::string(encoding), line};
        }
        if (character == '\n' && std::exchange(isAfterReturn, false))
            continue;
        isAfterReturn = character == '\r';
        if (isAfterReturn)
            character = '\n';
        if (character == '\n')
            ++line;
        AppendUtf8(text, character);
    }
    return text;
}

std::string DecodeUtf8(std::string_view bytes) {
    return Decode(bytes, "UTF-8", [&](std::size_t& position) {
        const std::size_t start = position;
        const char32_t character = NextCharacter(bytes, position);
        constexpr char32_t kReplacement = 0xFFFD;  // of its own, or for a byte that does not decode
        return character == kReplacement && position == start + 1 ? 0 : character;
    });
}

std::string DecodeUtf16(std::string_view bytes, bool bigEndian) {
    const auto unit = [&](std::size_t i) {
        const char32_t first = ByteAt(bytes, i);
        const char32_t second = ByteAt(bytes, i + 1);
        return bigEndian ? (first << 8U) | second : (second << 8U) | first;
    };
    return Decode(bytes, "UTF-16", [&](std::size_t& position) -> char32_t {
        const std::size_t start = position;
        position = std::min(position + 2, bytes.size());
        const char32_t first = unit(start);
        if (position != start + 2)
            return 0;
        if (first < 0xD800 || first > 0xDFFF)
            return first;
        const char32_t second = unit(position);
        if (first > 0xDBFF || position + 2 > bytes.size() || second < 0xDC00 || second > 0xDFFF)
            return 0;
        position += 2;
        return 0x10000 + ((first & 0x3FFU) << 10U) + (second & 0x3FFU);
    });
}

std::string DecodeDoubleByte(std::string_view bytes, const DoubleByteEncoding& encoding) {
    DoubleByteDecoder decoder(encoding.codePage);
    if (!decoder.IsReady())
        throw XmlFault{"this system has no converter for the encoding " + std::string(encoding.name), 1};
    return Decode(bytes, encoding.name, [&](std::size_t& position) -> char32_t {
        const unsigned char lead = ByteAt(bytes, position);
        if (lead < 0x80) {
            ++position;
            return lead;
        }
        const bool isSingle = lead >= encoding.firstSingle && lead <= encoding.lastSingle;
        const std::size_t length = isSingle ? 1 : 2;
        const std::string_view piece = bytes.substr(position, length);
        position += piece.size();
        return lead == 0x80 || lead == 0xFF || piece.size() != length ? 0 : decoder.Decode(piece);
    });
}

// Takes `mark` off the front of `text`.
bool Take(std::string_view& text, std::string_view mark) {
    if (!text.starts_with(mark))
        return false;
    text.remove_prefix(mark.size());
    return true;
}
void SkipBlanks(std::string_view& text) {
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
}

// What stands between "<?xml" and "?>"; empty when `text` begins otherwise.
std::string_view DeclarationOf(std::string_view text) {
    if (!Take(text, "<?xml") || text.empty() || kBlanks.find(text.front()) == std::string_view::npos)
        return {};
    const std::size_t end = text.find("?>");
    return end == std::string_view::npos ? std::string_view() : text.substr(0, end);
}

// The encoding that a declaration names; empty when it names none. What is no declaration the parser refuses.
std::string_view DeclaredEncoding(std::string_view text) {
    std::string_view rest = DeclarationOf(text);
    while (true) {
        SkipBlanks(rest);
        const bool isEncoding = rest.starts_with("encoding");
        rest.remove_prefix(std::min(rest.find_first_of(" \t\r\n="), rest.size()));
        SkipBlanks(rest);
        if (!Take(rest, "="))
            return {};
        SkipBlanks(rest);
        const std::size_t end = rest.empty() ? std::string_view::npos : rest.find(rest.front(), 1);
        if (end == std::string_view::npos)
            return {};
        if (isEncoding)
            return rest.substr(1, end - 1);
        rest.remove_prefix(end + 1);
    }
}

// A name that we do not know is refused even where a mark tells better: nobody knows what its author meant.
void CheckName(std::string_view name) {
    if (!name.empty() && !IsUtf8(name) && !IsUtf16(name) && FindEncoding(name) == nullptr &&
        FindDoubleByte(name) == nullptr)
        RefuseEncoding(name);
}

std::string DecodeNamed(std::string_view bytes, std::string_view name) {
    CheckName(name);
    if (IsUtf16(name))
        throw XmlFault{"the document names the encoding UTF-16, but its characters are single bytes", 1};
    if (const DoubleByteEncoding* const encoding = FindDoubleByte(name))
        return DecodeDoubleByte(bytes, *encoding);
    if (const Encoding* const encoding = FindEncoding(name))
        return Decode(bytes, encoding->name,
                      [&](std::size_t& position) { return encoding->Character(ByteAt(bytes, position++)); });
    return DecodeUtf8(bytes);
}

}  // namespace

std::string XmlText(std::string_view bytes) {
    using namespace std::string_view_literals;
    const bool isLittle = Take(bytes, "\xFF\xFE") || bytes.starts_with("<\0"sv);
    const bool isBig = !isLittle && (Take(bytes, "\xFE\xFF") || bytes.starts_with("\0<"sv));
    if (isLittle || isBig) {
        std::string text = DecodeUtf16(bytes, isBig);
        CheckName(DeclaredEncoding(text));
        return text;
    }
    if (Take(bytes, kMark)) {
        CheckName(DeclaredEncoding(bytes));
        return DecodeUtf8(bytes);
    }
    return DecodeNamed(bytes, DeclaredEncoding(bytes));
}

void BlankTextDeclaration(std::string& dtd) {
    const std::size_t end = DeclarationOf(dtd).empty() ? 0 : dtd.find("?>") + 2;
    for (std::size_t i = 0; i < end; ++i)
        if (dtd[i] != '\n')
            dtd[i] = ' ';
}

}  // namespace tovarek
