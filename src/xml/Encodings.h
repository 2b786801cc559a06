// The 8-bit encodings that files may have, by name; one table for every platform.
#pragma once

#include <string>
#include <string_view>

namespace tovarek {

struct Encoding {
    std::string_view name;
    std::string_view aliases;    // in capitals, a blank between two
    std::string_view upperHalf;  // the bytes from 0x80 on, four hexadecimal digits each

    // The character that `byte` stands for; 0 for a byte that stands for none.
    char32_t Character(unsigned char byte) const;
};

// True when `name`, in any case of its letters, is `own` or one of `aliases`.
bool IsEncodingName(std::string_view name, std::string_view own, std::string_view aliases);

// The encoding of that name, null when it is none of the table.
const Encoding* FindEncoding(std::string_view name);

// The names of the table without their aliases, ", " between two.
std::string EncodingNames();

}  // namespace tovarek
