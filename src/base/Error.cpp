#include "base/Error.h"

#include <utility>

namespace tovarek {
namespace {

struct RuntimeErrorRow {
    RuntimeError number;
    std::string_view name;
    const char* message;
};

constexpr RuntimeErrorRow kRuntimeErrors[] = {
    {RuntimeError::overflow, "overflow", "Overflow"},
    {RuntimeError::outOfMemory, "outOfMemory", "Out of memory"},
    {RuntimeError::subscriptOutOfRange, "subscriptOutOfRange", "Subscript out of range"},
    {RuntimeError::typeMismatch, "typeMismatch", "Type mismatch"},
    {RuntimeError::outOfStackSpace, "outOfStackSpace", "Out of stack space"},
    {RuntimeError::fileNotFound, "fileNotFound", "File not found"},
    {RuntimeError::deviceIoError, "deviceIoError", "Device I/O error"},
    {RuntimeError::diskFull, "diskFull", "Disk full"},
    {RuntimeError::inputPastEndOfFile, "inputPastEndOfFile", "Input past end of file"},
    {RuntimeError::permissionDenied, "permissionDenied", "Permission denied"},
    {RuntimeError::pathFileAccessError, "pathFileAccessError", "Path/File access error"},
    {RuntimeError::pathNotFound, "pathNotFound", "Path not found"},
};

// A longer chain of records is cut; a type may nest a thousand levels.
constexpr std::size_t kLongestChain = 300;
constexpr std::string_view kLink = " > ";

// "inner" behind "outer". Who catches twice may say twice what it is about.
std::string Chained(const std::string& outer, const std::string& inner) {
    if (outer.empty() || inner.empty())
        return outer + inner;
    if (inner == outer || inner.starts_with(outer + std::string(kLink)))
        return inner;
    const std::size_t last = inner.rfind(kLink);
    if (inner.size() <= kLongestChain || last == std::string::npos)
        return outer + std::string(kLink) + inner;
    return outer + " > ..." + inner.substr(last);
}

}  // namespace

void ErrorContext::FillFrom(const ErrorContext& outer) {
    const auto fill = [](std::string& mine, const std::string& theirs) {
        if (mine.empty())
            mine = theirs;
    };
    record = Chained(outer.record, record);
    fill(field, outer.field);
    fill(value, outer.value);
    fill(file, outer.file);
    fill(reason, outer.reason);
    if (line == 0 && file == outer.file) {
        line = outer.line;
        column = outer.column;
    }
}

std::string ErrorContext::Sentence() const {
    std::string text;
    const auto add = [&text](const std::string& part) { text += (text.empty() ? "" : ", ") + part; };
    if (!record.empty())
        add("in " + record);
    if (!field.empty() || !value.empty())
        add((field.empty() ? "value" : field) + " \"" + value + '"');
    if (!file.empty())
        add("at " + file + (line > 0 ? ':' + std::to_string(line) : ""));
    if (!reason.empty())
        text += (text.empty() ? "" : ": ") + reason;
    return text;
}

Error::Error(std::int32_t number, std::string description, ErrorContext context)
    : number_(number), description_(std::move(description)), context_(std::move(context)) {
    Tell();
}

void Error::AddContext(const ErrorContext& outer) {
    context_.FillFrom(outer);
    Tell();
}

void Error::AddReason(const std::string& more) {
    context_.reason += (context_.reason.empty() ? "" : "; ") + more;
    Tell();
}

void Error::Tell() {
    what_ = description_;
    if (const std::string sentence = context_.Sentence(); !sentence.empty())
        what_ += " [" + sentence + ']';
}

std::string_view RuntimeErrorName(std::int32_t number) {
    for (const RuntimeErrorRow& row : kRuntimeErrors)
        if (static_cast<std::int32_t>(row.number) == number)
            return row.name;
    return {};
}

const char* RuntimeErrorMessage(RuntimeError error) {
    for (const RuntimeErrorRow& row : kRuntimeErrors)
        if (row.number == error)
            return row.message;
    return "Unexpected error";
}

void RaiseRuntimeError(RuntimeError error, ErrorContext context) {
    throw Error(static_cast<std::int32_t>(error), RuntimeErrorMessage(error), std::move(context));
}

}  // namespace tovarek
