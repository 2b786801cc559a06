#include "formats/kind/FileKind.h"

#include <algorithm>
#include <array>

#include "base/Path.h"
#include "formats/catalog/CatalogFile.h"
#include "formats/format/FormatFile.h"
#include "formats/language/LanguageFile.h"
#include "formats/records/ResourceKinds.h"

namespace tovarek {
namespace {

struct KindRow {
    FileKind kind;
    std::string_view name;
    std::string_view magic;  // what every file of the kind begins with
    std::string_view extension;
};
constexpr KindRow RowOfResource(FileKind kind, ResourceKind resource) {
    const ResourceKindRow& row = RowOf(resource);
    return {kind, row.name, row.magic, row.extension};
}

constexpr auto kKinds = std::to_array<KindRow>({
    RowOfResource(FileKind::language, ResourceKind::language),
    RowOfResource(FileKind::type, ResourceKind::type),
    RowOfResource(FileKind::profile, ResourceKind::profile),
    {FileKind::format, "format file", "", kFormatExtension},
    {FileKind::catalog, "resource catalog", kCatalogMark, "cat"},
    {FileKind::xif, "XIF file", "File:", "xif"},
});

// A list of values: commas in each of the first lines, and not a single statement.
bool LooksCommaSeparated(std::string_view bytes) {
    int lines = 0;
    while (!bytes.empty() && lines < 3) {
        const std::size_t end = std::min(bytes.find('\n'), bytes.size());
        if (bytes.substr(0, end).find(',') == std::string_view::npos)
            return false;
        bytes.remove_prefix(std::min(end + 1, bytes.size()));
        ++lines;
    }
    return lines > 0;
}

std::string NotBegun(const KindRow& row) {
    return std::string(row.name) + "s begin with \"" + std::string(row.magic) + "\", this file does not";
}

std::string WhyUnknown(std::string_view bytes, const std::string& extension) {
    if (bytes.empty())
        return "the file is empty";
    std::string expected =
        "the content is not that of a language, type, profile or format file, of a catalog or of an XIF file";
    for (const KindRow& row : kKinds)
        if (row.extension == extension && !row.magic.empty())
            expected = NotBegun(row);
    if (IsLanguageExtension(extension))
        expected = NotBegun(kKinds.front());
    return expected + (LooksCommaSeparated(bytes) ? "; it looks like a comma-separated list" : "");
}

}  // namespace

std::string_view KindName(FileKind kind) {
    return kKinds[static_cast<std::size_t>(kind)].name;
}

bool IsTextKind(FileKind kind) {
    return kind == FileKind::format || kind == FileKind::catalog || kind == FileKind::xif;
}

Outcome Recognise(std::string_view bytes, const std::string& path, FileKind& kind) {
    if (IsCatalogFile(bytes)) {
        kind = FileKind::catalog;
        return {};
    }
    for (const KindRow& row : kKinds) {
        if (row.kind != FileKind::catalog && !row.magic.empty() && bytes.starts_with(row.magic)) {
            kind = row.kind;
            return {};
        }
    }
    const std::string extension = ExtensionOf(path);
    kind = FileKind::format;
    if (extension == kFormatExtension)
        return {};  // whatever is wrong with it, its reader says better
    FormatFile formats;
    if (ReadFormatFile(bytes, formats).Ok() && (!formats.settings.empty() || !formats.formats.empty()))
        return {};
    return Failure(resultErrorOpenFile, WhyUnknown(bytes, extension));
}

}  // namespace tovarek
