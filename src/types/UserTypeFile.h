// The user type file: further types that the resource files define, by scope and program ID.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "control/StandardCatalog.h"
#include "support/CErrorHandler.h"
#include "support/Findings.h"
#include "types/CType.h"

namespace tovarek {

class Readings;  // support/Readings.h

// A type that is wanted, and where its definition is.
struct TypeRequest {
    std::string name;               // empty: the definition names the type
    std::int32_t formatNumber = 0;  // of the definition in the XML format file
    std::int32_t typeNumber = 0;    // of a configuration-property type in its scope
    bool isUnvt = false;            // a network-variable type; else a configuration-property type
    std::int32_t scope = 0;
    std::string rawMinValue;
    std::string rawMaxValue;
    std::string rawInitValue;
    TypeInputPlace inputPlace;
    bool onlyScope6 = false;  // deliberate: dropped in silence when its definition names another scope
    bool fromUserTypeFile = false;
    bool isRefused = false;  // what it lacks was told; its number is taken nevertheless
    std::string origin;      // who wants it, for messages
};

// Takes a type; findings about it go to the sink.
using AddTypeRequest = std::function<void(const TypeRequest&, FindingSink&)>;

// Who hears what is read otherwise than it was written, and what helps to say it; all null for nobody.
struct UserTypeListener {
    Readings* readings = nullptr;
    const StandardCatalog* catalog = nullptr;
    std::string_view prefix;  // of type elements
};

// Reads the file and gives `add` each type that applies to the device with this program ID, in the order of
// the file. Raises error 128 when the file cannot be loaded. Tells `findings` error 128 for a type that lacks
// its name or definition, runtime error 6 for a number beyond 32 bits, and what `add` raises.
void ReadUserTypeFile(const std::string& path, const std::string& programID,
                      const CErrorHandler& errorHandler, FindingSink& findings, const AddTypeRequest& add,
                      const UserTypeListener& listener = {});

}  // namespace tovarek
