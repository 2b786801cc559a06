#include <iconv.h>

#include <array>
#include <string>

#include "system/DoubleByte.h"

namespace tovarek {
namespace {

iconv_t Handle(std::intptr_t converter) {
    return reinterpret_cast<iconv_t>(converter);  // NOLINT(performance-no-int-to-ptr): it was one
}

}  // namespace

// The names with numbers: under the standard's own name the library turns "\" into another sign.
DoubleByteDecoder::DoubleByteDecoder(int codePage)
    : converter_(reinterpret_cast<std::intptr_t>(
          iconv_open("UTF-32BE", ("CP" + std::to_string(codePage)).c_str()))) {}

DoubleByteDecoder::~DoubleByteDecoder() {
    if (IsReady())
        iconv_close(Handle(converter_));
}

char32_t DoubleByteDecoder::Decode(std::string_view bytes) {
    std::string in(bytes);
    std::array<unsigned char, 8> out{};
    char* from = in.data();
    char* to = reinterpret_cast<char*>(out.data());
    std::size_t fromLeft = in.size();
    std::size_t toLeft = out.size();
    iconv(Handle(converter_), nullptr, nullptr, nullptr, nullptr);
    const std::size_t status = iconv(Handle(converter_), &from, &fromLeft, &to, &toLeft);
    // Status 0 says that all was converted. Anything but one character is none.
    if (status != 0 || toLeft != out.size() - 4)
        return 0;
    return (char32_t{out[1]} << 16U) | (char32_t{out[2]} << 8U) | out[3];
}

}  // namespace tovarek
