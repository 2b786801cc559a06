// The interface of a device from whatever tells it: an XIF file, a template, a job.
#pragma once

#include <string>

#include "cli/OpenCatalog.h"
#include "compare/CompareInterfaces.h"

namespace tovarek {

// `word` is an XIF file, a job, or a template, .ini or .xml (FILE#ELEMENT where it is not the document
// element), which are read as a generation would write them. A job may name a catalog of its own; `place` is
// that of the others. Throws WrongUse for what is none of these, and raises what reading and generating
// raises.
ComparedInterface ReadComparedInterface(const std::string& word, const CatalogPlace& place);

}  // namespace tovarek
