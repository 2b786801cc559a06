// The variables, properties and tags of a device, with what their numbers mean.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "formats/xif/XifFile.h"
#include "show/DeviceTypes.h"
#include "show/View.h"
#include "template/SelfDocumentation.h"

namespace tovarek {

// Texts are as ShownText answers them.
struct VariableRecord {
    std::string name;  // with "[4]" for an array
    std::string type;
    std::string units;
    std::string property;  // the property type of a configuration variable
    std::string value;     // its default
    std::string notes;     // service, priority and the like, where they are not the usual ones
    Membership membership;
    std::size_t index = 0;  // in the variable table
    bool isOutput = false;
};

struct PropertyRecord {
    enum class Owner { device, block, variable, unknown };
    std::string name;   // of its type, or its own
    std::string value;  // scaled, with unit; bytes where the type is not known
    std::string notes;
    std::string range;
    std::string select;              // as it stands
    std::vector<IndexRange> owners;  // of blocks, or indexes of variables
    Owner owner = Owner::device;
};

struct DeviceRecords {
    std::vector<VariableRecord> variables;
    std::vector<PropertyRecord> properties;
    std::vector<std::string> tags;
};

DeviceRecords RecordsOf(const XifFile& file, const DeviceTypes& types);

// A row for each record.
ViewTable VariableTable(const DeviceRecords& records);
ViewTable PropertyTable(const DeviceRecords& records);
ViewTable TagTable(const XifFile& file);

}  // namespace tovarek
