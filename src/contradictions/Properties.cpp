#include "contradictions/Properties.h"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

#include "template/Declaration.h"
#include "template/SelfDocumentation.h"
#include "template/TemplatePlaces.h"
#include "types/CType.h"
#include "values/ValueTypes.h"

namespace tovarek {
namespace {

constexpr std::int32_t kStandardScope = 0;

std::int64_t Elements(const CNv& nv) {
    return std::max(nv.arraySize, 1);
}

class PropertyRules {
  public:
    PropertyRules(const CTemplate& source, FindingSink& findings)
        : source_(source),
          places_(source),
          findings_(findings),
          standard_(source.catalog == nullptr ? nullptr : source.catalog->types.Catalog()),
          objects_(DeclaredBlockCount(source.selfDocumentation)) {
        if (!source.nvs.empty())
            entries_ = source.nvs.back().index + Elements(source.nvs.back());
    }

    void Tell(std::size_t position) {
        const CCp& cp = source_.cps[position];
        // What is refused, or read as something else, was told.
        const std::optional<PropertyOwner> owner = OwnerOfProperty(cp.declaration);
        if (!owner || cp.length < 1 || cp.arraySize < 0)
            return;
        TellOwner(cp, position, *owner);
        if (cp.scope > kOwnScope)
            Take(Warning::propertyScope, position,
                 "there is no scope " + std::to_string(cp.scope) +
                     ": write 0 for a standard property, 1 to 6 for one of another resource set");
        else if (cp.scope == kStandardScope && standard_ != nullptr)
            TellType(cp, position, *owner);
    }

  private:
    void TellOwner(const CCp& cp, std::size_t position, const PropertyOwner& owner) {
        using Kind = PropertyOwner::Kind;
        const bool isDevice = owner.kind == Kind::device;
        if (isDevice != owner.positions.empty()) {
            const std::string header = cp.declaration.substr(0, 1);
            Take(Warning::propertyScope, position,
                 isDevice ? "it belongs to the device, which its first field 0 says, and has a number \"" +
                                owner.selection + "\" nevertheless: leave it out, or write 1 for an object"
                          : "its first field " + header + " asks for the number of " +
                                (owner.kind == Kind::object ? "an object" : "a network variable") +
                                ", and its second is empty");
        } else if (owner.kind == Kind::variable) {
            TellPosition(position, owner, entries_, "network variable", VariablesNote());
        } else if (owner.kind == Kind::object && objects_) {
            TellPosition(position, owner, static_cast<std::int64_t>(*objects_), "object", ObjectsNote());
        }
    }

    void TellPosition(std::size_t position, const PropertyOwner& owner, std::int64_t count,
                      const std::string& kind, FindingNote other) {
        const std::int64_t last = *std::max_element(owner.positions.begin(), owner.positions.end());
        if (last < count)
            return;
        Finding finding = At(Warning::propertyScope, position,
                             "it belongs to " + kind + " " + std::to_string(last) + ", and the device has " +
                                 std::to_string(count) + " of them, numbered from 0");
        finding.notes.push_back(std::move(other));
        // What is missing may be missed by many.
        const auto [first, isNew] = firstLines_.try_emplace({kind, last}, finding.context.line);
        finding.causeLine = isNew ? 0 : first->second;
        findings_.Take(std::move(finding));
    }

    void TellType(const CCp& cp, std::size_t position, const PropertyOwner& owner) {
        const std::int32_t index = cp.typeIndexInScope;
        const std::string name = standard_->CpName(index);
        const InheritingType* const inheriting = InheritingTypeOf(index);
        const CNv* const nv = inheriting != nullptr ? VariableOf(owner) : nullptr;
        if (!name.empty() && inheriting == nullptr) {
            TellPropertyLength(source_, position, standard_->CpSize(index), name, Warning::propertyLength,
                               {{}, 0, name + " is standard property " + std::to_string(index)}, findings_);
        } else if (nv != nullptr && nv->length > 0) {
            const auto at = static_cast<std::size_t>(nv - source_.nvs.data());
            const ErrorContext place = places_.Of(*nv, at, &CNv::typeIndex, {});
            TellPropertyLength(source_, position, static_cast<std::uint32_t>(nv->length),
                               std::string(inheriting->name) + ", which has the type of its variable",
                               Warning::propertyLength, {place.file, place.line, RecordTitle(*nv, at)},
                               findings_);
        } else if (name.empty() && inheriting == nullptr) {
            Take(Warning::unknownProperty, position,
                 "the catalog has no standard property " + std::to_string(index) + LastKnown() +
                     ": correct the number, or the scope where it is not a standard one");
        }
    }

