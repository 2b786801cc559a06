#include "control/ResourceNames.h"

#include "base/Error.h"
#include "base/Text.h"
#include "control/ResourceSet.h"
#include "system/Files.h"

namespace tovarek {
namespace {

constexpr std::size_t kLongestText = 240;

// Entry `number` of a numbered group, or null when there is none.
template <class Member>
const Member* Entry(const std::vector<std::optional<Member>>& group, std::size_t number) {
    return number == 0 || number > group.size() || !group[number - 1] ? nullptr : &*group[number - 1];
}

// Reads a file beside the one at hand; false when that is not possible, with a sentence for people.
template <class File>
bool ReadBeside(const std::string& path, Outcome (*reader)(std::string_view, File&), File& file,
                std::vector<std::string>& problems) {
    if (path.empty())
        return false;
    try {
        const Outcome outcome = reader(ReadFile(path), file);
        if (outcome.Ok())
            return true;
        problems.push_back("\"" + path + "\" is damaged: " + outcome.reason);
    } catch (const Error& error) {
        problems.push_back("\"" + path + "\" cannot be read: " + error.Description());
    }
    file = {};
    return false;
}

}  // namespace

void ResourceNames::ReadLanguage(const std::string& path) {
    if (ReadBeside(FindResourceSet(path).language, ReadLanguageFile, *ownLanguage_, problems_))
        language_ = ownLanguage_.get();
}

void ResourceNames::ReadTypes(const std::string& path) {
    if (ReadBeside(FindResourceSet(path).types, ReadTypeFile, ownTypes_, problems_))
        types_ = &ownTypes_;
}

std::string ResourceNames::Text(const StringRef& string) const {
    std::string text;
    if (language_ != nullptr && language_->header.scope == string.scope) {
        if (const std::string* found = language_->Find(string.number))
            text = *found;
    } else if (catalog_ != nullptr && string.scope == 0 && string.number != 0 &&
               (standardTexts_ == StandardTexts::all || catalog_->IsFormatString(string))) {
        text = catalog_->Text(string);
    }
    const std::string_view shown = FirstCharacters(text, kLongestText);
    return shown.size() == text.size() ? text : std::string(shown) + "...";
}

std::shared_ptr<const std::string> ResourceNames::OwnText(const StringRef& string) const {
    if (language_ != ownLanguage_.get() || ownLanguage_->header.scope != string.scope)
        return nullptr;
    return {ownLanguage_, ownLanguage_->Find(string.number)};
}

std::string ResourceNames::NvName(const TypeRef& type) const {
    if (IsOwn(type)) {
        const NvType* found = Entry(types_->nvTypes, type.index);
        return found == nullptr ? std::string() : WholeNvName(type.scope, found->name);
    }
    return IsStandard(type) ? catalog_->NvName(type.index) : std::string();
}

std::string ResourceNames::CpName(const TypeRef& type) const {
    if (IsOwn(type)) {
        const CpType* found = Entry(types_->cpTypes, type.index);
        return found == nullptr ? std::string() : WholeCpName(type.scope, found->name);
    }
    return IsStandard(type) ? catalog_->CpName(type.index) : std::string();
}

std::string ResourceNames::EnumerationName(const TypeRef& set) const {
    const Enumeration* found = EnumerationSet(set);
    return found == nullptr ? std::string() : found->name;
}

const Enumeration* ResourceNames::EnumerationSet(const TypeRef& set) const {
    if (IsOwn(set))
        return Entry(types_->enumerations, set.index);
    return IsStandard(set) ? catalog_->EnumerationSet(set.index) : nullptr;
}

const NvType* ResourceNames::Nv(const TypeRef& type) const {
    if (IsOwn(type))
        return Entry(types_->nvTypes, type.index);
    return IsStandard(type) ? catalog_->Nv(type.index) : nullptr;
}

const TypeDescription* ResourceNames::NvDescription(const TypeRef& type) const {
    const NvType* found = Nv(type);
    return found == nullptr ? nullptr : &found->type;
}

const TypeDescription* ResourceNames::CpDescription(const TypeRef& type) const {
    const CpType* found = nullptr;
    if (IsOwn(type))
        found = Entry(types_->cpTypes, type.index);
    else if (IsStandard(type))
        found = catalog_->Cp(type.index);
    return found == nullptr ? nullptr : &found->type;
}

std::string WholeNvName(std::uint8_t scope, const std::string& stored) {
    return (scope == 0 ? "SNVT" : "UNVT") + stored;
}

std::string WholeCpName(std::uint8_t scope, const std::string& stored) {
    return (scope == 0 ? "SCPT" : "UCPT") + stored;
}

}  // namespace tovarek
