#include "support/IniText.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/Text.h"
#include "system/CodePage.h"

namespace tovarek {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kLittleEndianMark = "\xFF\xFE";
constexpr std::string_view kBigEndianMark = "\xFE\xFF";

// A set of characters as a table: the searches of std::string_view call a function for each character, and
// every line is trimmed several times.
class CharacterSet {
  public:
    explicit constexpr CharacterSet(std::string_view characters) {
        for (const char c : characters)
            has_[static_cast<unsigned char>(c)] = true;
    }
    constexpr bool Has(char c) const { return has_[static_cast<unsigned char>(c)]; }

  private:
    std::array<bool, 256> has_{};
};

// Control Z counts as a blank: files that come from very old systems end in one.
constexpr CharacterSet kLineBlanks(" \t\v\f\r\x1A");
// Tabs at the ends of a value belong to it.
constexpr CharacterSet kValueBlanks(" \v\f\r\x1A");

std::string_view TrimStart(std::string_view text, const CharacterSet& blanks) {
    std::size_t first = 0;
    while (first < text.size() && blanks.Has(text[first]))
        ++first;
    return text.substr(first);
}

std::string_view TrimEnd(std::string_view text, const CharacterSet& blanks) {
    std::size_t size = text.size();
    while (size > 0 && blanks.Has(text[size - 1]))
        --size;
    return text.substr(0, size);
}

std::string_view WithoutBlanks(std::string_view text, const CharacterSet& blanks) {
    return TrimEnd(TrimStart(text, blanks), blanks);
}

std::string_view WithoutQuotes(std::string_view value) {
    const bool quoted =
        value.size() >= 2 && value.front() == value.back() && (value.front() == '"' || value.front() == '\'');
    return quoted ? value.substr(1, value.size() - 2) : value;
}

}  // namespace

IniInteger ReadIniInteger(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\v\f\r\n";
    std::string_view rest = text.substr(std::min(text.find_first_not_of(kBlanks), text.size()));
    const bool negative = rest.starts_with('-');
    if (negative || rest.starts_with('+'))
        rest.remove_prefix(1);
    int base = 10;
    // Only the small x makes a number hexadecimal; the platform reads 0X1F as 0.
    if (rest.starts_with("0x")) {
        base = 16;
        rest.remove_prefix(2);
    }
    IniInteger read;
    std::uint32_t value = 0;
    std::size_t digits = 0;
    for (; digits < rest.size(); ++digits) {
        const int digit = HexValue(rest[digits]);
        if (digit < 0 || digit >= base)
            break;
        const std::uint64_t next =
            std::uint64_t{value} * static_cast<std::uint64_t>(base) + static_cast<std::uint64_t>(digit);
        read.wraps = read.wraps || next > INT32_MAX;
        value = static_cast<std::uint32_t>(next);
    }
    read.isWhole = digits > 0 && rest.find_first_not_of(kBlanks, digits) == std::string_view::npos;
    read.value = static_cast<std::int32_t>(negative ? 0U - value : value);
    // The smallest number has no positive counterpart.
    read.wraps = read.wraps && !(negative && base == 10 && read.value == INT32_MIN && digits <= 10);
    return read;
}

std::string_view IniValue(std::string_view value) {
    value = WithoutQuotes(value);
    return value.substr(0, value.find('\0'));
}

std::string DecodeIni(std::string bytes, IniEncoding* encoding) {
    IniEncoding found = IniEncoding::codePage;
    const std::string_view view = bytes;
    if (view.starts_with(kUtf8Mark))
        found = IniEncoding::utf8;
    else if (view.starts_with(kLittleEndianMark))
        found = IniEncoding::utf16LittleEndian;
    else if (view.starts_with(kBigEndianMark))
        found = IniEncoding::utf16BigEndian;
    if (encoding != nullptr)
        *encoding = found;
    switch (found) {
        case IniEncoding::utf8:
            return bytes.substr(kUtf8Mark.size());
        case IniEncoding::utf16LittleEndian:
        case IniEncoding::utf16BigEndian:
            return FromUtf16(view.substr(2), found == IniEncoding::utf16BigEndian);
        case IniEncoding::codePage:
            break;
    }
    return IsAscii(bytes) ? std::move(bytes) : FromCodePage(bytes);
}

