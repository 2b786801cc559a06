// How an INI file was read, for warnings: every line of it with its place, and which of them the loaders of a
// job asked for. What is read otherwise than it was written is told when it is asked for, what nobody asked
// for in the end. Put together only when somebody listens.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "support/Findings.h"
#include "support/IniText.h"

namespace tovarek {

class IniReading {
  public:
    // What `read` means in a field, and what to write in place of what was typed: "an input. For an output
    // write direction=1". Asked only of a value that is no number.
    using Explain = std::function<std::string(std::string_view typed, std::int32_t read)>;

    // What messages call the record that a value belongs to; asked only where there is something to tell.
    using Title = std::function<std::string()>;

    // Reads the file; one that cannot be read holds nothing, as for the loaders.
    explicit IniReading(std::string path);
    IniReading(const IniReading&) = delete;
    IniReading& operator=(const IniReading&) = delete;

    // Tells what holds for the whole file: its encoding, sections and keys that occur twice.
    void TellFile(FindingSink& findings) const;

    // The loaders read the key as an integer.
    void Integer(std::string_view section, std::string_view key, const Title& record, const Explain& explain,
                 FindingSink& findings);
    // The loaders read the key as a text.
    void Text(std::string_view section, std::string_view key, const Title& record, FindingSink& findings);

    bool HasSection(std::string_view section) const { return sections_.contains(section); }
    bool HasKey(std::string_view section, std::string_view key) const;
    // Lines, for places of what is told elsewhere; 0 for what does not exist.
    int LineOf(std::string_view section, std::string_view key = {}) const;

    // Sections that begin with `prefix` and a number are read as far as the key `count` of `section` says.
    void Numbered(std::string_view prefix, std::string_view section, std::string_view count);

    // Tells the sections, keys and lines that nobody asked for.
    void TellUnread(FindingSink& findings);

    const std::string& Path() const { return path_; }

  private:
    enum class Kind { key, other };
    struct Line {
        int number = 0;
        Kind kind = Kind::key;
        std::string_view key;    // the line itself for one that is no key
        std::string_view value;  // without quotes
        int firstLine = 0;       // of the key with its name that counts; 0: it is that one
        bool isAsked = false;
    };
    struct Section {
        std::string_view name;
        int line = 0;
        int firstLine = 0;  // of the section with its name that counts; 0: it is that one
        bool isAsked = false;
        std::uint64_t names = 0;  // a bit for each kind of name among the keys
        std::vector<Line> lines;
    };
    struct NumberedSections {
        std::string_view prefix;
        std::string_view section;
        std::string_view count;
        int causeLine = 0;  // of the finding that explains why such sections are not read
    };

    void Scan();
    using FirstLines = std::unordered_map<std::string_view, int, CaselessHash, CaselessEqual>;
    static int FirstLine(const Section& section, const Line& entry, FirstLines& keys);
    void ScanLine(std::string_view line, int number, FirstLines& keys);
    Line* Ask(std::string_view section, std::string_view key);
    const Line* Find(std::string_view section, std::string_view key) const;
    Finding At(Warning warning, int line, LinePart part, std::string reason) const;
    void TellEncoding(FindingSink& findings) const;
    int LineMeantFor(const NumberedSections& row) const;
    int LineOfCount(const NumberedSections& row) const;
    void TellMissingCount(const NumberedSections& row, FindingSink& findings) const;
    void TellUnreadSection(const Section& section, FindingSink& findings) const;
    std::vector<std::string> MissingKeys(std::size_t place) const;
    void TellUnreadLines(const Section& section, const std::vector<std::string>& missing,
                         FindingSink& findings) const;
    void TellUnreadLine(const Section& section, const Line& line, const std::vector<std::string>& missing,
                        FindingSink& findings) const;

    std::string path_;
    std::string bytes_;
    std::string text_;
    IniEncoding encoding_ = IniEncoding::codePage;
    std::vector<Section> all_;  // the first stands for what precedes every section
    std::unordered_map<std::string_view, std::size_t, CaselessHash, CaselessEqual> sections_;
    std::vector<std::string> missingSections_;  // asked for and not there; the first ones
    std::vector<NumberedSections> numbered_;
    // Every key that was asked for, by its section's place in all_. Most files are asked for all that they
    // hold, so this is looked into only where something is left.
    std::vector<std::pair<std::size_t, std::string_view>> asked_;
    std::string lastName_;  // of the section that was asked for last, and its place
    std::size_t lastPlace_ = 0;
};

}  // namespace tovarek
