#include "support/cIni.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <vector>

#include "base/Numbers.h"
#include "base/Text.h"
#include "system/Clock.h"

namespace tovarek {
namespace {

std::string ReadOrEmpty(const std::string& path) {
    try {
        return ReadFile(path);
    } catch (const Error&) {
        // An unreadable file reads like an empty one.
        return {};
    }
}

// The lines of an INI file as they are rewritten: blank ones are gone.
std::vector<std::string> LinesOf(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::string_view line = TakeLine(text);
        if (!TrimIniLine(line).empty())
            lines.emplace_back(line);
    }
    return lines;
}

// Where a section's lines lie: [first, last) of the file's lines, header excluded.
struct SectionRange {
    bool exists = false;
    std::size_t first = 0;
    std::size_t last = 0;
};

SectionRange FindSection(const std::vector<std::string>& lines, std::string_view name) {
    SectionRange range;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const std::string_view header = IniSectionName(TrimIniLine(lines[i]));
        if (header.data() != nullptr && range.exists)
            break;
        if (header.data() != nullptr && CaselessEqual()(header, name))
            range = {true, i + 1, i + 1};
        else if (range.exists)
            range.last = i + 1;
    }
    return range;
}

// Puts `value` into the lines; false when it stands there already.
bool StoreValue(std::vector<std::string>& lines, std::string_view section, std::string_view key,
                std::string_view value) {
    const auto lineOf = [&](std::string_view name) { return std::string(name).append("=").append(value); };
    const SectionRange range = FindSection(lines, section);
    for (std::size_t i = range.first; i < range.last; ++i) {
        std::string_view storedKey;
        std::string_view storedValue;
        if (!SplitIniKey(TrimIniLine(lines[i]), storedKey, storedValue) || !CaselessEqual()(storedKey, key))
            continue;
        if (storedValue == value)
            return false;
        lines[i] = lineOf(storedKey);
        return true;
    }
    if (!range.exists) {
        lines.push_back(std::string("[").append(section).append("]"));
        lines.push_back(lineOf(key));
    } else {
        lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(range.last), lineOf(key));
    }
    return true;
}

// A component of a colour for packing.
std::int32_t ColorComponent(std::int32_t value) {
    if (value > std::numeric_limits<std::int16_t>::max() || value < std::numeric_limits<std::int16_t>::min())
        RaiseRuntimeError(RuntimeError::overflow);
    return std::min(value, 255);
}

}  // namespace

void cIni::iniFile(const std::string& path) {
    path_ = path;
    text_.reset();
}

std::shared_ptr<const IniText> cIni::Text() {
    const FileStamp stamp = StampOf(path_);
    if (!text_ || stamp != stamp_) {
        text_ = std::make_shared<const IniText>(DecodeIni(ReadOrEmpty(path_)));
        stamp_ = stamp;
    }
    return text_;
}

IniSection cIni::Section(std::string_view section) {
    IniSection keys;
    Text()->ReadSection(section, keys);
    return keys;
}

std::int32_t cIni::GetLongValue(std::string_view section, std::string_view key, std::int32_t vDefault) {
    return Section(section).LongValue(key, vDefault);
}

double cIni::GetDoubleValue(std::string_view section, std::string_view key, double vDefault) {
    std::string preset = DoubleToText(vDefault);
    if (const std::size_t point = preset.find('.'); point != std::string::npos)
        preset.replace(point, 1, DecimalSeparator());
    return LeadingNumber(GetStringValue(section, key, preset));
}

bool cIni::GetBoolValue(std::string_view section, std::string_view key, bool vDefault) {
    return GetLongValue(section, key, vDefault ? -1 : 0) != 0;
}

std::int32_t cIni::GetColorValue(std::string_view section, std::string_view key, std::int32_t vDefautlColor) {
    const auto component = [&](const char* color, std::int32_t preset) {
        return ColorComponent(GetLongValue(section, std::string(key) + color, preset));
    };
    // Integer part of the quotient, so that negative defaults come apart like positive ones.
    const std::int32_t red = component("RED", (vDefautlColor / 65536) & 255);
    const std::int32_t green = component("GREEN", (vDefautlColor / 256) & 255);
    const std::int32_t blue = component("BLUE", vDefautlColor & 255);
    const std::int64_t packed = red + std::int64_t{256} * green + std::int64_t{65536} * blue;
    if (packed < std::numeric_limits<std::int32_t>::min())
        RaiseRuntimeError(RuntimeError::overflow);
    return static_cast<std::int32_t>(packed);
}

std::string cIni::GetStringValue(std::string_view section, std::string_view key, std::string_view vDefault) {
    return Section(section).StringValue(key, vDefault);
}

void cIni::SetLongValue(std::string_view section, std::string_view key, std::int32_t new_value) {
    std::string text;
    AppendInteger(text, new_value);
    SetStringValue(section, key, text);
}

void cIni::SetBoolValue(std::string_view section, std::string_view key, bool new_value) {
    SetStringValue(section, key, new_value ? "1" : "0");
}

void cIni::SetStringValue(std::string_view section, std::string_view key, std::string_view new_value) {
    try {
        IniEncoding encoding = IniEncoding::codePage;
        // A file that is there but cannot be read must not be replaced by a nearly empty one.
        const std::string bytes = FileExists(path_) ? ReadFile(path_) : std::string();
        std::vector<std::string> lines = LinesOf(DecodeIni(bytes, &encoding));
        // Blanks in front of a value would be lost on reading; the platform drops them on writing.
        new_value.remove_prefix(std::min(new_value.find_first_not_of(' '), new_value.size()));
        if (!StoreValue(lines, section, key, new_value))
            return;
        std::string text;
        for (const std::string& line : lines)
            text.append(line).append("\r\n");
        WriteFile(path_, EncodeIni(text, encoding));
    } catch (const Error&) {
        // Deliberate: a failed write is silent.
    }
    text_.reset();
}

}  // namespace tovarek