std::string EncodeIni(std::string_view text, IniEncoding encoding) {
    switch (encoding) {
        case IniEncoding::utf8:
            return std::string(kUtf8Mark).append(text);
        case IniEncoding::utf16LittleEndian:
            return std::string(kLittleEndianMark) + ToUtf16(text, false);
        case IniEncoding::utf16BigEndian:
            return std::string(kBigEndianMark) + ToUtf16(text, true);
        case IniEncoding::codePage:
            break;
    }
    std::string bytes = ToCodePage(text);
    // Text that begins like a mark would be read as what the mark says.
    for (const std::string_view mark : {kUtf8Mark, kLittleEndianMark, kBigEndianMark})
        if (bytes.starts_with(mark))
            return "\r\n" + bytes;
    return bytes;
}

std::size_t CaselessHash::operator()(std::string_view name) const {
    if (!IsAscii(name))
        return std::hash<std::string>()(UpperCase(name));
    std::uint64_t hash = 14695981039346656037U;
    for (const char c : name)
        hash = (hash ^ static_cast<unsigned char>(AsciiUpper(c))) * 1099511628211U;
    // Where a size has 32 bits the upper half must still count.
    return static_cast<std::size_t>(hash ^ (sizeof(std::size_t) < sizeof hash ? hash >> 32U : 0));
}

bool CaselessEqual::operator()(std::string_view a, std::string_view b) const {
    if (a.size() != b.size())
        return false;
    const auto isAscii = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (a[i] == b[i])
            continue;
        if (!isAscii(a[i]) && !isAscii(b[i]))
            return UpperCase(a) == UpperCase(b);
        if (AsciiUpper(a[i]) != AsciiUpper(b[i]))
            return false;
    }
    return true;
}

std::string_view TrimIniLine(std::string_view line) {
    return TrimEnd(TrimStart(line, kLineBlanks), kValueBlanks);
}

std::string_view IniSectionName(std::string_view line) {
    if (!line.starts_with('['))
        return {};
    const std::size_t end = line.rfind(']');
    return end == std::string_view::npos ? std::string_view()
                                         : WithoutBlanks(line.substr(1, end - 1), kLineBlanks);
}

bool SplitIniKey(std::string_view line, std::string_view& key, std::string_view& value) {
    const std::size_t equals = line.find('=');
    if (line.starts_with(';') || equals == std::string_view::npos)
        return false;
    key = WithoutBlanks(line.substr(0, equals), kLineBlanks);
    value = WithoutBlanks(line.substr(equals + 1), kValueBlanks);
    return true;
}

const IniSection::Entry* IniSection::Ask(std::string_view key) const {
    const CaselessEqual equal;
    // Most keys differ in their first letter; that is seen without a call.
    const bool isPlain = !key.empty() && static_cast<unsigned char>(key[0]) < 0x80;
    const char first = isPlain ? AsciiUpper(key[0]) : '\0';
    for (const Entry& entry : entries_) {
        if (entry.key.size() != key.size() || (isPlain && AsciiUpper(entry.key[0]) != first))
            continue;
        if (equal(entry.key, key)) {
            entry.isAsked = true;
            return &entry;
        }
    }
    return nullptr;
}

bool BeginsOddly(std::string_view value) {
    return value.size() > 1 && (value.front() == '"' || value.front() == '\'');
}

bool IniSection::IsPlain() const {
    return isPlain_ &&
           std::all_of(entries_.begin(), entries_.end(), [](const Entry& entry) { return entry.isAsked; });
}

std::string_view IniSection::RawValue(std::string_view key) const {
    const Entry* const entry = Ask(key);
    return entry == nullptr ? std::string_view() : entry->value;
}

std::vector<std::string> IniSection::Keys() const {
    std::vector<std::string> keys;
    for (const Entry& entry : entries_)
        keys.emplace_back(entry.key);
    return keys;
}

std::int32_t IniSection::LongValue(std::string_view key, std::int32_t missing) const {
    const std::string_view value = RawValue(key);
    if (value.data() == nullptr)
        return missing;
    const IniInteger read = ReadIniInteger(value);
    isPlain_ = isPlain_ && read.isWhole && !read.wraps;
    return read.value;
}

