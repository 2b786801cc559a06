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

}  // namespace

bool ErrorContext::IsEmpty() const {
    return record.empty() && field.empty() && value.empty() && file.empty() && line == 0 && reason.empty();
}

void ErrorContext::FillFrom(const ErrorContext& outer) {
    const auto fill = [](std::string& mine, const std::string& theirs) {
        if (mine.empty())
            mine = theirs;
    };
    fill(record, outer.record);
    fill(field, outer.field);
    fill(value, outer.value);
    fill(file, outer.file);
    fill(reason, outer.reason);
    if (line == 0 && file == outer.file)
        line = outer.line;
}

Error::Error(std::int32_t number, std::string description, ErrorContext context)
    : number_(number), description_(std::move(description)), context_(std::move(context)) {}

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
