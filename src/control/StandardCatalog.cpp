#include "control/StandardCatalog.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <unordered_map>
#include <unordered_set>

#include "base/Error.h"
#include "base/Nearest.h"
#include "base/Path.h"
#include "base/Text.h"
#include "formats/catalog/CatalogFile.h"
#include "formats/language/LanguageFile.h"
#include "formats/type/TypeFileView.h"
#include "system/CodePage.h"
#include "system/Files.h"

namespace tovarek {
namespace {

constexpr std::uint64_t kLongestCatalog = 1U << 20U;

constexpr std::size_t kMostFields = 100'000;
constexpr int kDeepestField = 64;

// Reads a file or says why it cannot be read.
Outcome ReadWhole(const std::string& path, std::string& bytes, std::uint64_t limit = kLargestFile) {
    try {
        bytes = ReadFile(path, limit);
        return {};
    } catch (const Error& error) {
        return Failure(resultErrorOpenFile,
                       "\"" + SystemPath(path) + "\" cannot be read: " + error.Description());
    }
}

// The folders of a catalog. A foreign one names none that we could read; its own folder then is where a
// standard set is normally installed.
std::vector<CatalogFolder> FoldersOf(const std::string& path, std::string_view catalog) {
    return IsCatalogFile(catalog) ? ReadCatalogFile(catalog, path)
                                  : std::vector<CatalogFolder>{{"", FolderOf(path)}};
}

// The file of this name in a folder, whatever its letter case; empty when there is none.
std::string FindFile(const std::string& folder, std::string_view name) {
    std::string exact = folder + std::string(name);
    if (FileExists(exact))
        return exact;
    for (const std::string& entry : DirectoryEntries(folder.empty() ? "." : folder)) {
        if (AsciiLowerCase(entry) == name && FileExists(folder + entry))
            return folder + entry;
    }
    return {};
}

const char* ConversionOf(const TypeDescription& type) {
    switch (type.kind) {
        case TypeKind::enumeration:
            return "%m";
        case TypeKind::floatingPoint:
            return "%f";
        case TypeKind::array:
            return "%s";
        default:
            return ConversionOfInteger(type.a, type.b);
    }
}

std::string Joined(const std::string& path, const std::string& member) {
    return path.empty() ? member : path + '.' + member;
}

}  // namespace

class StandardCatalog::Impl {
  public:
    Outcome OpenTypes(const std::string& path);
    Outcome OpenTypes(const StandardSetBytes& set);
    void DecodeAll();

    const NvType* Nv(std::int32_t index) {
        return Decoded(index, view.NvTypes(), nvs_, &TypeFileView::DecodeNv);
    }
    const CpType* Cp(std::int32_t index) {
        return Decoded(index, view.CpTypes(), cps_, &TypeFileView::DecodeCp);
    }
    const Enumeration* EnumerationSet(std::int32_t number);

    // The path of another file of the set, whether or not it exists.
    std::string Companion(const std::string& name) const {
        const std::string file = FindFile(FolderOf(path), name);
        return file.empty() ? FolderOf(path) + name : file;
    }

    const LanguageFile& Texts();
    const std::vector<DisplayFormat>& Formats(std::string_view typeName);
    bool IsFormatString(const StringRef& string) {
        if (!formats_)
            LoadFormats();
        return string.scope == 0 && formatStrings_.count(string.number) != 0;
    }
    std::string Text(const StringRef& string) {
        const std::string* text = string.scope == 0 ? Texts().Find(string.number) : nullptr;
        return text == nullptr ? std::string() : *text;
    }

    using Entries = std::vector<TypeFileView::Entry>;
    static const TypeFileView::Entry* Find(const Entries& entries, std::int32_t index) {
        if (index < 1 || static_cast<std::size_t>(index) > entries.size())
            return nullptr;
        const TypeFileView::Entry& entry = entries[static_cast<std::size_t>(index) - 1];
        return entry.exists ? &entry : nullptr;
    }
    static std::vector<CatalogEntry> List(const Entries& entries, const char* prefix);
    static std::int32_t IndexOf(const Entries& entries, const char* prefix, std::string_view name,
                                std::unordered_map<std::string, std::int32_t>& names);

    std::string catalogPath;
    std::string path;
    TypeFileView view;
    std::unordered_map<std::string, std::int32_t> nvNames;
    std::unordered_map<std::string, std::int32_t> cpNames;

