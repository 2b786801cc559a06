// Which element of a definition describes a type of resource files, and with which limits.
#pragma once

#include "formats/type/TypeFile.h"
#include "types/CType.h"

namespace tovarek {

ElementType ElementOf(TypeKind kind);

// One value, which may have units.
bool IsValue(TypeKind kind);

// Scaling and limits of a number; limits that are those of its kind are left out.
void SetLimits(const TypeDescription& type, CType& content);

}  // namespace tovarek
