// Type descriptions as they stand in NV and CP type records.
#pragma once

#include "formats/records/ByteReader.h"
#include "formats/records/ByteWriter.h"
#include "formats/type/TypeFile.h"

namespace tovarek {

// Takes one description. `record` fails when it is cut, of an unknown kind, or nested deeper than
// kDeepestNesting.
TypeDescription ReadDescription(ByteReader& record);

// Appends the description in its shortest form. False when it does not fit the format: a name of more than
// 255 bytes, too many members, a limit outside its kind, an impossible bit field, or too deep a nesting.
bool WriteDescription(const TypeDescription& type, ByteWriter& record);

}  // namespace tovarek
