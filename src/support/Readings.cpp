#include "support/Readings.h"

#include <algorithm>

#include "base/Text.h"
#include "system/Files.h"

namespace tovarek {
namespace {

// Two files that are missing are two all the same.
bool IsOneFile(const std::string& a, const std::string& b) {
    if (a == b)
        return true;
    const auto identity = IdentityOf(a);
    return identity && identity == IdentityOf(b);
}

// A declaration that names an 8-bit encoding over bytes that are UTF-8: each character above 7F becomes two
// or more others.
void TellEncoding(const std::string& file, FindingSink& findings) {
    std::string bytes;
    try {
        bytes = ReadFile(file);
    } catch (const Error&) {
        return;
    }
    const std::string_view head = std::string_view(bytes).substr(0, bytes.find("?>"));
    const bool isNamed =
        head.find("8859-") != std::string_view::npos || head.find("125") != std::string_view::npos;
    if (!bytes.starts_with("<?xml") || !isNamed || IsAscii(bytes) || !IsUtf8(bytes))
        return;
    findings.Take({.context = {.file = file,
                               .line = 1,
                               .reason = "the file is UTF-8, but its declaration names another encoding, in "
                                         "which it is read: write encoding=\"UTF-8\""},
                   .warning = Warning::encoding,
                   .part = LinePart::all});
}

}  // namespace

IniReading& Readings::Ini(const std::string& path, std::shared_ptr<const IniText> text) {
    if (IniReading* const known = FindIni(path))
        return *known;
    IniReading& reading = *ini_.emplace_back(std::make_unique<IniReading>(path, std::move(text)));
    reading.TellFile(findings_);
    return reading;
}

IniReading* Readings::FindIni(const std::string& path) const {
    for (const auto& reading : ini_)
        if (IsOneFile(reading->Path(), path))
            return reading.get();
    return nullptr;
}

XmlReading& Readings::Xml(const XmlNode& root) {
    auto marks = std::make_shared<XmlMarks>();
    if (const std::string& file = root.File(); !file.empty()) {
        const auto known = std::find_if(marks_.begin(), marks_.end(),
                                        [&](const auto& row) { return IsOneFile(row.first, file); });
        if (known != marks_.end()) {
            marks = known->second;
        } else {
            marks_.emplace_back(file, marks);
            TellEncoding(file, findings_);
        }
    }
    return *xml_.emplace_back(std::make_unique<XmlReading>(root, std::move(marks)));
}

void Readings::TellUnread() {
    for (const auto& reading : ini_)
        reading->TellUnread(findings_);
    for (const auto& reading : xml_)
        reading->TellUnread(findings_);
}

}  // namespace tovarek
