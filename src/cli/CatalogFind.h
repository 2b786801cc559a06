// Types of a catalog by what a person remembers of them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "control/StandardCatalog.h"
#include "inspect/InspectNode.h"

namespace tovarek {

struct CatalogType {
    bool isNv;
    CatalogEntry entry;
};

// Every network-variable type, then every configuration-property type, by index.
std::vector<CatalogType> AllTypes(const StandardCatalog& catalog);

// The types that `word` names: by the whole name, else by the name in any letter case, with or without
// "SNVT_" or "SCPT", else by number (which a type of either class may have), else by a part of the name.
std::vector<CatalogType> TypesNamed(const std::vector<CatalogType>& types, const std::string& word);

// Why `word`, which names the types `named` of all `types`, is no one of them: none, or too many.
std::string NoTypeReason(const std::string& word, const std::vector<CatalogType>& types,
                         const std::vector<CatalogType>& named);

// What a type measures: its unit and its scaled limits. Empty for what is more than one value.
struct CatalogMeasure {
    std::string unit;
    InspectNode::Value minimum;
    InspectNode::Value maximum;
};
CatalogMeasure MeasureOf(const StandardCatalog& catalog, const CatalogType& type);

// True when the name, a unit or a text of the type holds `word`, in any letter case.
bool Mentions(const StandardCatalog& catalog, const CatalogType& type, const std::string& word);

}  // namespace tovarek
