#include "cli/InspectCommands.h"

#include <algorithm>
#include <ostream>

#include "base/Text.h"
#include "cli/InputKind.h"
#include "cli/Json.h"
#include "inspect/Inspect.h"
#include "inspect/InspectText.h"
#include "support/CErrorHandler.h"
#include "system/Files.h"

namespace tovarek {
namespace {

// The catalog that names are looked up in. The shipped one is a help that may be missing; one that the user
// names must be there.
std::unique_ptr<CCatalog> CatalogOfNames(const CatalogPlace& place) {
    try {
        return OpenCatalog(place);
    } catch (const Error&) {
        if (!place.IsShipped() || !place.file.empty())
            throw;
        return nullptr;
    }
}

ErrorContext DamageContext(const std::string& path, const FileListing& file) {
    return {.record = std::string(KindName(file.kind)), .file = path, .reason = file.damage};
}

// A damaged file is listed all the same: that is what listings are for.
int DumpBytes(const std::string& path, OutputFormat format, Streams streams) {
    const FileListing file = ListFile(path);
    if (format == OutputFormat::json) {
        streams.out << JsonText({{"schema", kJsonSchema},
                                 {"kind", KindName(file.kind)},
                                 {"damage", file.code == resultOk ? Json() : Json(file.damage)},
                                 {"rows", ListingJson(file.listing, file.bytes)}})
                    << '\n';
        return file.code == resultOk ? kDone : kFailed;
    }
    streams.out << ListingText(file.listing, file.bytes);
    if (file.code != resultOk)
        CErrorHandler().RaiseQVxTypesEditError(file.code, DamageContext(path, file));
    return kDone;
}

void WriteValue(const InspectNode::Value& value, std::ostream& out) {
    if (std::holds_alternative<std::monostate>(value))
        out << "(none)";
    else if (const auto* text = std::get_if<std::string>(&value))
        out << '"' << Printable(Excerpt(*text)) << '"';
    else
        out << ValueText(value);
}

InspectNode DifferencesNode(const std::vector<Difference>& differences) {
    InspectNode list = InspectNode::List("differences");
    for (const Difference& difference : differences) {
        InspectNode item = InspectNode::Object("");
        item.Text("path", difference.path);
        item.Put("old", difference.before);
        item.Put("new", difference.after);
        list.Add(std::move(item));
    }
    return list;
}

// What lies beside the files and cannot be used; references then count by their numbers.
InspectNode ProblemsNode(const Inspection& old, const Inspection& now) {
    InspectNode list = InspectNode::List("problems");
    for (const InspectNode* tree : {&old.tree, &now.tree})
        if (const InspectNode* problems = tree->Find(list.name))
            list.children.insert(list.children.end(), problems->children.begin(), problems->children.end());
    return list;
}

void WriteDifferences(const std::vector<Difference>& differences, InspectNode problems, OutputFormat format,
                      Streams streams) {
    std::ostream& out = streams.out;
    if (format == OutputFormat::json) {
        InspectNode result = InspectNode::Object("");
        result.Flag("same", differences.empty());
        result.Add(DifferencesNode(differences));
        if (!problems.children.empty())
            result.Add(std::move(problems));
        out << JsonDocument(result);
        return;
    }
    for (const InspectNode& problem : problems.children)
        streams.error << "tovarek: " << ValueText(problem.value) << '\n';
    for (const Difference& difference : differences) {
        out << difference.path << ": ";
        WriteValue(difference.before, out);
        out << " -> ";
        WriteValue(difference.after, out);
        out << '\n';
    }
}

// Enough of a file to tell which input it is.
constexpr std::uint64_t kHintBytes = std::uint64_t{64} * 1024;

// Of a file that is of no kind the hint says what else it is, of a damaged one among `files` how it can be
// seen.
int ReportUnshown(Error& error, const std::vector<std::string>& files, OutputFormat format, Streams streams) {
    const ErrorContext& context = error.Context();
    const bool isShown = std::find(files.begin(), files.end(), context.file) != files.end();
    if (error.Number() == eQVXIFerr_QVX_editResult_erroropenfile && context.record.empty()) {
        if (const std::string hint = InputHint(ReadFile(context.file, kHintBytes)); !hint.empty())
            error.AddReason(hint);
    } else if (isShown && !context.record.empty()) {
        error.AddReason("'tovarek dump --bytes' shows what can be read of it");
    }
    return ReportError(error, format, streams);
}

}  // namespace

int RunDump(const std::string& path, const DumpOptions& options, Streams streams) {
    try {
        if (options.bytes)
            return DumpBytes(path, options.format, streams);
        const std::unique_ptr<CCatalog> catalog = CatalogOfNames(options.place);
        // The shipped catalog is made from published facts; a genuine file means other texts by most numbers.
        Inspection inspection =
            InspectFile(path, catalog == nullptr ? nullptr : catalog->types.Catalog(),
                        options.place.IsShipped() ? StandardTexts::published : StandardTexts::all);
        if (options.format == OutputFormat::json)
            streams.out << JsonDocument(inspection.tree);
        else
            streams.out << TreeText(inspection.tree);
        return kDone;
    } catch (Error& error) {
        return ReportUnshown(error, options.bytes ? std::vector<std::string>() : std::vector{path},
                             options.format, streams);
    }
}

int RunDiff(const std::string& before, const std::string& after, OutputFormat format, Streams streams) {
    try {
        const Inspection old = InspectFile(before, nullptr);
        const Inspection now = InspectFile(after, nullptr);
        if (old.kind != now.kind)
            return ReportWrongUse("files of different kinds cannot be compared: '" + before +
                                      "' is of kind " + std::string(KindName(old.kind)) + ", '" + after +
                                      "' of kind " + std::string(KindName(now.kind)),
                                  format, streams);
        const std::vector<Difference> differences = Compare(old.tree, now.tree);
        WriteDifferences(differences, ProblemsNode(old, now), format, streams);
        return differences.empty() ? kDone : kDifferent;
    } catch (Error& error) {
        // Not kFailed, which here tells of differences.
        ReportUnshown(error, {before, after}, format, streams);
        return kWrongUse;
    }
}

}  // namespace tovarek
