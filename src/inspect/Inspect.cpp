#include "inspect/Inspect.h"

#include <algorithm>

#include "base/Path.h"
#include "base/Text.h"
#include "inspect/ResourceTrees.h"
#include "inspect/XifTree.h"
#include "support/CErrorHandler.h"
#include "system/Files.h"

namespace tovarek {
namespace {

FileKind KindOf(std::string_view bytes, const std::string& path) {
    FileKind kind = FileKind::type;
    if (const Outcome outcome = Recognise(bytes, path, kind); !outcome.Ok())
        CErrorHandler().RaiseQVxTypesEditError(outcome.code, {.file = path, .reason = outcome.reason});
    return kind;
}

// Reads one file and makes its tree.
class FileInspector {
  public:
    FileInspector(const std::string& path, std::string_view bytes, FileKind kind)
        : path_(path), bytes_(bytes), kind_(kind) {}

    Outcome Read() {
        switch (kind_) {
            case FileKind::language:
                return ReadLanguageFile(bytes_, language_);
            case FileKind::type:
                return ReadTypeFile(bytes_, types_);
            case FileKind::profile:
                return ReadProfileFile(bytes_, profiles_);
            case FileKind::format:
                return ReadFormatFile(bytes_, formats_);
            case FileKind::xif:
                return ReadXifFile(bytes_, xif_);
            case FileKind::catalog:
                break;
        }
        return {};
    }

    void ReadNeighbours(ResourceNames& names) const {
        if (kind_ == FileKind::type || kind_ == FileKind::profile || kind_ == FileKind::format)
            names.ReadLanguage(path_);
        if (kind_ == FileKind::profile)
            names.ReadTypes(path_);
    }

    InspectNode Tree(ResourceNames& names) const {
        switch (kind_) {
            case FileKind::language:
                names.Use(language_);
                return LanguageTree(language_, names);
            case FileKind::type:
                names.Use(types_);
                return TypeTree(types_, names);
            case FileKind::profile:
                return ProfileTree(profiles_, names);
            case FileKind::format:
                return FormatTree(formats_, names);
            case FileKind::xif:
                return XifTree(xif_, names);
            case FileKind::catalog:
                break;
        }
        return CatalogTree(bytes_, path_);
    }

  private:
    const std::string& path_;
    std::string_view bytes_;
    FileKind kind_;
    LanguageFile language_;
    TypeFile types_;
    ProfileFile profiles_;
    FormatFile formats_;
    XifFile xif_;
};

// The name that a file of enumerations has because of the set's own name tells nothing of the content.
void MarkOwnNames(InspectNode& tree, const std::string& path) {
    const std::string stem = UpperCase(StemOf(path));
    // The generator puts the scope behind the base name.
    const std::size_t scope = stem.size() - std::min<std::size_t>(stem.size(), 2);
    const std::string base = stem.substr(scope).starts_with('_') ? stem.substr(0, scope) : stem;
    for (InspectNode& list : tree.children) {
        if (list.name != "enumerations")
            continue;
        for (InspectNode& set : list.children)
            for (InspectNode& child : set.children)
                if (const auto* text = std::get_if<std::string>(&child.value);
                    child.name == "fileName" && text != nullptr)
                    child.derived = UpperCase(*text) == stem + ".H" || UpperCase(*text) == base + ".H";
    }
}

}  // namespace

Inspection InspectFile(const std::string& path, const StandardCatalog* catalog, StandardTexts texts) {
    const std::string bytes = ReadFile(path);
    const FileKind kind = KindOf(bytes, path);
    FileInspector inspector(path, bytes, kind);
    if (const Outcome outcome = inspector.Read(); !outcome.Ok())
        CErrorHandler().RaiseQVxTypesEditError(
            outcome.code, {.record = std::string(KindName(kind)), .file = path, .reason = outcome.reason});
    ResourceNames names(catalog, texts);
    inspector.ReadNeighbours(names);
    Inspection inspection{kind, InspectNode::Object("")};
    inspection.tree.Text("kind", std::string(KindName(kind)));
    for (InspectNode& child : inspector.Tree(names).children)
        inspection.tree.Add(std::move(child));
    MarkOwnNames(inspection.tree, path);
    return inspection;
}

FileListing ListFile(const std::string& path) {
    FileListing file;
    file.bytes = ReadFile(path);
    file.kind = KindOf(file.bytes, path);
    file.listing = ListBytes(file.bytes, file.kind);
    const Outcome outcome = FileInspector(path, file.bytes, file.kind).Read();
    file.code = outcome.code;
    file.damage = outcome.reason;
    return file;
}

}  // namespace tovarek