std::string IniSection::StringValue(std::string_view key, std::string_view missing) const {
    const std::string_view found = RawValue(key);
    const std::string_view value = TrimBlanks(found.data() == nullptr ? missing : found);
    isPlain_ = isPlain_ && !BeginsOddly(value);
    if (value.size() <= kLongestIniValue)
        return std::string(value);
    isPlain_ = false;
    return std::string(TrimBlanks(FirstCharacters(value, kLongestIniValue)));
}

IniText::IniText(std::string text) : text_(std::move(text)) {
    // Only lines that begin with "[" are looked at here; those between them wait until their section is read.
    const std::string_view all = text_;
    for (std::size_t bracket = all.find('['); bracket != std::string_view::npos;) {
        std::size_t start = bracket;
        while (start > 0 && kLineBlanks.Has(all[start - 1]) && all[start - 1] != '\r')
            --start;
        const bool beginsLine = start == 0 || all[start - 1] == '\n' || all[start - 1] == '\r';
        std::string_view rest = all.substr(beginsLine ? start : bracket);
        const std::string_view line = TrimIniLine(TakeLine(rest));
        bracket = all.find('[', all.size() - rest.size());
        const std::string_view name = IniSectionName(line);
        if (!beginsLine || name.data() == nullptr)
            continue;
        if (!bodies_.empty()) {
            std::string_view& lines = bodies_.back().lines;
            lines = lines.substr(0, static_cast<std::size_t>(all.data() + start - lines.data()));
        }
        // The second of two sections with one name does not exist, but it ends the one before it.
        const std::size_t first = sections_.try_emplace(name, bodies_.size()).first->second;
        bodies_.push_back({.name = name, .header = line, .lines = rest, .first = first});
    }
}

void IniText::ReadSection(std::string_view name, IniSection& section) const {
    section.entries_.clear();
    section.isPlain_ = false;
    const auto found = sections_.find(name);
    if (found == sections_.end())
        return;
    section.place_ = found->second;
    section.isPlain_ = true;
    std::string_view rest = bodies_[found->second].lines;
    while (!rest.empty()) {
        const std::string_view line = TrimIniLine(TakeLine(rest));
        IniSection::Entry entry;
        if (!SplitIniKey(line, entry.key, entry.value)) {
            section.isPlain_ = section.isPlain_ && (line.empty() || line.starts_with(';'));
            continue;
        }
        entry.value = IniValue(entry.value);
        section.entries_.push_back(entry);
    }
}

bool IniText::HasKey(std::string_view section, std::string_view key) const {
    IniSection keys;
    ReadSection(section, keys);
    return keys.RawValue(key).data() != nullptr;
}

void IniText::KeepPlain(const IniSection& section) const {
    if (section.IsPlain())
        bodies_[section.place_].isPlain = true;
}

bool IniText::IsPlain(std::string_view section) const {
    const auto found = sections_.find(section);
    return found != sections_.end() && bodies_[found->second].isPlain;
}

void IniText::ForEachSection(const std::function<void(std::string_view name)>& visit) const {
    for (const auto& [name, place] : sections_)
        visit(name);
}

int IniText::LineOf(std::string_view section, std::string_view key) const {
    const auto found = sections_.find(section);
    if (found == sections_.end())
        return 0;
    IniSection keys;
    ReadSection(section, keys);
    const char* place = bodies_[found->second].header.data();
    for (const IniSection::Entry& entry : keys.entries_)
        if (CaselessEqual()(entry.key, key)) {
            place = entry.key.data();
            break;
        }
    return LineAt(place);
}

int IniText::LineAt(const char* place) const {
    if (lineStarts_.empty())
        for (std::string_view rest = text_; !rest.empty(); TakeLine(rest))
            lineStarts_.push_back(rest.data());
    const auto next = std::upper_bound(lineStarts_.begin(), lineStarts_.end(), place);
    return static_cast<int>(next - lineStarts_.begin());
}

std::int32_t NumberBehind(std::string_view name, std::string_view prefix) {
    if (name.size() <= prefix.size() || !CaselessEqual()(name.substr(0, prefix.size()), prefix))
        return 0;
    const IniInteger number = ReadIniInteger(name.substr(prefix.size()));
    const bool isPlain = IsDigit(name[prefix.size()]) && name[prefix.size()] != '0';
    return isPlain && number.isWhole && !number.wraps ? number.value : 0;
}

}  // namespace tovarek
