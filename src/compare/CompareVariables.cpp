#include <algorithm>
#include <array>

#include "compare/Documentation.h"
#include "compare/RecordChanges.h"
#include "compare/TypeChanges.h"

namespace tovarek {
namespace {

// The second line but for the direction. What may be changed in the field is only a default; the place behind
// such a value says whether it may.
struct VariableAttribute {
    std::size_t place;
    std::string_view name;
    bool isDefault;
};
constexpr auto kVariableAttributes = std::to_array<VariableAttribute>({
    {placeOffline, "offline", false},
    {placeSecond, "second attribute", false},
    {placeThird, "third attribute", false},
    {placeService, "defaultService", true},
    {placeServiceCanBeChanged, "serviceCanBeChanged", false},
    {placeAuthenticated, "defaultAuth", true},
    {placeAuthCanBeChanged, "authCanBeChanged", false},
    {placePriority, "defaultPriority", true},
    {placePriorityCanBeChanged, "priorityCanBeChanged", false},
    {placePolled, "polled", false},
    {placeSynchronized, "synchronized", false},
    {placeConfiguration, "configuration", false},
});

constexpr auto kTagAttributes =
    std::to_array<std::string_view>({"first attribute", "bindable", "third attribute", "direction", "service",
                                     "serviceCanBeChanged", "authenticated", "authCanBeChanged", "priority",
                                     "priorityCanBeChanged", "polled", "synchronized", "configuration"});

template <class Record>
std::vector<std::string> NamesOf(const std::vector<Record>& records) {
    std::vector<std::string> names;
    names.reserve(records.size());
    for (const Record& record : records)
        names.push_back(record.name);
    return names;
}

std::vector<std::string> Titles(std::string_view kind, const std::vector<std::string>& names) {
    std::vector<std::string> titles;
    titles.reserve(names.size());
    for (const std::string& name : names)
        titles.push_back(std::string(kind) + ' ' + std::to_string(titles.size() + 1) + " (" +
                         Printable(name) + ")");
    return titles;
}

// How far the index of each variable is from where those in front of it let it begin.
std::vector<std::int64_t> IndexGaps(const std::vector<XifVariable>& variables) {
    std::vector<std::int64_t> gaps;
    gaps.reserve(variables.size());
    std::int64_t next = 0;
    for (const XifVariable& variable : variables) {
        const std::int64_t index = variable.Number(kVariableIndex).value_or(next);
        gaps.push_back(index - next);
        next = index;
        const std::int64_t entries = std::max<std::int64_t>(variable.Number(kVariableArray).value_or(0), 1);
        next = next > INT64_MAX - entries ? INT64_MAX : next + entries;
    }
    return gaps;
}

class VariableComparison {
  public:
    VariableComparison(const InterfaceSide& before, const InterfaceSide& after, const ResourceNames& names,
                       ChangeList& changes)
        : before_(before.file.variables),
          after_(after.file.variables),
          typesBefore_(before.types),
          typesAfter_(after.types),
          names_(names),
          changes_(changes) {}

    OwnTypeCount Compare() {
        const std::vector<std::string> namesBefore = NamesOf(before_);
        const std::vector<std::string> namesAfter = NamesOf(after_);
        const std::vector<Shape> shapesBefore(before_.begin(), before_.end());
        const std::vector<Shape> shapesAfter(after_.begin(), after_.end());
        const Alignment alignment = Align(namesBefore, namesAfter, [&](std::size_t old, std::size_t now) {
            return Like(shapesBefore[old], shapesAfter[now]);
        });
        titles_ = Titles("network variable", namesAfter);
        TellAlignment(alignment,
                      {InterfaceRule::variableAdded, InterfaceRule::variableRemoved,
                       InterfaceRule::variableMoved, InterfaceRule::variablesSwapped},
                      Titles("network variable", namesBefore), titles_, changes_);
        const std::vector<std::int64_t> gapsBefore = IndexGaps(before_);
        const std::vector<std::int64_t> gapsAfter = IndexGaps(after_);
        for (const AlignedPair& pair : alignment.pairs) {
            const auto indexBefore = before_[pair.before].Number(kVariableIndex);
            const auto indexAfter = after_[pair.after].Number(kVariableIndex);
            // Where an index moves, so does the gap in front of the next variable, which itself stays.
            if (gapsBefore[pair.before] != gapsAfter[pair.after] && indexBefore != indexAfter)
                changes_.Tell(InterfaceRule::variableIndex, titles_[pair.after], "index",
                              NumberText(indexBefore), NumberText(indexAfter));
            ComparePair(titles_[pair.after], before_[pair.before], after_[pair.after]);
            CompareTypes(titles_[pair.after], pair);
        }
        TellElements();
        return count_;
    }

