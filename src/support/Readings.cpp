#include "support/Readings.h"

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

void Readings::TellUnread() {
    for (const auto& reading : ini_)
        reading->TellUnread(findings_);
}

}  // namespace tovarek
