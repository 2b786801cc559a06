// A type element of the XML format file, read.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "control/StandardCatalog.h"
#include "support/CErrorHandler.h"
#include "support/Findings.h"
#include "support/XmlReading.h"
#include "types/CType.h"
#include "xml/Xml.h"

namespace tovarek {

// Levels of members below a type, and members of a type at all levels together. What exceeds them is runtime
// error 28.
inline constexpr std::size_t kDeepestMember = 1000;
inline constexpr std::int64_t kMostMembers = 1'000'000;

// A type element, read. Types are made of it as often as they are wanted.
struct TypeDefinition {
    struct Member {
        std::string name;
        const TypeDefinition* definition = nullptr;
        std::optional<std::int32_t> scope;  // that a SCOPE in front of FIELDS has set
        int line = 0;
    };

    CType content;                      // all but name, scope and members
    std::optional<std::string> name;    // from the first NAME, cleaned, without a prefix of four letters
    std::optional<std::int32_t> scope;  // from the last SCOPE
    std::vector<Member> members;

    bool complete = false;         // false while it is being read
    std::int64_t memberCount = 0;  // at all levels
    std::size_t memberDepth = 0;   // levels of members below

    // Makes `target` a type of this definition in `scopeOfOwner`, or in the scope that the definition sets.
    // It has no name yet.
    void Instantiate(CType& target, bool isUnvt, std::int32_t scopeOfOwner) const;
};

// The type elements of a file and what is known of them so far.
struct DefinitionTable {
    std::string path;
    std::string prefix;  // type elements are called this and a number
    const CErrorHandler& errorHandler;
    XmlNode first;                                      // of the document; the root, whatever it is
    std::unordered_map<std::string, XmlNode> elements;  // by upper-cased name
    // By format number, once for each answer to whether SCOPE elements count.
    std::unordered_map<std::int32_t, std::unique_ptr<TypeDefinition>> definitions[2];

    // Set when somebody listens to warnings.
    XmlReading* reading = nullptr;
    FindingSink* warnings = nullptr;
    const StandardCatalog* catalog = nullptr;
    std::unordered_set<std::int32_t> told;  // numbers whose elements were

    std::string ElementName(std::int32_t number) const { return prefix + std::to_string(number); }
    // What the elements of a file begin with that has none with the prefix; empty where they have no numbers.
    std::optional<std::string> PrefixInstead() const;
};

}  // namespace tovarek
