// What the comparisons of variables, tags and properties have in common.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "base/Text.h"
#include "compare/Align.h"
#include "compare/InterfaceChange.h"
#include "compare/OwnTypesOfDevice.h"
#include "control/ResourceNames.h"
#include "formats/xif/XifFile.h"

namespace tovarek {

class ChangeList {
  public:
    // Long texts are told from shortly before the place where they begin to differ.
    void Tell(InterfaceRule rule, std::string record, std::string field, const std::string& before = {},
              const std::string& after = {});
    // The same where the two differ.
    void Expect(InterfaceRule rule, const std::string& record, std::string_view field,
                const std::string& before, const std::string& after) {
        if (before != after)
            Tell(rule, record, std::string(field), before, after);
    }
    std::vector<InterfaceChange> Take() { return std::move(changes_); }

  private:
    std::vector<InterfaceChange> changes_;
};

std::string NumberText(const XifNumber& number);

// The rules for a list of records as such.
struct ListRules {
    InterfaceRule added;
    InterfaceRule removed;
    InterfaceRule moved;
    InterfaceRule swapped;
};

// Tells what an alignment says; the titles are those of all records of both lists.
void TellAlignment(const Alignment& alignment, const ListRules& rules, const std::vector<std::string>& before,
                   const std::vector<std::string>& after, ChangeList& changes);

// An interface, and what is known of its own types.
struct InterfaceSide {
    const XifFile& file;
    const OwnTypesOfDevice& types;
};

OwnTypeCount CompareVariables(const InterfaceSide& before, const InterfaceSide& after,
                              const ResourceNames& names, ChangeList& changes);
void CompareTags(const XifFile& before, const XifFile& after, ChangeList& changes);
OwnTypeCount CompareProperties(const InterfaceSide& before, const InterfaceSide& after,
                               const ResourceNames& names, ChangeList& changes);

}  // namespace tovarek
