// The standard types, for tests of their values.
#pragma once

#include <stdexcept>

#include "control/StandardCatalog.h"
#include "values/ValueTypes.h"

namespace tovarek::test {

class Standard {
  public:
    Standard() : names(Open()) {}

    const StandardCatalog& Catalog() const { return *catalog_; }

    ValueType Of(const std::string& name) const {
        if (const NvType* nv = catalog_->Nv(catalog_->NvIndex(name)))
            return ValueTypeOf(name, *nv);
        if (const CpType* cp = catalog_->Cp(catalog_->CpIndex(name)))
            return ValueTypeOf(name, *cp, names);
        throw std::invalid_argument("there is no type " + name);
    }

  private:
    const StandardCatalog* Open() {
        StandardCatalog::Open(std::string(TOVAREK_CATALOG) + "/ldrf.cat", catalog_);
        return catalog_.get();
    }

    std::unique_ptr<StandardCatalog> catalog_;

  public:
    ResourceNames names;
};

inline std::string Decoded(const ValueType& type, const std::string& bytes, const ResourceNames& names,
                           std::vector<std::string>& notes) {
    DecodedValue value;
    const Outcome outcome = DecodeValue(type, bytes, names, value, notes);
    return outcome.Ok() ? WrittenValue(value) : "refused: " + outcome.reason;
}

}  // namespace tovarek::test
