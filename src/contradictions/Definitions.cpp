// Type elements of the format file, each judged once however often it is used.
#include <unordered_map>
#include <unordered_set>

#include "base/Text.h"
#include "contradictions/Types.h"

namespace tovarek {
namespace {

// The lengths of structures are compared down to here: each is measured with all that is in it.
constexpr int kDeepestMeasured = 16;

class DefinitionRules {
  public:
    explicit DefinitionRules(FindingSink& findings) : findings_(findings) {}

    // `type` is one of the device's own, `record` what was written of it.
    void Tell(const CType& type, const NvType& record) {
        if (!type.place || !type.lines)
            return;
        file_ = type.place->file;
        const std::string key = std::to_string(type.scope) + (type.isUnvt ? 'N' : 'C') + type.name;
        const auto [first, isNew] = names_.try_emplace(key, &type);
        if (!isNew && first->second->typeIndex != type.typeIndex && names_.try_emplace(key + '*').second)
            Take(type, "NAME", type.LineOf("NAME"),
                 "\"" + type.name + "\" is the name of two types: give " + "each a NAME of its own",
                 first->second->LineOf("NAME"));
        Walk(type, record.type, 0);
    }

  private:
    void Walk(const CType& type, const TypeDescription& record, int depth) {
        // What has no lines was not read from a file; what was walked has been told with all below it.
        if (!type.lines || !known_.insert(type.lines.get()).second)
            return;
        if (depth < kDeepestMeasured)
            TellLength(type, record);
        if (type.isReference())
            return;
        if (type.elementType == elementEnum && type.enumValues)
            TellEnumeration(type);
        if (!type.HasMembers())
            return;
        std::unordered_map<std::string_view, int> names;
        for (std::size_t i = 0; i < type.elements.size() && i < record.members.size(); ++i) {
            const CType& member = type.elements[i];
            const auto [first, isNew] = names.try_emplace(member.name, member.memberLine);
            if (!isNew)
                Take(type, member.name, member.memberLine,
                     "two members are called \"" + Excerpt(member.name) + "\": give each a name of its own",
                     first->second);
            Walk(member, record.members[i].type, depth + 1);
        }
    }

    void TellLength(const CType& type, const TypeDescription& record) {
        const ElementLines::Child* const given = type.ChildOf("LENGTH");
        if (given == nullptr)
            return;
        const bool isArray =
            type.arraySize > 0 && record.kind == TypeKind::array && record.members.size() == 1;
        const auto size = static_cast<std::int64_t>(SizeOf(isArray ? record.members[0].type : record));
        if (size == given->number)
            return;
        const std::string bytes = std::to_string(size);
        Take(type, "LENGTH", given->line,
             "LENGTH says " + std::to_string(given->number) + " bytes, " +
                 (type.isReference() ? "the standard type" : "a value of this type") + " has " + bytes +
                 ": write " + bytes + ", or leave it out",
             0, Warning::typeLength);
    }

    void TellEnumeration(const CType& type) {
        if (!knownValues_.insert(type.enumValues.get()).second)
            return;
        std::unordered_map<std::string_view, int> names;
        std::unordered_map<std::int32_t, const CEnumValue*> values;
        for (const CEnumValue& value : *type.enumValues) {
            const auto [name, isNewName] = names.try_emplace(value.name, value.line);
            const auto [same, isNewValue] = values.try_emplace(value.value, &value);
            if (!isNewName)
                Take(type, value.name, value.line,
                     "\"" + Excerpt(value.name) + "\" is the name of two values: give each a name of its own",
                     name->second);
            else if (!isNewValue)
                Take(type, value.name, value.line,
                     std::to_string(value.value) + " is the value of \"" + Excerpt(same->second->name) +
                         "\" as well, by which tools show both: give each a value of its own",
                     same->second->line);
        }
    }

    void Take(const CType& type, const std::string& field, int line, const std::string& reason, int otherLine,
              Warning warning = Warning::duplicateType) {
        Finding finding{.context = {.record = "type element " + std::to_string(type.typeIndex),
                                    .field = field,
                                    .file = file_,
                                    .line = line,
                                    .reason = reason},
                        .warning = warning,
                        // What the line says may be read otherwise than it was written.
                        .causeLine = line};
        if (otherLine > 0)
            finding.notes.push_back({file_, otherLine, "the first one"});
        findings_.Take(std::move(finding));
    }

    FindingSink& findings_;
    std::string file_;
    std::unordered_map<std::string, const CType*> names_;  // by scope, kind and name
    std::unordered_set<const void*> known_;                // type elements
    std::unordered_set<const void*> knownValues_;          // enumerations
};

}  // namespace

void TellDefinitions(const CTypes& types, const OwnRecords& records, FindingSink& findings) {
    DefinitionRules rules(findings);
    for (const CTypes::Types* const list : {&types.unvtTypes, &types.ucptTypes})
        for (const auto& type : *list)
            if (const NvType* const record = records.Of(*type))
                rules.Tell(*type, *record);
}

}  // namespace tovarek