    // The one variable that a property belongs to.
    const CNv* VariableOf(const PropertyOwner& owner) const {
        if (owner.kind != PropertyOwner::Kind::variable || owner.positions.size() != 1)
            return nullptr;
        const auto behind = std::upper_bound(source_.nvs.begin(), source_.nvs.end(), owner.positions[0],
                                             [](std::int64_t at, const CNv& nv) { return at < nv.index; });
        if (behind == source_.nvs.begin() || owner.positions[0] >= entries_)
            return nullptr;
        return &*std::prev(behind);
    }

    std::string LastKnown() {
        if (lastKnown_ == 0)
            for (const CatalogEntry& entry : standard_->CpTypes())
                lastKnown_ = std::max<std::int32_t>(lastKnown_, entry.index);
        return ", its last one is " + std::to_string(lastKnown_);
    }

    FindingNote VariablesNote() const {
        const ErrorContext place = places_.Of(&CTemplate::numberStaticNvs, {});
        return {place.file, place.line,
                std::to_string(source_.nvs.size()) + " network variables, their elements counted " +
                    std::to_string(entries_)};
    }
    FindingNote ObjectsNote() const {
        const ErrorContext place = places_.Of(&CTemplate::selfDocumentation, {});
        return {place.file, place.line, "the self-documentation lists the objects"};
    }

    Finding At(Warning warning, std::size_t position, const std::string& reason) const {
        return places_.Warn(warning, source_.cps[position], position, &CCp::declaration, reason);
    }
    void Take(Warning warning, std::size_t position, const std::string& reason) {
        findings_.Take(At(warning, position, reason));
    }

    const CTemplate& source_;
    TemplatePlaces places_;
    FindingSink& findings_;
    const StandardCatalog* standard_;
    std::optional<std::size_t> objects_;
    std::int64_t entries_ = 0;                                        // of the variable table
    std::map<std::pair<std::string, std::int64_t>, int> firstLines_;  // of who asks for what is missing
    std::int32_t lastKnown_ = 0;
};

}  // namespace

void TellPropertyLength(const CTemplate& source, std::size_t position, std::uint32_t size,
                        const std::string& type, Warning warning, FindingNote other, FindingSink& findings) {
    const CCp& cp = source.cps[position];
    const auto length = static_cast<std::uint32_t>(cp.length);
    if (size == 0 || length == size)
        return;
    const std::string bytes = std::to_string(size);
    std::string reason = "the declaration says " + std::to_string(length) + " bytes, ";
    reason += type + " has " + bytes + ": ";
    if (cp.arraySize <= 1 && length % size == 0) {
        warning = Warning::arrayByLength;
        reason += "for an array of " + std::to_string(length / size) + " write the length " + bytes +
                  " and the array size " + std::to_string(length / size) + " behind it";
    } else {
        reason += "write " + bytes +
                  (cp.arraySize > 1 ? ", the length of one element; the array size stands behind it" : "");
    }
    Finding finding = TemplatePlaces(source).Warn(warning, cp, position, &CCp::declaration, reason);
    finding.notes.push_back(std::move(other));
    findings.Take(std::move(finding));
}

void TellProperties(const CTemplate& source, FindingSink& findings) {
    PropertyRules rules(source, findings);
    for (std::size_t i = 0; i < source.cps.size(); ++i)
        rules.Tell(i);
}

}  // namespace tovarek
