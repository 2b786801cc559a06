// Builds big-endian fields in memory and patches those that are known only later.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "formats/records/ResourceModel.h"

namespace tovarek {

class ByteWriter {
  public:
    void Append(std::string_view bytes) { bytes_ += bytes; }
    void U8(std::uint32_t value) { Number(value, 1); }
    void U16(std::uint32_t value) { Number(value, 2); }
    void U24(std::uint32_t value) { Number(value, 3); }
    void U32(std::uint32_t value) { Number(value, 4); }
    // The lowest `size` bytes (1 to 4) of `value`.
    void Number(std::uint32_t value, std::size_t size) {
        for (std::size_t i = size; i-- > 0;) {
            bytes_.push_back(static_cast<char>((value >> (8 * i)) & 0xFFU));
        }
    }
    // A length byte and the name, which has at most 255 bytes.
    void Name(std::string_view name) {
        U8(static_cast<std::uint32_t>(name.size()));
        Append(name);
    }
    void String(const StringRef& string) {
        U8(string.scope);
        U24(string.number);
    }
    void Type(const TypeRef& type) {
        U8(type.scope);
        U16(type.index);
    }
    void Zeros(std::size_t count) { bytes_.append(count, '\0'); }

    void PatchU16(std::size_t position, std::uint32_t value) {
        bytes_[position] = static_cast<char>((value >> 8U) & 0xFFU);
        bytes_[position + 1] = static_cast<char>(value & 0xFFU);
    }

    std::size_t Size() const { return bytes_.size(); }
    const std::string& Bytes() const { return bytes_; }
    std::string Take() { return std::move(bytes_); }

  private:
    std::string bytes_;
};

}  // namespace tovarek
