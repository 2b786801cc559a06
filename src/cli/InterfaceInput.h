// The interface of a device from whatever tells it: an XIF file, a template, a job.
#pragma once

#include <string>
#include <vector>

#include "cli/OpenCatalog.h"
#include "compare/CompareInterfaces.h"

namespace tovarek {

struct InterfaceWords {
    std::string interface;
    std::vector<std::string> types{};  // type files (.typ) of its resource files, one a scope
};

// The interface is an XIF file, a job, or a template, .ini or .xml (FILE#ELEMENT where it is not the document
// element), which are read as a generation would write them. A job may name a catalog of its own; `place` is
// that of the others. Where no type files are named, those that lie beside an XIF file and have its program
// ID count, and those that a job would generate. Throws WrongUse for what is none of these, and raises what
// reading and generating raises.
ComparedInterface ReadComparedInterface(const InterfaceWords& words, const CatalogPlace& place);

// The type files, one a scope, that lie beside the interface file at `path` and have its program ID. Of two
// of one scope nobody knows which counts.
std::vector<std::string> TypeFilesBeside(const std::string& path, const XifFile& file);

// The sets of these type files. Throws WrongUse for two of one scope.
std::vector<OwnTypes> NamedTypes(const std::vector<std::string>& paths);

}  // namespace tovarek
