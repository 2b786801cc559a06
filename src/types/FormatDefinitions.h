// The XML format file: definitions of types by format number.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "support/CErrorHandler.h"
#include "support/Findings.h"
#include "types/TypeDefinition.h"

namespace tovarek {

class Readings;  // support/Readings.h

// Reads each definition once, when it is asked for; what it has answered stays valid as long as it lives.
class FormatDefinitions {
  public:
    // Loads the file. Raises error 89. Type elements are called `prefix` and a number.
    FormatDefinitions(const std::string& path, std::string prefix, const CErrorHandler& errorHandler);

    // The definition with this format number; read on first use. `readsScope` tells whether SCOPE elements
    // count. Raises error 90 when there is none. Tells `findings`, when it is read: error 90 for a member, 91
    // for an unknown kind, runtime error 6 for a number beyond its range and runtime error 28 for a type that
    // contains itself or has too many or too deeply nested members. Its content is refused then.
    const TypeDefinition& Get(std::int32_t number, bool readsScope, FindingSink& findings);

    // The format numbers of the file's type elements, in ascending order; the largest is 9 digits long.
    std::vector<std::int32_t> Numbers() const;

    // From now on tells `readings` what is read otherwise than it was written; `catalog`, which may be null,
    // knows the standard types.
    void Listen(Readings& readings, const StandardCatalog* catalog);
    // What nobody read is meant for others, but for a second element of a number.
    void TellUnused();

    // Whether the first node of the document is an element; without one there are no types.
    bool HasRoot() const { return table_.first.IsElement(); }

    const std::string& Path() const { return table_.path; }
    // What the type element with this number is called.
    std::string ElementName(std::int32_t number) const { return table_.ElementName(number); }

  private:
    DefinitionTable table_;
};

}  // namespace tovarek