  private:
    // What makes variables alike, put together once: every pair of a long list may be asked for.
    struct Shape {
        explicit Shape(const XifVariable& variable)
            : direction(variable.Attribute(placeDirection)),
              type(variable.standardType),
              size(variable.Size()) {
            const DocumentationParts parts = PartsOfDocumentation(variable.documentation);
            head = parts.head + parts.objects;
        }

        XifNumber direction;
        XifNumber type;
        std::int64_t size;
        std::string head;  // of the self-documentation
    };

    static int Like(const Shape& old, const Shape& now) {
        if (old.direction != now.direction)
            return 0;
        const bool isSameType = old.type == now.type && old.size == now.size;
        const bool isSameMember = !old.head.empty() && old.head == now.head;
        return (isSameType ? 2 : 0) + (isSameMember ? 1 : 0);
    }

    std::string TypeText(const XifVariable& variable) const {
        const XifNumber& type = variable.standardType;
        if (type == 0)
            return "a type of the device's own";
        const std::string name = type && *type > 0 && *type <= UINT8_MAX
                                     ? names_.NvName({0, static_cast<std::uint16_t>(*type)})
                                     : "";
        return name.empty() ? "type " + NumberText(type) : name;
    }

    static std::string DirectionText(const XifNumber& direction) {
        return direction == 0 ? "input" : direction == 1 ? "output" : NumberText(direction);
    }

    void ComparePair(const std::string& record, const XifVariable& old, const XifVariable& now) {
        changes_.Expect(InterfaceRule::variableRenamed, record, "name", old.name, now.name);
        changes_.Expect(InterfaceRule::variableDirection, record, "direction",
                        DirectionText(old.Attribute(placeDirection)),
                        DirectionText(now.Attribute(placeDirection)));
        if (old.standardType != now.standardType)
            changes_.Tell(InterfaceRule::variableType, record, "type", TypeText(old), TypeText(now));
        changes_.Expect(InterfaceRule::variableSize, record, "length", std::to_string(old.Size()) + " bytes",
                        std::to_string(now.Size()) + " bytes");
        CompareNumbers(record, old, now);
        CompareDocumentation(record, old, now);
        if (old.Size() == now.Size() && !HasSameElements(old, now) && ++described_ == 1)
            firstDescribed_ = record;
    }

    void CompareTypes(const std::string& record, const AlignedPair& pair) {
        if (before_[pair.before].standardType == 0 && after_[pair.after].standardType == 0)
            CompareOwnTypes(record, typesBefore_.OfVariable(pair.before), typesAfter_.OfVariable(pair.after),
                            changes_, count_);
    }

    void CompareNumbers(const std::string& record, const XifVariable& old, const XifVariable& now) {
        constexpr auto kRates = std::to_array<std::string_view>({"avgRate", "maxRate"});
        changes_.Expect(InterfaceRule::variableArray, record, "array size",
                        NumberText(old.Number(kVariableArray)), NumberText(now.Number(kVariableArray)));
        for (std::size_t i = 0; i < kRates.size(); ++i)
            changes_.Expect(InterfaceRule::variableRates, record, kRates[i], NumberText(old.Number(i + 1)),
                            NumberText(now.Number(i + 1)));
        for (const VariableAttribute& attribute : kVariableAttributes) {
            const bool isFree = attribute.isDefault && (old.Attribute(attribute.place + 1) != 0 ||
                                                        now.Attribute(attribute.place + 1) != 0);
            changes_.Expect(isFree ? InterfaceRule::variableDefault : InterfaceRule::variableAttribute,
                            record, attribute.name, NumberText(old.Attribute(attribute.place)),
                            NumberText(now.Attribute(attribute.place)));
        }
    }

