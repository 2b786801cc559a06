// tovarek value: values of types as text and as the bytes that devices send.
#pragma once

#include <string>
#include <vector>

#include "cli/OpenCatalog.h"
#include "cli/Report.h"

namespace tovarek {

// What the types are looked up in, and which one is meant.
struct ValueOptions {
    CatalogPlace place;
    std::string type;                // a name, a part of it, or a number
    std::string of;                  // the variable's type, for properties that take it
    std::string formatFile;          // XML format file of types above 255; empty: none
    std::string prefix = "SNVT_";    // of its type elements
    std::string typeFile;            // empty: none
    std::vector<std::string> value;  // words; of a structure or array they are its members
};

// Text: the bytes in hexadecimal, as templates and declarations take them. JSON: type, bytes, value, notes.
int RunValueEncode(const ValueOptions& options, OutputFormat format, Streams streams);

// Text: the value, as encode takes it, its unit behind it. JSON: as above.
int RunValueDecode(const ValueOptions& options, OutputFormat format, Streams streams);

}  // namespace tovarek