  private:
    // The decoded type, remembered; a damaged one is remembered as nothing.
    template <class Type, class Decoder>
    static const Type* Decoded(std::int32_t index, const Entries& entries,
                               std::unordered_map<std::int32_t, std::unique_ptr<Type>>& cache,
                               Decoder decode) {
        const TypeFileView::Entry* entry = Find(entries, index);
        if (entry == nullptr)
            return nullptr;
        // What is known is only looked up, so that threads can share what was decoded before them.
        if (const auto known = cache.find(index); known != cache.end())
            return known->second.get();
        auto type = std::make_unique<Type>();
        if (!decode(*entry, *type))
            type.reset();
        return cache.try_emplace(index, std::move(type)).first->second.get();
    }
    // A file of the set beside the type file.
    Outcome ReadCompanion(const std::string& name, std::string_view inMemory, std::string& bytes) const {
        if (!memory_)
            return ReadWhole(Companion(name), bytes);
        bytes = inMemory;
        return {};
    }
    Outcome ViewTypes();
    void LoadFormats();

    std::optional<StandardSetBytes> memory_;
    std::string bytes_;
    std::unordered_map<std::int32_t, std::unique_ptr<NvType>> nvs_;
    std::unordered_map<std::int32_t, std::unique_ptr<CpType>> cps_;
    std::unordered_map<std::int32_t, std::unique_ptr<Enumeration>> enumerations_;
    std::unique_ptr<LanguageFile> texts_;
    std::unique_ptr<std::unordered_map<std::string, std::vector<DisplayFormat>>> formats_;
    std::unordered_set<std::uint32_t> formatStrings_;
};

Outcome StandardCatalog::Impl::OpenTypes(const std::string& typePath) {
    path = typePath;
    if (Outcome read = ReadWhole(path, bytes_); !read.Ok())
        return read;
    Outcome opened = ViewTypes();
    if (!opened.Ok())
        opened.reason = "\"" + SystemPath(path) + "\" does not hold a standard set: " + opened.reason;
    return opened;
}

Outcome StandardCatalog::Impl::OpenTypes(const StandardSetBytes& set) {
    memory_ = set;
    bytes_ = set.types;
    return ViewTypes();
}

Outcome StandardCatalog::Impl::ViewTypes() {
    Outcome opened = TypeFileView::Open(bytes_, view);
    return opened.Ok() && view.Header().scope != 0 ? Failure(resultBadScope, "its scope is not 0") : opened;
}

void StandardCatalog::Impl::DecodeAll() {
    for (std::size_t i = 1; i <= view.NvTypes().size(); ++i)
        Nv(static_cast<std::int32_t>(i));
    for (std::size_t i = 1; i <= view.CpTypes().size(); ++i)
        Cp(static_cast<std::int32_t>(i));
    for (std::size_t i = 1; i <= view.EnumerationCount(); ++i)
        EnumerationSet(static_cast<std::int32_t>(i));
    Formats("");
    Texts();
    IndexOf(view.NvTypes(), "SNVT", "", nvNames);
    IndexOf(view.CpTypes(), "SCPT", "", cpNames);
}

const Enumeration* StandardCatalog::Impl::EnumerationSet(std::int32_t number) {
    if (number < 1 || static_cast<std::size_t>(number) > view.EnumerationCount() ||
        !view.HasEnumeration(static_cast<std::size_t>(number)))
        return nullptr;
    if (const auto known = enumerations_.find(number); known != enumerations_.end())
        return known->second.get();
    auto enumeration = std::make_unique<Enumeration>();
    if (!view.DecodeEnumeration(static_cast<std::size_t>(number), *enumeration))
        enumeration.reset();
    return enumerations_.try_emplace(number, std::move(enumeration)).first->second.get();
}

const LanguageFile& StandardCatalog::Impl::Texts() {
    if (texts_)
        return *texts_;
    texts_ = std::make_unique<LanguageFile>();
    std::string bytes;
    Outcome read = ReadCompanion("standard.enu", memory_ ? memory_->texts : "", bytes);
    if (read.Ok())
        read = ReadLanguageFile(bytes, *texts_);
    if (!read.Ok())
        *texts_ = {};
    return *texts_;
}

void StandardCatalog::Impl::LoadFormats() {
    formats_ = std::make_unique<std::unordered_map<std::string, std::vector<DisplayFormat>>>();
    std::string bytes;
    FormatFile formats;
    Outcome read = ReadCompanion("standard.fmt", memory_ ? memory_->formats : "", bytes);
    if (read.Ok())
        read = ReadFormatFile(bytes, formats);
    if (!read.Ok())
        return;
    for (DisplayFormat& format : formats.formats) {
        for (FormatParameter& parameter : format.parameters) {
            if (parameter.unitText.number == 0)
                continue;
            if (parameter.unitText.scope == 0)
                formatStrings_.insert(parameter.unitText.number);
            if (parameter.unit.empty())
                parameter.unit = Text(parameter.unitText);
        }
        (*formats_)[format.type].push_back(std::move(format));
    }
}

const std::vector<DisplayFormat>& StandardCatalog::Impl::Formats(std::string_view typeName) {
    static const std::vector<DisplayFormat> kNone;
    if (!formats_)
        LoadFormats();
    const auto found = formats_->find(std::string(typeName));
    return found == formats_->end() ? kNone : found->second;
}

std::vector<CatalogEntry> StandardCatalog::Impl::List(const Entries& entries, const char* prefix) {
    std::vector<CatalogEntry> list;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (entries[i].exists) {
            list.push_back(
                {static_cast<std::uint16_t>(i + 1), prefix + FromCodePage(entries[i].name), entries[i].size});
        }
    }
    return list;
}

