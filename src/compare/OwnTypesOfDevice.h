// The types of a device's own as its resource files describe them, by the variables and properties that have
// them.
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "control/OwnTypes.h"
#include "control/ResourceNames.h"
#include "formats/xif/XifFile.h"
#include "formats/xif/XifProperties.h"
#include "values/ValueText.h"

namespace tovarek {

// Of the numbers behind a variable's name: index, rates, array size.
inline constexpr std::size_t kVariableIndex = 0;
inline constexpr std::size_t kVariableArray = 3;

// A type, and what its references mean. Null where the resource files tell nothing.
template <class Type>
struct DescribedType {
    const Type* type;
    const ResourceNames* names;
    bool hasTexts;  // the set has a language file
};

class OwnTypesOfDevice {
  public:
    // `sets`: of different scopes. Everything outlives this object; `catalog` may be null.
    OwnTypesOfDevice(const XifFile& device, const std::vector<OwnTypes>& sets, const StandardCatalog* catalog,
                     StandardTexts texts);

    // Of the variable at `place`, from 0. Only sets of this system tell: in those the n-th variable of a type
    // of its own has the n-th network-variable type of scope 6, and there are as many.
    DescribedType<NvType> OfVariable(std::size_t place) const;
    DescribedType<CpType> OfProperty(const XifProperty& property) const;

    // The type of a value of the property: its own, the standard one, or that of its variables where it
    // inherits; and whose references it has. An empty description (null names) where nobody knows it.
    struct Value {
        ValueType type;
        const ResourceNames* names = nullptr;
    };
    Value ValueOf(const XifProperty& property) const;
    // The same of a variable.
    Value ValueOfVariable(std::size_t place) const;

  private:
    struct Set {
        const TypeFile& types;
        ResourceNames names;
        bool hasTexts;

        Set(const OwnTypes& own, const StandardCatalog* catalog, StandardTexts texts);
    };
    const Set* SetOf(std::size_t scope) const;
    std::size_t PlaceOfEntry(std::int64_t entry) const;
    Value Inherited(const XifProperty& property) const;

    const XifFile& device_;
    std::vector<std::unique_ptr<Set>> sets_;
    ResourceNames standard_;
    std::vector<std::size_t> untyped_;  // places of the variables with own types
};

// The number that a declaration has for a type; 0 for none that could be.
std::uint16_t TypeNumberOf(const std::string& digits);

// The whole name of a standard property type, also of one that inherits; empty for an unknown one.
std::string StandardPropertyName(std::uint16_t number, const ResourceNames& names);

// The bytes of one value, or of several behind one another, as people write them; in hexadecimal where the
// type is not known or has another size.
std::string ShownBytes(const OwnTypesOfDevice::Value& value, std::string_view bytes);

}  // namespace tovarek
