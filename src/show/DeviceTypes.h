// The types of a device's variables and properties as people look at them: those of the catalog, and the
// device's own.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "compare/OwnTypesOfDevice.h"
#include "show/View.h"

namespace tovarek {

class DeviceTypes {
  public:
    // `own` are sets of different scopes; all outlive this object. `catalog` may be null.
    DeviceTypes(const StandardCatalog* catalog, StandardTexts texts, const std::vector<OwnTypes>& own,
                const XifFile& file);

    // "SNVT_temp_p"; "type 999 of 4 bytes", "own type of 4 bytes" where nothing tells a name.
    std::string NameOfVariable(std::size_t position) const;
    std::string NameOfProperty(const XifProperty& property) const;

    // "°C"; of a structure "value (%), state", or how many members it has.
    std::string UnitsOfVariable(std::size_t position) const;

    // What the bytes are, with units; the bytes themselves where nobody knows their type.
    std::string ValueOfVariable(std::size_t position, std::string_view bytes) const;
    std::string ValueOfProperty(const XifProperty& property, std::string_view bytes) const;

    // The device's own types as trees.
    std::vector<ViewType> Trees() const;

  private:
    const XifFile& file_;
    const std::vector<OwnTypes>& own_;
    StandardTexts texts_;
    ResourceNames standard_;
    OwnTypesOfDevice types_;
};

}  // namespace tovarek
