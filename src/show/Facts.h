// What the head of an interface file says of a device, in words: program ID, hardware, buffers.
#pragma once

#include "formats/xif/XifFile.h"
#include "show/View.h"

namespace tovarek {

ViewTable ProgramIdTable(const XifFile& file);

// Empty where nothing gives lines 6 to 10.
ViewTable HardwareTable(const XifFile& file);

// A row for each kind of buffers, and their sum.
ViewTable BufferTable(const XifFile& file);

}  // namespace tovarek
