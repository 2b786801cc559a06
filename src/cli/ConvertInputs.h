// The inputs of tovarek convert, read.
#pragma once

#include <string>
#include <vector>

#include "convert/DeviceInterface.h"
#include "convert/ResourceSetInput.h"

namespace tovarek {

struct NamedInput {
    std::string file;
    std::string element;  // of an XML file; empty: the document element
};

// The element is named behind the last "#" of what is no file as a whole.
NamedInput InputNamed(const std::string& word);

struct ConvertInputs {
    DeviceInterface device;              // all inputs as one
    std::vector<ResourceSetInput> sets;  // one a scope at most
};

// Reads all inputs; each part may come from one of them only, and resource files go with an XIF file or
// alone. Throws WrongUse; raises what reading raises.
ConvertInputs ReadInputs(const std::vector<std::string>& words, const StandardCatalog& catalog);

}  // namespace tovarek
