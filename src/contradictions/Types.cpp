#include "contradictions/Types.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "base/Text.h"
#include "contradictions/Properties.h"
#include "template/TemplatePlaces.h"

namespace tovarek {
namespace {

constexpr std::int32_t kFirstScope = 1;

// Where a type is defined.
FindingNote DefinitionOf(const CType& type) {
    if (!type.place)
        return {};
    return {type.place->file, type.place->line, type.place->record};
}

class RecordRules {
  public:
    RecordRules(const CTypes& types, const OwnRecords& records, bool isWhole, FindingSink& findings)
        : types_(types),
          source_(*types.deviceTemplate),
          places_(source_),
          records_(records),
          isWhole_(isWhole),
          findings_(findings) {
        for (const auto& type : types.unvtTypes)
            unvts_.try_emplace(type->typeIndex, type.get());
    }

    void TellVariable(std::size_t position) {
        const CNv& nv = source_.nvs[position];
        const auto found = unvts_.find(nv.unvtType);
        if (nv.unvtType < 1 || nv.typeIndex != 0 || nv.length < 1 || found == unvts_.end())
            return;
        const NvType* const record = records_.Nv(*found->second);
        if (record == nullptr || record->size == nv.length)
            return;
        const std::string size = std::to_string(record->size);
        Finding finding = places_.Warn(Warning::typeLength, nv, position, &CNv::length, {});
        finding.context.reason =
            "this says " + std::to_string(nv.length) + " bytes, its type has " + size + ": write " + size;
        finding.notes.push_back(DefinitionOf(*found->second));
        findings_.Take(std::move(finding));
    }

    void TellProperty(std::size_t position) {
        const CCp& cp = source_.cps[position];
        if (cp.length < 1 || cp.arraySize < 0 || cp.scope < kFirstScope || cp.scope > kOwnScope)
            return;
        const CType* const type = PropertyType(types_, cp.scope, cp.typeIndexInScope);
        if (type == nullptr)
            return TellMissing(cp, position);
        const bool isOther = cp.scope == kOwnScope && cp.typeIndex > 0 && cp.typeIndex != type->typeIndex;
        if (isOther && !type->isRefused)
            return TellOtherDefinition(cp, position, *type);
        if (const CpType* const record = records_.Cp(*type))
            TellPropertyLength(source_, position, SizeOf(record->type), "its type", Warning::typeLength,
                               DefinitionOf(*type), findings_);
    }

  private:
    void TellMissing(const CCp& cp, std::size_t position) {
        // Without a program ID no element of the user type file is that of the device.
        constexpr std::size_t kProgramIdDigits = 16;
        if (!isWhole_ || (cp.scope != kOwnScope && source_.programID.size() != kProgramIdDigits))
            return;
        const std::string number = std::to_string(cp.typeIndexInScope);
        const std::string scope = std::to_string(cp.scope);
        std::string reason = "type " + number + " of scope " + scope + " is written nowhere: ";
        if (cp.scope == kOwnScope)
            reason += KeyName("typeIndex", "SNVTTYPE") +
                      " has to name the type element of the format file that defines it";
        else
            reason += "the user type file " + Excerpt(source_.userTypeFile) + " has no UCPT_" + number +
                      " in <_" + scope + "> for the program ID " + source_.programID;
        Finding finding = places_.Warn(Warning::missingReference, cp, position, &CCp::declaration, reason);
        const auto [first, isNew] =
            firstLines_.try_emplace({cp.scope, cp.typeIndexInScope}, finding.context.line);
        finding.causeLine = isNew ? 0 : first->second;
        if (cp.scope != kOwnScope)
            finding.causeFile = types_.UserTypePath();
        findings_.Take(std::move(finding));
    }

    void TellOtherDefinition(const CCp& cp, std::size_t position, const CType& type) {
        Finding finding =
            places_.Warn(Warning::duplicateType, cp, position, &CCp::typeIndex,
                         "type " + std::to_string(cp.typeIndexInScope) + " of scope 6 is defined as " +
                             std::to_string(type.typeIndex) + " already, so this is not read: write " +
                             std::to_string(type.typeIndex) + ", or another type number in the declaration");
        const ErrorContext other = (*type.inputPlace)(TypeInput::definition);
        finding.notes.push_back({other.file, other.line, "the first definition of the type"});
        findings_.Take(std::move(finding));
    }

    std::string KeyName(const char* ini, const char* xml) const {
        return source_.iniFile.empty() ? xml : ini;
    }

    const CTypes& types_;
    const CTemplate& source_;
    TemplatePlaces places_;
    const OwnRecords& records_;
    bool isWhole_;
    FindingSink& findings_;
    std::unordered_map<std::int32_t, const CType*> unvts_;             // by the number of their definition
    std::map<std::pair<std::int32_t, std::int32_t>, int> firstLines_;  // of who asks for a missing type
};

}  // namespace

void TellTypesOfRecords(const CTypes& types, const OwnRecords& records, bool isWhole, FindingSink& findings) {
    RecordRules rules(types, records, isWhole, findings);
    for (std::size_t i = 0; i < types.deviceTemplate->nvs.size(); ++i)
        rules.TellVariable(i);
    for (std::size_t i = 0; i < types.deviceTemplate->cps.size(); ++i)
        rules.TellProperty(i);
}

}  // namespace tovarek
