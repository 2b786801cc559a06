// Reader and writer of one INI file.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "support/IniText.h"
#include "system/Files.h"

namespace tovarek {

// Bound to one file by iniFile. Nothing is raised for a missing file, section or key: getters answer the
// default, writes fail in silence. IniText.h tells how a file is read. The file is read once and again only
// after it changed.
class cIni {
  public:
    // Path of the bound file, empty at first; a bare name means the current directory.
    const std::string& iniFile() const { return path_; }
    void iniFile(const std::string& path);

    std::int32_t GetLongValue(std::string_view section, std::string_view key, std::int32_t vDefault);
    // The number with a point that the text begins with, 0 when there is none. Deliberate: the default goes
    // through a text with the user's decimal separator, so that with a comma a default of 2.5 comes back as
    // 2.
    double GetDoubleValue(std::string_view section, std::string_view key, double vDefault);
    // True when the integer is not 0; words such as "true" are no integers and read as false.
    bool GetBoolValue(std::string_view section, std::string_view key, bool vDefault);
    // A colour, red + 256 x green + 65536 x blue, from the keys <key>RED, <key>GREEN and <key>BLUE.
    // Components above 255 count as 255, negative ones as they pack; one beyond 16 bits is runtime error 6.
    // Deliberate: the default is taken apart the other way round, so that without any of the keys the default
    // comes back with red and blue exchanged. Stored colours of old files depend on it.
    std::int32_t GetColorValue(std::string_view section, std::string_view key, std::int32_t vDefautlColor);
    // At most 999 characters, blanks trimmed at both ends.
    std::string GetStringValue(std::string_view section, std::string_view key, std::string_view vDefault);

    // Write the file at once; file, section and key are created as needed, comments kept, blank lines
    // dropped, all lines ended with CR LF. A value that stands there already changes nothing.
    void SetLongValue(std::string_view section, std::string_view key, std::int32_t new_value);
    void SetBoolValue(std::string_view section, std::string_view key, bool new_value);
    void SetStringValue(std::string_view section, std::string_view key, std::string_view new_value);

    // The file as it stands now. A loader that reads many values takes them all from one such state.
    std::shared_ptr<const IniText> Text();

  private:
    IniSection Section(std::string_view section);

    std::string path_;
    FileStamp stamp_;
    std::shared_ptr<const IniText> text_;
};

}  // namespace tovarek
