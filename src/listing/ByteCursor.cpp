#include "listing/ByteCursor.h"

#include <algorithm>

#include "base/Text.h"
#include "system/CodePage.h"

namespace tovarek {

std::string_view ByteCursor::Peek(std::size_t size) const {
    return bytes_.substr(position_, std::min(size, Remaining()));
}

std::string_view ByteCursor::Field(std::string_view field, std::size_t size, std::string value) {
    if (cut_ || size == 0)
        return {};
    if (size > Remaining()) {
        GiveUp(std::string(field) + ", cut: " + std::to_string(Remaining()) + " of " + std::to_string(size) +
               " bytes");
        return {};
    }
    rows_.push_back({position_, size, depth_, record_, std::string(field), std::move(value)});
    position_ += size;
    return bytes_.substr(position_ - size, size);
}

std::uint64_t ByteCursor::Unsigned(std::string_view field, std::size_t size) {
    std::uint64_t value = 0;
    for (const char byte : Field(field, size, {}))
        value = (value << 8U) | static_cast<unsigned char>(byte);
    Value(std::to_string(value));
    return value;
}

std::int64_t ByteCursor::Signed(std::string_view field, std::size_t size) {
    const std::uint64_t raw = Unsigned(field, size);
    const std::uint64_t sign = std::uint64_t{1} << (8 * size - 1);
    const auto value =
        static_cast<std::int64_t>(raw) -
        ((raw & sign) != 0 ? static_cast<std::int64_t>(sign) + static_cast<std::int64_t>(sign) : 0);
    Value(std::to_string(value));
    return value;
}

// A cut field has no value to replace: its row says that it is cut.
void ByteCursor::Value(std::string value) {
    if (!cut_)
        rows_.back().value = std::move(value);
}

void ByteCursor::Hex(std::string_view field, std::size_t size) {
    const std::string_view raw = Field(field, size, {});
    if (!raw.empty())
        Value("0x" + [raw] {
            std::string digits;
            for (const char c : HexText(raw))
                if (c != ' ')
                    digits += c;
            return digits;
        }());
}

std::string ByteCursor::Name(std::string_view field) {
    const auto length = static_cast<std::size_t>(Unsigned(std::string(field) + ", length", 1));
    const std::string_view bytes = Field(field, length, {});
    std::string name = FromCodePage(bytes);
    if (!bytes.empty())
        Value('"' + Printable(name) + '"');
    return name;
}

void ByteCursor::Reference(std::string_view field, std::size_t size) {
    std::uint32_t number = 0;
    const std::string_view raw = Field(field, size, {});
    if (raw.empty())
        return;
    for (const char byte : raw.substr(1))
        number = (number << 8U) | static_cast<unsigned char>(byte);
    const unsigned scope = static_cast<unsigned char>(raw[0]);
    Value(number == 0 && size == 4 ? "none" : std::to_string(scope) + '-' + std::to_string(number));
}

void ByteCursor::UpTo(std::size_t end, std::string_view field) {
    end = std::min(end, end_);
    if (cut_ || end <= position_)
        return;
    rows_.push_back({position_, end - position_, depth_, record_, std::string(field),
                     std::to_string(end - position_) + " bytes"});
    position_ = end;
}

void ByteCursor::GiveUp(std::string_view field) {
    UpTo(end_, field);
    cut_ = true;
}

}  // namespace tovarek
