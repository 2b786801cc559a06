// The inputs of tovarek convert, read.
#pragma once

#include <string>
#include <vector>

#include "convert/DeviceInterface.h"
#include "convert/ResourceSetInput.h"
#include "formats/xif/XifFile.h"

namespace tovarek {

struct NamedInput {
    std::string file;
    std::string element;  // of an XML file; empty: the document element
};

// The element is named behind the last "#" of what is no file as a whole.
NamedInput InputNamed(const std::string& word);

// By its extension or its first bytes.
bool IsXif(const std::string& path);
// Raises what cannot be read, with the line and the reason.
XifFile ReadXif(const std::string& path);

struct ConvertInputs {
    DeviceInterface device;              // all inputs as one
    std::vector<ResourceSetInput> sets;  // one a scope at most
};

// Reads all inputs; each part may come from one of them only, and resource files go with an XIF file or
// alone. Throws WrongUse; raises what reading raises.
ConvertInputs ReadInputs(const std::vector<std::string>& words, const StandardCatalog& catalog);

}  // namespace tovarek
