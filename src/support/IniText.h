// The text of one INI file, read once and indexed by section. How sections, keys and values are recognised:
// - Lines end in CR LF, LF or CR. Blanks around a line are dropped. A line that begins with ";" is a comment.
// - "[name]" opens a section. Its name ends at the last "]" of the line, blanks inside the brackets are
//   trimmed. Of several sections with one name only the first exists, and in it only the first of several
//   keys with one name.
// - A key is what stands before the first "=" of a line. A line without "=" is no key, nor is one that stands
//   before the first section.
// - Blanks around a value are trimmed, then one pair of equal quotes (" or '). A NUL ends a value.
// - Names are compared without regard to case.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tovarek {

// How a file's text is encoded. A UTF-8 or UTF-16 mark at its start decides; without one it is in the 8-bit
// code page.
enum class IniEncoding { codePage, utf8, utf16LittleEndian, utf16BigEndian };

// The text of `bytes` in UTF-8, without a mark; `encoding` is told where wanted.
std::string DecodeIni(std::string bytes, IniEncoding* encoding = nullptr);
// The inverse, mark included. In the code page a text that begins like a mark gets an empty line in front.
std::string EncodeIni(std::string_view text, IniEncoding encoding);

struct CaselessHash {
    std::size_t operator()(std::string_view name) const;
};
struct CaselessEqual {
    bool operator()(std::string_view a, std::string_view b) const;
};

// Characters of a value that are read; what follows them is cut.
inline constexpr std::size_t kLongestIniValue = 999;

// The keys of one section. Valid as long as the IniText that filled it.
class IniSection {
  public:
    // The integer that the value begins with: tabs and blanks, a sign, decimal digits or 0x (a small x) and
    // hexadecimal ones; it wraps beyond 32 bits as on the platform. 0 when there is no digit (an empty value
    // included), `missing` when there is no such key.
    std::int32_t LongValue(std::string_view key, std::int32_t missing) const;

    // The value, at most 999 characters of it, blanks trimmed at both ends (tabs are kept); `missing`,
    // treated alike, when there is no such key.
    std::string StringValue(std::string_view key, std::string_view missing) const;

    // The value as it stands between its blanks and quotes, or a view of null when there is no such key.
    std::string_view RawValue(std::string_view key) const;

    // All keys, in the order of the file.
    std::vector<std::string> Keys() const;

  private:
    friend class IniText;
    struct Entry {
        std::string_view key;
        std::string_view value;
        mutable bool isAsked = false;
    };
    const Entry* Ask(std::string_view key) const;
    bool IsPlain() const;

    std::vector<Entry> entries_;
    std::size_t place_ = 0;         // in IniText::Bodies
    mutable bool isPlain_ = false;  // so far
};

// One section of a file as it lies there.
struct IniBody {
    std::string_view name;
    std::string_view header;
    std::string_view lines;  // behind the header line, up to the next header
    std::size_t first = 0;   // where the section with its name that counts stands in IniText::Bodies
    mutable bool isPlain = false;
};

// The text of an INI file and where its sections stand in it. Lookups cannot fail: what the file lacks is
// answered as missing.
class IniText {
  public:
    IniText() = default;
    // `text` is UTF-8 without a mark. It is indexed here and kept.
    explicit IniText(std::string text);
    IniText(const IniText&) = delete;
    IniText& operator=(const IniText&) = delete;

    // Fills `section` with the keys of the section `name`, with none when there is no such section.
    void ReadSection(std::string_view name, IniSection& section) const;

    bool HasSection(std::string_view name) const { return sections_.contains(name); }
    bool HasKey(std::string_view section, std::string_view key) const;
    // Where a section that exists stands in Bodies.
    std::size_t PlaceOf(std::string_view section) const { return sections_.find(section)->second; }

    // The number of sections that exist.
    std::size_t SectionCount() const { return sections_.size(); }

    // Calls `visit` with the name of every section that exists, in no order.
    void ForEachSection(const std::function<void(std::string_view name)>& visit) const;

    // Remembers a section that was read whole where all of it was read as it stands: every line is a key that
    // was asked for, an integer where that was asked, a text that was not cut. Warnings need not look there.
    void KeepPlain(const IniSection& section) const;
    bool IsPlain(std::string_view section) const;

    // Everything, and the sections in it, in order.
    std::string_view Whole() const { return text_; }
    const std::vector<IniBody>& Bodies() const { return bodies_; }

    // 1-based line of a place in the text; as LineOf.
    int LineAt(const char* place) const;
    // 1-based line of the key, of the section's header when it has no such key, 0 when there is no such
    // section. For messages: the first call counts the lines of the whole file.
    int LineOf(std::string_view section, std::string_view key) const;

  private:
    std::string text_;
    std::vector<IniBody> bodies_;
    mutable std::vector<const char*> lineStarts_;  // in order, once they were asked for
    std::unordered_map<std::string_view, std::size_t, CaselessHash, CaselessEqual> sections_;
};

// ---- the line rules, shared with the writer ----

// `line` without the blanks (VT, FF and control Z as well) around it, and without tabs in front; tabs at its
// end may belong to a value.
std::string_view TrimIniLine(std::string_view line);
// The section name when `line` (trimmed) is a section header; a view of null otherwise.
std::string_view IniSectionName(std::string_view line);
// Splits `line` (trimmed) at its first "=" into key and value, blanks around both trimmed; false when it is
// no key.
bool SplitIniKey(std::string_view line, std::string_view& key, std::string_view& value);
// What of a value is read: without one pair of equal quotes, up to a NUL.
std::string_view IniValue(std::string_view value);

// Whether a value, without its quotes, begins with one that nothing closes: it is part of the value.
bool BeginsOddly(std::string_view value);

// A value as an integer, by the rules of IniSection::LongValue.
struct IniInteger {
    std::int32_t value = 0;
    bool isWhole = false;  // the text is a number and nothing else
    bool wraps = false;    // the number is beyond 32 bits
};
IniInteger ReadIniInteger(std::string_view text);

// The number behind a prefix of a section's name, 0 when there is none: 7 for "nv7".
std::int32_t NumberBehind(std::string_view name, std::string_view prefix);

}  // namespace tovarek
