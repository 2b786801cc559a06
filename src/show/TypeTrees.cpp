#include "show/TypeTrees.h"

#include <set>

#include "base/Text.h"
#include "listing/KindNames.h"
#include "values/Scaling.h"
#include "values/ShownType.h"

namespace tovarek {
namespace {

std::string BitsText(const TypeDescription& type) {
    const std::string first = std::to_string(type.bitOffset);
    return type.bitWidth == 1 ? " " + first
                              : " " + first + " to " + std::to_string(type.bitOffset + type.bitWidth - 1);
}

class TreeMaker {
  public:
    TreeMaker(const TypeFile& file, const ResourceNames& names, std::vector<ViewType>& trees)
        : names_(names), scope_(file.header.scope), trees_(trees) {}

    void Add(const std::string& name, const NvType& type) {
        tree_ = &trees_.emplace_back();
        const std::string size = std::to_string(type.size) + (type.size == 1 ? " byte" : " bytes");
        AddNode(name + " (" + size + ")", type.type, type.unit, type.description, 0);
    }

  private:
    void AddLine(std::size_t depth, const std::string& text) {
        tree_->lines.push_back({depth, ShownText(text)});
    }

    void AddNode(const std::string& name, const TypeDescription& type, const StringRef& unit,
                 const StringRef& description, std::size_t depth) {
        const std::string text = names_.Text(description);
        AddLine(depth, name + ": " + KindText(type, unit) + (text.empty() ? "" : " – " + text));
        if (type.kind == TypeKind::enumeration)
            AddEnumeration(type.target, depth + 1);
        else if (type.kind != TypeKind::array)
            for (const TypeMember& member : type.members)
                AddNode(member.name, member.type, member.unit, member.description, depth + 1);
        else if (!IsText(type) && !type.members.empty())
            AddNode("element", type.members[0].type, type.members[0].unit, {}, depth + 1);
    }

    std::string KindText(const TypeDescription& type, const StringRef& unit) const {
        std::string kind(kKindNames.at(static_cast<std::size_t>(type.kind)));
        const std::string unitText = UnitText(unit, names_);
        switch (type.kind) {
            case TypeKind::enumeration:
                return kind + ' ' + names_.EnumerationName(type.target);
            case TypeKind::array:
                return (IsText(type) ? "text of " : "array of ") + std::to_string(type.count) +
                       (IsText(type) ? " characters" : "");
            case TypeKind::reference: {
                const std::string name = names_.NvName(type.target);
                return name.empty() ? kind : name;
            }
            case TypeKind::structure:
            case TypeKind::unionKind:
                return kind;
            case TypeKind::floatingPoint:
                return kind + (unitText.empty() ? "" : ", " + unitText);
            case TypeKind::bitField:
                return kind + BitsText(type) + ", " + LimitsText(type, unitText);
            default:
                return kind + ", " + LimitsText(type, unitText);
        }
    }

    void AddEnumeration(const TypeRef& target, std::size_t depth) {
        const Enumeration* const set = names_.EnumerationSet(target);
        if (set == nullptr || target.scope != scope_ || !told_.insert(set).second)
            return;
        for (const EnumerationValue& value : set->values)
            AddLine(depth, std::to_string(value.value) + ' ' + value.name);
    }

    const ResourceNames& names_;
    std::uint8_t scope_;
    std::vector<ViewType>& trees_;
    ViewType* tree_ = nullptr;
    std::set<const Enumeration*> told_;
};

}  // namespace

void AddTypeTrees(const TypeFile& file, const ResourceNames& names, std::vector<ViewType>& trees) {
    TreeMaker maker(file, names, trees);
    for (const std::optional<NvType>& type : file.nvTypes)
        if (type)
            maker.Add(WholeNvName(file.header.scope, type->name), *type);
    for (const std::optional<CpType>& type : file.cpTypes)
        if (type)
            maker.Add(WholeCpName(file.header.scope, type->name), *type);
}

}  // namespace tovarek
