// The XML format file: definitions of types by format number.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "support/CErrorHandler.h"
#include "support/Xml.h"
#include "types/CType.h"

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

class FormatDefinitions {
  public:
    // Loads the file. Raises error 89. Type elements are called `prefix` and a number.
    FormatDefinitions(const std::string& path, std::string prefix, const CErrorHandler& errorHandler);

    // The definition with this format number; read on first use. `readsScope` tells whether SCOPE elements
    // count. Raises error 90 when there is none, 91 for an unknown kind, runtime error 6 for a number beyond
    // its range and runtime error 28 for a type that contains itself or has too many or too deeply nested
    // members.
    const TypeDefinition& Get(std::int32_t number, bool readsScope);

    const std::string& Path() const { return path_; }
    // What the type element with this number is called.
    std::string ElementName(std::int32_t number) const { return prefix_ + std::to_string(number); }

  private:
    friend class DefinitionReader;

    std::string path_;
    std::string prefix_;
    const CErrorHandler& errorHandler_;
    std::unordered_map<std::string, XmlNode> elements_;  // by upper-cased name
    // By format number, once for each value of readsScope.
    std::unordered_map<std::int32_t, std::unique_ptr<TypeDefinition>> definitions_[2];
};

}  // namespace tovarek