std::int32_t StandardCatalog::Impl::IndexOf(const Entries& entries, const char* prefix, std::string_view name,
                                            std::unordered_map<std::string, std::int32_t>& names) {
    if (names.empty())
        for (const CatalogEntry& entry : List(entries, prefix))
            names.try_emplace(entry.name, entry.index);
    const auto found = names.find(std::string(name));
    return found == names.end() ? 0 : found->second;
}

StandardCatalog::StandardCatalog() : impl_(std::make_unique<Impl>()) {}
StandardCatalog::~StandardCatalog() = default;

Outcome StandardCatalog::Open(const std::string& path, std::unique_ptr<StandardCatalog>& catalog) {
    catalog.reset();
    std::string bytes;
    if (Outcome read = ReadWhole(path, bytes, kLongestCatalog); !read.Ok())
        return read;
    Outcome failure =
        Failure(resultErrorOpenFile, "no folder of the catalog \"" + path + "\" holds standard.typ");
    for (const CatalogFolder& folder : FoldersOf(path, bytes)) {
        const std::string types = FindFile(folder.path, "standard.typ");
        if (types.empty())
            continue;
        std::unique_ptr<StandardCatalog> candidate(new StandardCatalog);
        Outcome opened = candidate->impl_->OpenTypes(types);
        if (opened.Ok()) {
            candidate->impl_->catalogPath = path;
            catalog = std::move(candidate);
            return opened;
        }
        failure = std::move(opened);
    }
    return failure;
}

Outcome StandardCatalog::Open(const StandardSetBytes& set, std::unique_ptr<StandardCatalog>& catalog) {
    catalog.reset(new StandardCatalog);
    Outcome opened = catalog->impl_->OpenTypes(set);
    if (!opened.Ok())
        catalog.reset();
    return opened;
}

void StandardCatalog::DecodeAll() {
    impl_->DecodeAll();
}

std::vector<std::string> StandardCatalog::Files() const {
    if (impl_->path.empty())
        return {};
    return {impl_->catalogPath, impl_->path, impl_->Companion("standard.enu"),
            impl_->Companion("standard.fmt")};
}

std::vector<CatalogEntry> StandardCatalog::NvTypes() const {
    return Impl::List(impl_->view.NvTypes(), "SNVT");
}
std::vector<CatalogEntry> StandardCatalog::CpTypes() const {
    return Impl::List(impl_->view.CpTypes(), "SCPT");
}

bool StandardCatalog::HasNv(std::int32_t index) const {
    return Impl::Find(impl_->view.NvTypes(), index) != nullptr;
}

std::uint16_t StandardCatalog::NvSize(std::int32_t index) const {
    const auto* entry = Impl::Find(impl_->view.NvTypes(), index);
    return entry == nullptr ? std::uint16_t{0} : entry->size;
}
std::uint16_t StandardCatalog::CpSize(std::int32_t index) const {
    const auto* entry = Impl::Find(impl_->view.CpTypes(), index);
    return entry == nullptr ? std::uint16_t{0} : entry->size;
}

std::string StandardCatalog::NvName(std::int32_t index) const {
    const auto* entry = Impl::Find(impl_->view.NvTypes(), index);
    return entry == nullptr ? std::string() : "SNVT" + FromCodePage(entry->name);
}
std::string StandardCatalog::CpName(std::int32_t index) const {
    const auto* entry = Impl::Find(impl_->view.CpTypes(), index);
    return entry == nullptr ? std::string() : "SCPT" + FromCodePage(entry->name);
}

