// Self-documentation as devices hold it: what tools build an interface of, and what is for people.
#pragma once

#include <string>
#include <string_view>

namespace tovarek {

// Bytes of the code page; escapes "\xHH" of the file are the bytes that they stand for.
std::string DocumentationBytes(std::string_view text);

// "&3.0@0,8020;Fan coil": guidelines, list of functional blocks, text. A self-documentation without "@" is
// all guidelines, up to the ";".
struct DocumentationParts {
    std::string head;
    std::string objects;  // with the "@"
    std::string text;     // with the ";"
};
DocumentationParts PartsOfDocumentation(std::string_view text);

}  // namespace tovarek
