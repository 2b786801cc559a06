// The encodings of East Asia, of one or two bytes a character. Their tables are large, so they are the
// platform's.
#pragma once

#include <cstdint>
#include <string_view>

namespace tovarek {

class DoubleByteDecoder {
  public:
    // `codePage` is 932, 936, 949 or 950.
    explicit DoubleByteDecoder(int codePage);
    ~DoubleByteDecoder();
    DoubleByteDecoder(const DoubleByteDecoder&) = delete;
    DoubleByteDecoder& operator=(const DoubleByteDecoder&) = delete;

    // False when the platform does not know the code page.
    bool IsReady() const { return converter_ != kNone; }
    // The character that one byte or two bytes stand for, 0 when they stand for none.
    char32_t Decode(std::string_view bytes);

  private:
    static constexpr std::intptr_t kNone = -1;
    std::intptr_t converter_;
};

}  // namespace tovarek
