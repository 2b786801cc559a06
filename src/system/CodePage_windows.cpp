#include <windows.h>

#include <climits>

#include "base/Error.h"
#include "base/Text.h"
#include "system/CodePage.h"
#include "system/Wide.h"

namespace tovarek {
namespace {

// The conversions count in int; longer texts are converted in pieces.
constexpr std::size_t kMostAtOnce = INT_MAX / 8;

// `text` in UTF-16 with one code unit for each character: what lies beyond 16 bits is in no 8-bit code page,
// and a pair of units would become two question marks.
std::wstring OneUnitEach(std::string_view text) {
    std::wstring wide;
    wide.reserve(text.size());
    for (std::size_t position = 0; position < text.size();) {
        const char32_t character = NextCharacter(text, position);
        wide.push_back(static_cast<wchar_t>(character < 0x10000 ? character : 0xFFFD));
    }
    return wide;
}

[[noreturn]] void Fail() {
    RaiseRuntimeError(RuntimeError::outOfMemory, {.reason = "the code page cannot be converted"});
}

void AppendBytes(std::string& bytes, std::wstring_view wide) {
    const int units = static_cast<int>(wide.size());
    const std::size_t start = bytes.size();
    // No code page needs more bytes for a unit than this.
    bytes.resize(start + wide.size() * 4);
    const int length = WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, wide.data(), units,
                                           bytes.data() + start, units * 4, "?", nullptr);
    if (length <= 0)
        Fail();
    bytes.resize(start + static_cast<std::size_t>(length));
}

bool IsUtf8CodePage() {
    return GetACP() == CP_UTF8;
}

// The bytes of a piece that ends where a character ends.
std::size_t PieceLength(std::string_view bytes) {
    if (bytes.size() <= kMostAtOnce)
        return bytes.size();
    std::size_t length = 0;
    while (length < kMostAtOnce)
        length += IsDBCSLeadByteEx(CP_ACP, static_cast<BYTE>(bytes[length])) != 0 ? 2 : 1;
    return length;
}

}  // namespace

std::string ToCodePage(std::string_view text) {
    // Users may choose UTF-8 as their code page; nothing is lacking then.
    if (IsAscii(text) || IsUtf8CodePage())
        return std::string(text);
    const std::wstring wide = OneUnitEach(text);
    std::string bytes;
    for (std::wstring_view rest = wide; !rest.empty();) {
        const std::wstring_view piece = rest.substr(0, kMostAtOnce);
        AppendBytes(bytes, piece);
        rest.remove_prefix(piece.size());
    }
    return bytes;
}

std::string FromCodePage(std::string_view bytes) {
    if (IsAscii(bytes) || IsUtf8CodePage())
        return std::string(bytes);
    std::string text;
    while (!bytes.empty()) {
        const std::size_t length = PieceLength(bytes);
        std::wstring wide(length, L'\0');
        const int units = MultiByteToWideChar(CP_ACP, 0, bytes.data(), static_cast<int>(length), wide.data(),
                                              static_cast<int>(wide.size()));
        if (units <= 0)
            Fail();
        text += FromWide(std::wstring_view(wide).substr(0, static_cast<std::size_t>(units)));
        bytes.remove_prefix(length);
    }
    return text;
}

}  // namespace tovarek
