// The records of resource files, byte by byte.
#pragma once

#include "listing/ByteCursor.h"

namespace tovarek {

enum class RecordKind { string, nvType, cpType, enumeration, profile };

// "NV type" and the like.
std::string_view RecordName(RecordKind kind);

// Lists one record from its number to the end that its length gives, in a cursor that ends where the record
// may reach at most. `isOldFormat`: types have no second reserved field.
void ListRecord(ByteCursor& cursor, RecordKind kind, bool isOldFormat);

}  // namespace tovarek
