// Reads big-endian fields out of a piece of a file. What lies beyond the end reads as 0 or empty and sets the
// failure flag for good, so that a reader may take a whole record and ask once.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "formats/records/ResourceModel.h"

namespace tovarek {

class ByteReader {
  public:
    explicit ByteReader(std::string_view bytes) : bytes_(bytes) {}

    bool Failed() const { return failed_; }
    void Fail() { failed_ = true; }
    std::size_t Position() const { return position_; }
    std::size_t Remaining() const { return bytes_.size() - position_; }

    std::string_view Bytes(std::size_t count) {
        if (failed_ || count > Remaining()) {
            failed_ = true;
            return {};
        }
        const std::string_view taken = bytes_.substr(position_, count);
        position_ += count;
        return taken;
    }
    std::uint8_t U8() { return static_cast<std::uint8_t>(Number(1)); }
    std::uint16_t U16() { return static_cast<std::uint16_t>(Number(2)); }
    std::uint32_t U24() { return Number(3); }
    std::uint32_t U32() { return Number(4); }
    std::int8_t S8() { return static_cast<std::int8_t>(U8()); }
    std::int16_t S16() { return static_cast<std::int16_t>(U16()); }
    std::int32_t S32() { return static_cast<std::int32_t>(U32()); }
    // A name: a length byte, then that many bytes.
    std::string_view Name() { return Bytes(U8()); }

    StringRef String() {
        const std::uint8_t scope = U8();
        return {scope, U24()};
    }
    TypeRef Type() {
        const std::uint8_t scope = U8();
        return {scope, U16()};
    }

  private:
    std::uint32_t Number(std::size_t size) {
        std::uint32_t value = 0;
        for (const char byte : Bytes(size)) {
            value = (value << 8U) | static_cast<unsigned char>(byte);
        }
        return value;
    }

    std::string_view bytes_;
    std::size_t position_ = 0;
    bool failed_ = false;
};

}  // namespace tovarek
