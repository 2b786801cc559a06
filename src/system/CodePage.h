// The 8-bit code page at the edges of the system: INI files without a mark, XIF files, the list of files,
// format files, texts in resource files. On Windows it is the system's own (CP_ACP), elsewhere windows-1252.
#pragma once

#include <string>
#include <string_view>

namespace tovarek {

// UTF-8 to the code page. A character that the code page lacks, and an invalid byte, becomes '?'; no
// character is replaced by one that only looks like it. The bytes that windows-1252 leaves undefined stand
// for the control characters of the same number.
std::string ToCodePage(std::string_view text);

// The code page to UTF-8, the inverse.
std::string FromCodePage(std::string_view bytes);

}  // namespace tovarek
