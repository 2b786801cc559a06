#include <windows.h>

#include <array>

#include "system/DoubleByte.h"

namespace tovarek {

DoubleByteDecoder::DoubleByteDecoder(int codePage)
    : converter_(IsValidCodePage(static_cast<UINT>(codePage)) != FALSE ? codePage : kNone) {}

// A code page is a number, nothing is held open.
DoubleByteDecoder::~DoubleByteDecoder() {}

char32_t DoubleByteDecoder::Decode(std::string_view bytes) {
    std::array<wchar_t, 4> out{};
    const int length =
        MultiByteToWideChar(static_cast<UINT>(converter_), MB_ERR_INVALID_CHARS, bytes.data(),
                            static_cast<int>(bytes.size()), out.data(), static_cast<int>(out.size()));
    // Anything but one character is none.
    return length == 1 ? static_cast<char32_t>(out[0]) : 0;
}

}  // namespace tovarek
