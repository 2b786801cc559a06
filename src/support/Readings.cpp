#include "support/Readings.h"

#include <algorithm>

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
        if (known != marks_.end())
            marks = known->second;
        else
            marks_.emplace_back(file, marks);
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
