#include "compare/TypeChanges.h"

#include <algorithm>
#include <map>

#include "base/Numbers.h"
#include "formats/type/TypeFile.h"
#include "values/Scaling.h"
#include "values/ValueTypes.h"

namespace tovarek {
namespace {

// What a type, or a member of it, is to those who read its bytes.
struct TypeRow {
    std::string path;  // "coil.supply"; empty for the type itself
    std::string kind;
    std::uint32_t size = 0;
    std::string scaling;
    std::string values;  // of an enumeration
    std::string limits;  // raw
    std::string shownLimits;
    std::string texts;
};

// A type as a list of its members, the outer ones first.
class TypeRows {
  public:
    explicit TypeRows(const ResourceNames& names) : names_(names) {}

    void Add(const std::string& path, const TypeDescription& type, const StringRef& unit,
             const std::string& texts, int depth = 0) {
        if (depth > kDeepestValue || rows.size() >= kMostRows) {
            isWhole = false;
            return;
        }
        const ShownType shown = ShownTypeOf(type, unit, names_);
        const std::string unitText = UnitText(shown.unit, names_);
        TypeRow row{path, KindOf(shown, type), shown.size};
        row.texts = texts + (unitText.empty() ? "" : " in " + unitText);
        if (shown.type != nullptr)
            Describe(*shown.type, shown.shape, unitText, row);
        rows.push_back(std::move(row));
        if (shown.type == nullptr)
            return;
        if (shown.shape == ValueShape::structure || shown.shape == ValueShape::oneOf)
            AddMembers(path.empty() ? path : path + '.', *shown.type, depth);
        else if (shown.shape == ValueShape::array)
            Add(path + "[]", shown.type->members[0].type, shown.unit, "", depth + 1);
    }

    std::vector<TypeRow> rows;
    bool isWhole = true;  // false for a type too large to be looked at

  private:
    static constexpr std::size_t kMostRows = 10000;

    void AddMembers(const std::string& folder, const TypeDescription& type, int depth) {
        const std::vector<std::string> keys = MemberKeys(type);
        for (std::size_t i = 0; i < keys.size(); ++i) {
            const TypeMember& member = type.members[i];
            Add(folder + keys[i], member.type, member.unit,
                names_.Text(member.nameText) + " " + names_.Text(member.description), depth + 1);
        }
    }

    std::string KindOf(const ShownType& shown, const TypeDescription& type) const {
        switch (shown.shape) {
            case ValueShape::integer:
                return shown.type->kind == TypeKind::bitField
                           ? std::to_string(shown.type->bitWidth) + " bits at " +
                                 std::to_string(shown.type->bitOffset)
                           : "number";
            case ValueShape::real:
                return "float";
            case ValueShape::enumeration:
                return "enumeration";
            case ValueShape::text:
                return "text";
            case ValueShape::bytes:
                return shown.type == nullptr ? "type " + std::to_string(type.target.index) + " of scope " +
                                                   std::to_string(type.target.scope)
                                             : "bytes";
            case ValueShape::array:
                return "array of " + std::to_string(shown.type->count);
            case ValueShape::structure:
                return "structure";
            case ValueShape::oneOf:
                break;
        }
        return "union";
    }

    void Describe(const TypeDescription& type, ValueShape shape, const std::string& unit,
                  TypeRow& row) const {
        if (shape == ValueShape::integer) {
            row.scaling = std::to_string(type.a) + " x 10^" + std::to_string(type.b) + " x (" +
                          (SmallestRaw(type) < 0 ? "signed" : "unsigned") + " raw + " +
                          std::to_string(type.c) + ")";
            row.limits = std::to_string(type.minimum) + " to " + std::to_string(type.maximum);
            row.shownLimits = LimitsText(type, unit);
            if (type.invalid)
                row.limits += ", invalid " + std::to_string(*type.invalid);
        } else if (shape == ValueShape::real) {
            row.limits = RealText(type.floatMinimum) + " to " + RealText(type.floatMaximum);
            row.shownLimits = row.limits + (unit.empty() ? "" : " " + unit);
            if (type.floatInvalid)
                row.limits += ", invalid " + RealText(*type.floatInvalid);
        } else if (shape == ValueShape::enumeration) {
            DescribeEnumeration(type, row);
        }
    }

    void DescribeEnumeration(const TypeDescription& type, TypeRow& row) const {
        const Enumeration* const set = names_.EnumerationSet(type.target);
        if (set == nullptr) {
            row.values =
                "set " + std::to_string(type.target.index) + " of scope " + std::to_string(type.target.scope);
            return;
        }
        std::vector<EnumerationValue> values = set->values;
        std::stable_sort(values.begin(), values.end(),
                         [](const auto& a, const auto& b) { return a.value < b.value; });
        for (const EnumerationValue& value : values)
            row.values += (row.values.empty() ? "" : ", ") + value.name + " = " + std::to_string(value.value);
    }

