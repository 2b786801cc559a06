// The types of a device's variables and properties: those of the catalog, and the device's own.
#pragma once

#include <deque>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "control/OwnTypes.h"
#include "control/ResourceNames.h"
#include "formats/xif/XifFile.h"
#include "formats/xif/XifProperties.h"
#include "show/View.h"
#include "values/ValueText.h"

namespace tovarek {

// A type, and who knows what it refers to. Both live as long as the DeviceTypes that answered it.
struct FoundType {
    ValueType value;
    const ResourceNames* names = nullptr;
};

class DeviceTypes {
  public:
    // `own` are sets of different scopes; they and the catalog, which may be null, live as long as this
    // object.
    DeviceTypes(const StandardCatalog* catalog, StandardTexts texts, const std::vector<OwnTypes>& own,
                const XifFile& file);

    // Nothing for a type that nobody knows. An interface file does not tell which of its own types a variable
    // has: they are those of scope 6 in order, where their number and sizes are those of such variables.
    std::optional<FoundType> OfVariable(std::size_t position) const;
    std::optional<FoundType> OfProperty(const std::string& scope, const std::string& type) const;

    // "SNVT_temp_p"; "type 999", "own type of 4 bytes" where nothing tells a name.
    std::string NameOfVariable(std::size_t position) const;
    std::string NameOfProperty(const std::string& scope, const std::string& type) const;

    // The device's own types as trees.
    std::vector<ViewType> Trees() const;

  private:
    struct Set {
        Set(const OwnTypes& own, const StandardCatalog* catalog, StandardTexts texts)
            : types(own), names(catalog, texts) {
            names.Use(own.types);
            names.Use(own.texts);
        }
        const OwnTypes& types;
        ResourceNames names;
    };
    const Set* SetOf(std::uint8_t scope) const;
    void AssignOwnTypes();

    const XifFile& file_;
    ResourceNames standard_;
    std::deque<Set> sets_;
    std::map<std::size_t, const NvType*> ownOfVariables_;  // by position
};

// "°C"; of a structure "value (%), state", or how many members it has.
std::string UnitsOf(const FoundType& type);

// The value that `bytes` hold, or several of the type one after the other; the bytes themselves where they
// are no such values.
std::string ValueShown(const FoundType* type, std::string_view bytes);

}  // namespace tovarek
