// What references mean: texts and types that the files of the same set, or the standard catalog, know.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "control/StandardCatalog.h"
#include "formats/language/LanguageFile.h"
#include "formats/type/TypeFile.h"

namespace tovarek {

// Which texts of a standard catalog are those that the files of other makers mean by the same numbers: all of
// an installed catalog, but of one that was made from published facts only those whose numbers are published.
enum class StandardTexts { all, published };

class ResourceNames {
  public:
    // Knows nothing but the catalog, which may be null.
    explicit ResourceNames(const StandardCatalog* catalog = nullptr, StandardTexts texts = StandardTexts::all)
        : catalog_(catalog), standardTexts_(texts) {}

    ResourceNames(const ResourceNames&) = delete;
    ResourceNames& operator=(const ResourceNames&) = delete;

    // Read the language file and the type file of the set that `path` belongs to. One that is damaged counts
    // as missing; Problems tells.
    void ReadLanguage(const std::string& path);
    void ReadTypes(const std::string& path);
    // The file at hand stands for the one of its set. It lives as long as this object.
    void Use(const LanguageFile& file) { language_ = &file; }
    void Use(const TypeFile& file) { types_ = &file; }

    const StandardCatalog* Catalog() const { return catalog_; }
    const std::vector<std::string>& Problems() const { return problems_; }

    // Empty where nothing is known. Texts are cut after some hundred characters: many references may name one
    // long text.
    std::string Text(const StringRef& string) const;
    // The whole text, shared with the language file beside the one at hand; null where that knows none.
    std::shared_ptr<const std::string> OwnText(const StringRef& string) const;
    std::string NvName(const TypeRef& type) const;
    std::string CpName(const TypeRef& type) const;
    std::string EnumerationName(const TypeRef& set) const;
    // Null where nothing is known.
    const Enumeration* EnumerationSet(const TypeRef& set) const;
    const NvType* Nv(const TypeRef& type) const;
    const TypeDescription* NvDescription(const TypeRef& type) const;
    const TypeDescription* CpDescription(const TypeRef& type) const;

  private:
    bool IsOwn(const TypeRef& type) const { return types_ != nullptr && types_->header.scope == type.scope; }
    bool IsStandard(const TypeRef& type) const { return catalog_ != nullptr && type.scope == 0; }

    const StandardCatalog* catalog_;
    StandardTexts standardTexts_;
    const LanguageFile* language_ = nullptr;
    const TypeFile* types_ = nullptr;
    std::shared_ptr<LanguageFile> ownLanguage_ = std::make_shared<LanguageFile>();
    TypeFile ownTypes_;
    std::vector<std::string> problems_;
};

// The whole name of a type: files leave out the four letters that its scope and class settle.
std::string WholeNvName(std::uint8_t scope, const std::string& stored);
std::string WholeCpName(std::uint8_t scope, const std::string& stored);

}  // namespace tovarek