    const ResourceNames& names_;
};

std::string Structure(const std::vector<TypeRow>& rows) {
    std::string text;
    for (const TypeRow& row : rows)
        text += (text.empty() ? "" : ", ") + row.path + (row.path.empty() ? "" : ": ") + row.kind;
    return text;
}

// Compares the rows of the same path; the structure as a whole.
class RowComparison {
  public:
    RowComparison(const std::string& record, bool hasTexts, ChangeList& changes)
        : record_(record), hasTexts_(hasTexts), changes_(changes) {}

    void Compare(const std::vector<TypeRow>& before, const std::vector<TypeRow>& after) {
        changes_.Expect(InterfaceRule::typeStructure, record_, "structure of its type", Structure(before),
                        Structure(after));
        std::map<std::string_view, const TypeRow*> old;
        for (const TypeRow& row : before)
            old.emplace(row.path, &row);
        for (const TypeRow& row : after)
            if (const auto found = old.find(row.path); found != old.end() && found->second->kind == row.kind)
                CompareRow(*found->second, row);
    }

  private:
    void CompareRow(const TypeRow& old, const TypeRow& now) {
        const std::string of = " of its type" + (now.path.empty() ? "" : ", " + now.path);
        // Of what has members the members tell.
        if (now.kind != "structure" && now.kind != "union" && !now.kind.starts_with("array"))
            changes_.Expect(InterfaceRule::typeSize, record_, "length" + of,
                            std::to_string(old.size) + " bytes", std::to_string(now.size) + " bytes");
        changes_.Expect(InterfaceRule::typeScaling, record_, "scaling" + of, old.scaling, now.scaling);
        changes_.Expect(InterfaceRule::typeEnumeration, record_, "values" + of, old.values, now.values);
        if (old.limits != now.limits)
            TellLimits(of, old, now);
        if (hasTexts_)
            changes_.Expect(InterfaceRule::typeText, record_, "texts" + of, old.texts, now.texts);
    }

    void TellLimits(const std::string& of, const TypeRow& old, const TypeRow& now) {
        const bool isShown = old.shownLimits != now.shownLimits;
        changes_.Tell(InterfaceRule::typeLimits, record_, "limits" + of,
                      isShown ? old.shownLimits : old.limits, isShown ? now.shownLimits : now.limits);
    }

    const std::string& record_;
    bool hasTexts_;
    ChangeList& changes_;
};

TypeRows RowsOf(const DescribedType<NvType>& type) {
    const NvType& own = *type.type;
    TypeRows rows(*type.names);
    rows.Add("", own.type, own.unit,
             own.name + " " + type.names->Text(own.nameText) + " " + type.names->Text(own.description));
    return rows;
}

bool CompareDescriptions(const std::string& record, const DescribedType<NvType>& before,
                         const DescribedType<NvType>& after, ChangeList& changes, OwnTypeCount& count) {
    if (before.type == nullptr || after.type == nullptr) {
        ++count.missed;
        return false;
    }
    const TypeRows old = RowsOf(before);
    const TypeRows now = RowsOf(after);
    ++(old.isWhole && now.isWhole ? count.compared : count.missed);
    RowComparison(record, before.hasTexts && after.hasTexts, changes).Compare(old.rows, now.rows);
    return true;
}

DescribedType<NvType> DescriptionOf(const DescribedType<CpType>& type) {
    return {type.type, type.names, type.hasTexts};
}

}  // namespace

void CompareOwnTypes(const std::string& record, const DescribedType<NvType>& before,
                     const DescribedType<NvType>& after, ChangeList& changes, OwnTypeCount& count) {
    CompareDescriptions(record, before, after, changes, count);
}

void CompareOwnTypes(const std::string& record, const DescribedType<CpType>& before,
                     const DescribedType<CpType>& after, ChangeList& changes, OwnTypeCount& count) {
    if (!CompareDescriptions(record, DescriptionOf(before), DescriptionOf(after), changes, count))
        return;
    const CpType& old = *before.type;
    const CpType& now = *after.type;
    const auto shown = [](const DescribedType<CpType>& type, const std::string& bytes) {
        return ShownBytes({ValueTypeOf("", static_cast<const NvType&>(*type.type)), type.names}, bytes);
    };
    const auto expect = [&](const char* field, const std::string& oldBytes, const std::string& nowBytes) {
        if (oldBytes == nowBytes)
            return;
        const std::string oldText = shown(before, oldBytes);
        const std::string nowText = shown(after, nowBytes);
        const bool isSame = oldText == nowText;
        changes.Tell(InterfaceRule::typeLimits, record, field, isSame ? HexText(oldBytes) : oldText,
                     isSame ? HexText(nowBytes) : nowText);
    };
    expect("smallest value of its type", old.minimum.value_or(""), now.minimum.value_or(""));
    expect("largest value of its type", old.maximum.value_or(""), now.maximum.value_or(""));
    expect("initial value of its type", old.initial, now.initial);
}

}  // namespace tovarek
