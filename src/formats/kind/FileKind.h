// Which kind of file something is, told by its content; its name helps only where the content says nothing.
#pragma once

#include <string>
#include <string_view>

#include "formats/records/Outcome.h"

namespace tovarek {

enum class FileKind { language, type, profile, format, catalog, xif };

// "type file" and the like.
std::string_view KindName(FileKind kind);

// True for the kinds that consist of lines.
bool IsTextKind(FileKind kind);

// Code 5 for what is none of the kinds; the reason says what it looks like.
Outcome Recognise(std::string_view bytes, const std::string& path, FileKind& kind);

}  // namespace tovarek