std::int32_t StandardCatalog::NvIndex(std::string_view name) const {
    return Impl::IndexOf(impl_->view.NvTypes(), "SNVT", name, impl_->nvNames);
}
std::int32_t StandardCatalog::CpIndex(std::string_view name) const {
    return Impl::IndexOf(impl_->view.CpTypes(), "SCPT", name, impl_->cpNames);
}

CatalogEntry StandardCatalog::NearestNv(std::string_view name) const {
    std::vector<CatalogEntry> types = NvTypes();
    std::vector<std::string> names;
    names.reserve(types.size());
    for (const CatalogEntry& type : types)
        names.push_back(type.name);
    const std::string nearest = Nearest(name, names);
    for (CatalogEntry& type : types)
        if (!nearest.empty() && type.name == nearest)
            return std::move(type);
    return {};
}

const NvType* StandardCatalog::Nv(std::int32_t index) const {
    return impl_->Nv(index);
}
const CpType* StandardCatalog::Cp(std::int32_t index) const {
    return impl_->Cp(index);
}
const Enumeration* StandardCatalog::EnumerationSet(std::int32_t number) const {
    return impl_->EnumerationSet(number);
}
std::string StandardCatalog::Text(const StringRef& string) const {
    return impl_->Text(string);
}
bool StandardCatalog::IsFormatString(const StringRef& string) const {
    return impl_->IsFormatString(string);
}

namespace {

// Lists the values inside a type. References may lead in a circle in a set that is not sound, so depth,
// values and steps are bounded.
class FieldLister {
  public:
    FieldLister(const StandardCatalog& catalog, std::vector<CatalogField>& fields)
        : catalog_(catalog), fields_(fields) {}

    // `unit` is the nearest one known on the way to `type`.
    void List(const TypeDescription& type, const std::string& path, const StringRef& unit, int depth) {
        if (depth > kDeepestField || fields_.size() >= kMostFields || ++steps_ > 2 * kMostFields)
            return;
        if (type.kind == TypeKind::reference) {
            const NvType* target = type.target.scope == 0 ? catalog_.Nv(type.target.index) : nullptr;
            if (target != nullptr)
                List(target->type, path, Nearest(unit, target->unit), depth + 1);
        } else if (HasMembers(type.kind)) {
            for (const TypeMember& member : type.members)
                List(member.type, Joined(path, member.name), member.unit, depth + 1);
        } else if (type.kind == TypeKind::array && !IsText(type)) {
            ListElements(type, path, unit, depth);
        } else {
            fields_.push_back({path, ConversionOf(type), catalog_.Text(unit), type});
        }
    }

  private:
    void ListElements(const TypeDescription& type, const std::string& path, const StringRef& unit,
                      int depth) {
        const TypeMember& element = type.members[0];
        for (std::size_t i = 0; i < type.count && fields_.size() < kMostFields && steps_ <= 2 * kMostFields;
             ++i)
            List(element.type, path + '[' + std::to_string(i) + ']', Nearest(element.unit, unit), depth + 1);
    }

    static const StringRef& Nearest(const StringRef& inner, const StringRef& outer) {
        return inner.number != 0 ? inner : outer;
    }

    const StandardCatalog& catalog_;
    std::vector<CatalogField>& fields_;
    std::size_t steps_ = 0;
};

std::vector<CatalogField> FieldsOf(const StandardCatalog& catalog, const NvType* type) {
    std::vector<CatalogField> fields;
    if (type != nullptr)
        FieldLister(catalog, fields).List(type->type, "", type->unit, 0);
    return fields;
}

}  // namespace

std::vector<CatalogField> StandardCatalog::NvFields(std::int32_t index) const {
    return FieldsOf(*this, Nv(index));
}
std::vector<CatalogField> StandardCatalog::CpFields(std::int32_t index) const {
    return FieldsOf(*this, Cp(index));
}

const std::vector<DisplayFormat>& StandardCatalog::Formats(std::string_view typeName) const {
    return impl_->Formats(typeName);
}

std::vector<FormatParameter> StandardCatalog::DefaultParameters(std::int32_t nvIndex) const {
    for (const DisplayFormat& format : Formats(NvName(nvIndex))) {
        if (format.name.empty() && !format.parameters.empty() && !format.parameters[0].conversion.empty())
            return format.parameters;
    }
    std::vector<FormatParameter> parameters;
    for (const CatalogField& field : NvFields(nvIndex))
        parameters.push_back({.conversion = field.conversion, .expression = field.path});
    return parameters;
}

}  // namespace tovarek
