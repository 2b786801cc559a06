#include "cli/Json.h"

#include <algorithm>
#include <cmath>

#include "base/Text.h"
#include "explain/ErrorNames.h"
#include "system/Files.h"

namespace tovarek {
namespace {

Json RealJson(double value) {
    constexpr double kExact = 0x1p53;
    if (std::abs(value) < kExact && value == std::trunc(value))
        return static_cast<std::int64_t>(value);
    return value;
}

Json FindingJson(const CheckedFinding& finding) {
    Json json = {{"severity", finding.isError ? "error" : "warning"}, {"name", finding.name}};
    if (finding.isError) {
        json["error"] = finding.error;
        json["number"] = ShortNumber(finding.error);
        json["code"] = ErrorNumberText(finding.error);
    }
    json["message"] = finding.message;
    if (!finding.context.file.empty())
        json["file"] = SystemPath(finding.context.file);
    if (finding.context.line > 0)
        json["line"] = finding.context.line;
    if (finding.context.line > 0 && finding.column > 0) {
        json["column"] = finding.column;
        json["endColumn"] = finding.column + std::max(finding.width, 1);
    }
    json["order"] = finding.order;
    json["context"] = ContextJson(finding.context);
    Json notes = Json::array();
    for (const FindingNote& note : finding.notes) {
        Json row = {{"message", note.text}};
        if (note.line > 0) {
            row["file"] = SystemPath(note.file);
            row["line"] = note.line;
        }
        notes.push_back(std::move(row));
    }
    json["notes"] = std::move(notes);
    for (const Piece& piece : finding.mend)
        json["mend"].push_back({{"line", piece.line},
                                {"column", piece.column},
                                {"endColumn", piece.column + piece.width},
                                {"text", piece.text}});
    return json;
}

}  // namespace

std::string JsonText(const Json& json) {
    return json.dump(2, ' ', false, Json::error_handler_t::replace);
}

Json WrittenJson(const std::vector<std::string>& files) {
    Json written = Json::array();
    for (const std::string& file : files)
        written.push_back({{"file", SystemPath(file)}, {"bytes", StampOf(file).size}});
    return written;
}

Json ContextJson(const ErrorContext& context) {
    Json json = Json::object();
    const auto put = [&json](const char* key, const std::string& value) {
        if (!value.empty())
            json[key] = value;
    };
    put("record", context.record);
    put("field", context.field);
    if (!context.field.empty() || !context.value.empty())
        json["value"] = context.value;
    put("file", SystemPath(context.file));
    if (context.line > 0)
        json["line"] = context.line;
    put("reason", context.reason);
    return json;
}

Json ValueJson(const InspectNode::Value& value) {
    if (const auto* text = std::get_if<std::string>(&value))
        return *text;
    if (const auto* number = std::get_if<std::int64_t>(&value))
        return *number;
    if (const auto* real = std::get_if<double>(&value))
        return RealJson(*real);
    if (const auto* flag = std::get_if<bool>(&value))
        return *flag;
    return nullptr;
}

Json NodeJson(const InspectNode& node) {
    if (node.shape == InspectNode::Shape::value)
        return ValueJson(node.value);
    Json json = node.IsList() ? Json::array() : Json::object();
    for (const InspectNode& child : node.children) {
        if (node.IsList())
            json.push_back(NodeJson(child));
        else
            json[child.name] = NodeJson(child);
    }
    return json;
}

std::string JsonDocument(const InspectNode& tree) {
    Json json = {{"schema", kJsonSchema}};
    json.update(NodeJson(tree));
    return JsonText(json) + '\n';
}

Json ListingJson(const ByteListing& listing, std::string_view bytes) {
    Json rows = Json::array();
    for (const ByteRow& row : listing.rows) {
        Json& json = rows.emplace_back(Json::object());
        json["offset"] = row.offset;
        json["length"] = row.length;
        json["bytes"] = HexText(bytes.substr(row.offset, row.length));
        if (!row.record.empty())
            json["record"] = row.record;
        if (row.depth != 0)
            json["depth"] = row.depth;
        json["field"] = row.field;
        json["value"] = row.value;
    }
    return rows;
}

Json FindingsJson(const std::vector<CheckedFinding>& findings) {
    Json list = Json::array();
    for (const CheckedFinding& finding : findings)
        list.push_back(FindingJson(finding));
    return list;
}

}  // namespace tovarek
