// The standard set inside the program: the files of the built catalog. cmake/StandardSet.cmake writes the
// source.
#pragma once

#include "control/StandardCatalog.h"

namespace tovarek {

StandardSetBytes StandardSetInside();

}  // namespace tovarek
