#include "support/Readings.h"

#include <algorithm>

#include "system/Files.h"

namespace tovarek {

IniReading& Readings::Ini(const std::string& path) {
    for (const auto& reading : ini_)
        if (reading->Path() == path || IdentityOf(reading->Path()) == IdentityOf(path))
            return *reading;
    IniReading& reading = *ini_.emplace_back(std::make_unique<IniReading>(path));
    reading.TellFile(findings_);
    return reading;
}

XmlReading& Readings::Xml(const XmlNode& root) {
    auto marks = std::make_shared<XmlMarks>();
    if (const std::string& file = root.File(); !file.empty()) {
        const auto known = std::find_if(marks_.begin(), marks_.end(), [&](const auto& row) {
            return row.first == file || IdentityOf(row.first) == IdentityOf(file);
        });
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
