#include "formats/xif/XifProperties.h"

#include <algorithm>
#include <charconv>

#include "base/Text.h"

namespace tovarek {
namespace {

constexpr std::size_t kFewestFields = 5;  // up to the length
constexpr std::size_t kMostFields = 7;
constexpr std::int64_t kMostBytes = 1 << 20;
constexpr std::int64_t kTemplateType = 2;
constexpr std::int64_t kValueType = 1;
constexpr std::int64_t kConstantsIndex = 2;  // of the file that holds the constant properties alone

// At most `most` parts; the last one is all that is left.
std::vector<std::string_view> Split(std::string_view text, char separator, std::size_t most) {
    std::vector<std::string_view> parts;
    while (true) {
        const std::size_t end = parts.size() + 1 < most ? text.find(separator) : std::string_view::npos;
        parts.push_back(TrimBlanks(text.substr(0, end)));
        if (end == std::string_view::npos)
            return parts;
        text.remove_prefix(end + 1);
    }
}

bool AreDigits(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), IsDigit);
}

// The value of digits, something too large for what is beyond all.
std::int64_t Value(const std::string& digits) {
    std::int64_t value = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    return result.ec == std::errc::result_out_of_range ? kMostBytes + 1 : value;
}

// The flags are no digits, so the end of a record that was cut does not pass for the beginning of one.
bool IsScopeAndFlags(std::string_view text) {
    return !text.empty() && IsDigit(text[0]) && (text.size() == 1 || !IsDigit(text[1]));
}

XifProperty PropertyOf(std::string_view record) {
    XifProperty property;
    property.record = record;
    std::vector<std::string_view> parts = Split(record, ',', kMostFields);
    property.isKnown = parts.size() >= kFewestFields && parts[0].size() == 1 && IsDigit(parts[0][0]) &&
                       IsScopeAndFlags(parts[2]) && AreDigits(parts[3]) && AreDigits(parts[4]);
    if (!property.isKnown)
        return property;
    parts.resize(kMostFields);
    property.appliesTo = parts[0];
    property.select = parts[1];
    property.scope = parts[2].substr(0, 1);
    property.flags = parts[2].substr(1);
    property.type = parts[3];
    property.length = parts[4];
    property.count = parts[5];
    property.range = parts[6];
    return property;
}

bool BeginsWithRecord(std::string_view line) {
    return PropertyOf(line.substr(0, line.find(';'))).isKnown;
}

// The lines of the text, those that do not begin with a record joined to the one before.
std::vector<std::string> RecordLines(const XifContent& content) {
    std::vector<std::string> lines;
    const std::vector<std::size_t>& starts = content.lineStarts;
    for (std::size_t i = 0; i < starts.size(); ++i) {
        const std::size_t end = i + 1 < starts.size() ? starts[i + 1] : content.text.size();
        const std::string_view line = std::string_view(content.text).substr(starts[i], end - starts[i]);
        if (lines.empty() || BeginsWithRecord(line))
            lines.emplace_back(line);
        else
            lines.back() += line;
    }
    return lines;
}

// What stands behind a record in its line, and is none, is its name.
void AddRecords(std::string_view line, std::vector<XifProperty>& properties) {
    bool isBehindRecord = false;
    for (const std::string_view part : Split(line, ';', std::string_view::npos)) {
        if (part.empty())
            continue;
        XifProperty property = PropertyOf(part);
        if (!property.isKnown && isBehindRecord) {
            std::string& name = properties.back().name;
            name += (name.empty() ? "" : ";") + property.record;
            continue;
        }
        isBehindRecord = property.isKnown;
        properties.push_back(std::move(property));
    }
}

// The byte behind "\x"; 0 where there is none.
unsigned FlagsOf(std::string_view flags) {
    unsigned value = 0;
    if (flags.starts_with("\\x"))
        std::from_chars(flags.data() + 2, flags.data() + flags.size(), value, 16);
    return value;
}

const XifSection* ValueSection(const XifFile& file, bool ofConstants) {
    for (const XifSection& section : file.sections)
        if (section.type == kValueType && (section.index == kConstantsIndex) == ofConstants)
            return &section;
    return nullptr;
}

}  // namespace

std::string XifProperty::Key() const {
    if (!isKnown)
        return record;
    return name.empty() ? appliesTo + ',' + select + ',' + scope + ',' + type : name;
}

std::int64_t XifProperty::Bytes() const {
    const std::int64_t elements = AreDigits(count) ? std::max<std::int64_t>(1, Value(count)) : 1;
    return !isKnown || Value(length) > kMostBytes || elements > kMostBytes ? -1 : Value(length) * elements;
}

bool XifProperty::IsConstant() const {
    constexpr unsigned kConstant = 0x04;
    return (FlagsOf(flags) & kConstant) != 0;
}

bool XifProperty::IsMakersOnly() const {
    constexpr unsigned kMakersOnly = 0x20;
    return (FlagsOf(flags) & kMakersOnly) != 0;
}

const XifSection* XifTemplateSection(const XifFile& file) {
    for (const XifSection& section : file.sections)
        if (section.type == kTemplateType)
            return &section;
    return nullptr;
}

XifPropertyTemplate ReadXifTemplate(const XifFile& file) {
    XifPropertyTemplate result;
    const XifSection* section = XifTemplateSection(file);
    if (section == nullptr)
        return result;
    std::vector<std::string> lines = RecordLines(section->content);
    if (!lines.empty() && !BeginsWithRecord(lines[0])) {
        const std::size_t end = std::min(lines[0].find(';'), lines[0].size());
        result.version = lines[0].substr(0, end);
        lines[0].erase(0, end);
    }
    for (const std::string& line : lines)
        AddRecords(line, result.properties);
    return result;
}

std::vector<XifPropertyValue> XifPropertyValues(const XifFile& file, const XifSection& section,
                                                const std::vector<XifProperty>& properties) {
    const XifSection* constants = ValueSection(file, true);
    if (&section != constants && &section != ValueSection(file, false))
        return {};
    std::vector<XifPropertyValue> values;
    std::string_view rest = section.content.bytes;
    for (const XifProperty& property : properties) {
        if (constants != nullptr && property.IsConstant() != (&section == constants))
            continue;
        const std::int64_t size = property.Bytes();
        if (size < 0 || size > static_cast<std::int64_t>(rest.size()))
            return {};
        values.push_back({&property, rest.substr(0, static_cast<std::size_t>(size))});
        rest.remove_prefix(static_cast<std::size_t>(size));
    }
    return rest.empty() ? values : std::vector<XifPropertyValue>();
}

std::vector<XifDefaultValue> XifDefaultValues(const XifFile& file) {
    std::string_view rest = file.values ? std::string_view(file.values->bytes) : std::string_view();
    std::vector<XifDefaultValue> values;
    for (const XifVariable& variable : file.variables) {
        if (variable.Attribute(placeConfiguration) != 1)
            continue;
        const std::int64_t count = std::max<std::int64_t>(1, variable.Number(3).value_or(0));
        if (count > 0xFFFF || count * variable.Size() > static_cast<std::int64_t>(rest.size()))
            return {};
        const auto size = static_cast<std::size_t>(count * variable.Size());
        values.push_back({&variable, rest.substr(0, size)});
        rest.remove_prefix(size);
    }
    return rest.empty() ? values : std::vector<XifDefaultValue>();
}

}  // namespace tovarek