    void CompareDocumentation(const std::string& record, const XifVariable& old, const XifVariable& now) {
        const DocumentationParts before = PartsOfDocumentation(old.documentation);
        const DocumentationParts after = PartsOfDocumentation(now.documentation);
        if (before.head != after.head || before.objects != after.objects)
            changes_.Tell(InterfaceRule::variableDocumentation, record, "self-documentation",
                          old.documentation, now.documentation);
        else if (before.text != after.text)
            changes_.Tell(InterfaceRule::variableText, record, "text", old.documentation, now.documentation);
    }

    static bool HasSameElements(const XifVariable& old, const XifVariable& now) {
        return std::equal(old.elements.begin(), old.elements.end(), now.elements.begin(), now.elements.end(),
                          [](const XifElement& a, const XifElement& b) {
                              return a.type == b.type && a.offset == b.offset && a.size == b.size &&
                                     a.isSigned == b.isSigned && a.array == b.array;
                          });
    }

    // Mostly all variables at once, when another generator wrote the file.
    void TellElements() {
        if (described_ > 0)
            changes_.Tell(InterfaceRule::variableElements, firstDescribed_,
                          described_ == 1 ? "elements"
                                          : "elements, and those of " + std::to_string(described_ - 1) +
                                                " more variables");
    }

    const std::vector<XifVariable>& before_;
    const std::vector<XifVariable>& after_;
    const OwnTypesOfDevice& typesBefore_;
    const OwnTypesOfDevice& typesAfter_;
    const ResourceNames& names_;
    ChangeList& changes_;
    OwnTypeCount count_;
    std::vector<std::string> titles_;
    std::size_t described_ = 0;
    std::string firstDescribed_;
};

void CompareTag(const std::string& record, const XifTag& old, const XifTag& now, bool isInPlace,
                ChangeList& changes) {
    constexpr auto kNumbers =
        std::to_array<std::string_view>({"index", "avgRate", "maxRate", "fourth number"});
    changes.Expect(InterfaceRule::tagRenamed, record, "name", old.name, now.name);
    for (std::size_t i = isInPlace ? 0 : 1; i < kNumbers.size(); ++i)
        changes.Expect(i == 1 || i == 2 ? InterfaceRule::tagRates : InterfaceRule::tagAttribute, record,
                       kNumbers[i], NumberText(NumberAt(old.numbers, i)),
                       NumberText(NumberAt(now.numbers, i)));
    for (std::size_t i = 0; i < kTagAttributes.size(); ++i)
        changes.Expect(
            i == placePriorityCanBeChanged ? InterfaceRule::tagDefault : InterfaceRule::tagAttribute, record,
            kTagAttributes[i], NumberText(NumberAt(old.attributes, i)),
            NumberText(NumberAt(now.attributes, i)));
}

}  // namespace

OwnTypeCount CompareVariables(const InterfaceSide& before, const InterfaceSide& after,
                              const ResourceNames& names, ChangeList& changes) {
    return VariableComparison(before, after, names, changes).Compare();
}

void CompareTags(const XifFile& before, const XifFile& after, ChangeList& changes) {
    const std::vector<std::string> namesBefore = NamesOf(before.tags);
    const std::vector<std::string> namesAfter = NamesOf(after.tags);
    const Alignment alignment = Align(namesBefore, namesAfter, [&](std::size_t old, std::size_t now) {
        return before.tags[old].attributes == after.tags[now].attributes ? 1 : 0;
    });
    const std::vector<std::string> titles = Titles("message tag", namesAfter);
    TellAlignment(alignment,
                  {InterfaceRule::tagAdded, InterfaceRule::tagRemoved, InterfaceRule::tagMoved,
                   InterfaceRule::tagsSwapped},
                  Titles("message tag", namesBefore), titles, changes);
    for (const AlignedPair& pair : alignment.pairs)
        CompareTag(titles[pair.after], before.tags[pair.before], after.tags[pair.after],
                   pair.before == pair.after, changes);
}

}  // namespace tovarek
