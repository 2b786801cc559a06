// How an INI file was read, for warnings: the lines that are not plainly what a loader read, and which of
// them the loaders of a job asked for. What is read otherwise than it was written is told when it is asked
// for, what nobody asked for in the end. Put together only when somebody listens.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
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
    // What `read` means in a field, and what to write in place of what was typed. Asked only of a value that
    // is no number.
    using Explain = std::function<Advice(std::string_view typed, std::int32_t read)>;

    // What messages call the record that a value belongs to; asked only where there is something to tell.
    using Title = std::function<std::string()>;

    // `text`: the file as a loader has read it, with what it found to be plain.
    IniReading(std::string path, std::shared_ptr<const IniText> text);
    IniReading(const IniReading&) = delete;
    IniReading& operator=(const IniReading&) = delete;

    // Tells what holds for the whole file: its encoding, sections and keys that occur twice.
    void TellFile(FindingSink& findings) const;

    // The loaders read the key as an integer.
    void Integer(std::string_view section, std::string_view key, const Title& record, const Explain& explain,
                 FindingSink& findings);
    // The loaders read the key as a text.
    void Text(std::string_view section, std::string_view key, const Title& record, FindingSink& findings);

    // Whether a loader has read all of the section as it stands, so that none of it need be told.
    bool IsPlain(std::string_view section) const { return text_->IsPlain(section); }
    // What the section holds is meant for somebody who does not read in this job.
    void Skip(std::string_view section);

    bool HasSection(std::string_view section) const { return text_->HasSection(section); }
    bool HasKey(std::string_view section, std::string_view key) const { return text_->HasKey(section, key); }
    // Lines, for places of what is told elsewhere; 0 for what does not exist.
    int LineOf(std::string_view section, std::string_view key = {}) const {
        return text_->LineOf(section, key);
    }

    // Sections that begin with `prefix` and a number are read as far as the key `count` of `section` says,
    // which may be `most` at most. Told before the count is read.
    void Numbered(std::string_view prefix, std::string_view section, std::string_view count,
                  std::int32_t most);

    // Tells the sections, keys and lines that nobody asked for.
    void TellUnread(FindingSink& findings);

    const std::string& Path() const { return path_; }

  private:
    enum class Kind { key, other };
    // Lines are counted when there is something to tell of them.
    struct Line {
        Kind kind = Kind::key;
        std::string_view key;         // the line itself for one that is no key
        std::string_view value;       // without quotes
        const char* first = nullptr;  // the key with its name that counts; null: it is that one
        bool isAsked = false;
    };
    struct Section {
        const IniBody* body = nullptr;  // nothing for what precedes every section
        bool isFirst = true;            // of its name
        bool isAsked = false;
        std::uint64_t names = 0;  // a bit for each kind of name among the keys
        std::vector<Line> lines;  // none of a plain section
    };
    struct NumberedSections {
        std::string_view prefix;
        std::string_view section;
        std::string_view count;
        std::int32_t most = 0;
        // Of the finding that explains why such sections are not read, once it was asked for.
        mutable std::optional<int> causeLine{};
        mutable std::optional<std::int32_t> countMeant{};
        int firstUnread = 0;  // of the first such section that is not read; it tells for all
    };

    using FirstKeys = std::unordered_map<std::string_view, const char*, CaselessHash, CaselessEqual>;
    static const char* FirstOf(const Section& section, const Line& entry, FirstKeys& keys);
    static void Scan(std::string_view lines, Section& section);
    static void ScanLine(std::string_view line, Section& section, FirstKeys& keys);
    int LineOf(const Section& section) const { return text_->LineAt(section.body->header.data()); }
    int LineOf(const Line& line) const { return text_->LineAt(line.key.data()); }
    std::string_view Value(std::string_view section, std::string_view key) const;
    Line* Ask(std::string_view section, std::string_view key);
    void Tell(Warning warning, const Line& line, std::string_view key, const Title& record,
              std::string reason, FindingSink& findings) const;
    Finding At(Warning warning, int line, LinePart part, std::string reason) const;
    void TellEncoding(FindingSink& findings) const;
    void TellBehindHeader(const Section& section, FindingSink& findings) const;
    std::vector<Section>::const_iterator FirstNumbered(const NumberedSections& row) const;
    int LineMeantFor(const NumberedSections& row) const;
    int CauseLine(const NumberedSections& row) const;
    int LineOfCount(const NumberedSections& row) const;
    std::int32_t CountSections(const NumberedSections& row) const;
    std::int32_t CountMeant(const NumberedSections& row) const;
    Advice AdviceOn(std::string_view section, std::string_view key) const;
    void TellMissingCount(const NumberedSections& row, FindingSink& findings) const;
    static std::string OtherKind(std::string_view bytes);
    bool TellWrongFile(FindingSink& findings) const;
    std::optional<Finding> UnreadSection(const Section& section);
    std::optional<Finding> UnreadNumbered(const Section& section, NumberedSections& row) const;
    std::vector<std::string> MissingKeys(std::size_t place) const;
    void TellUnreadLines(const Section& section, const std::vector<std::string>& missing,
                         FindingSink& findings);
    int CauseOfHeader(const Line& line) const;
    bool IsMissingSection(std::string_view name) const;
    Finding BrokenHeader(const Line& line, std::string reason) const;
    bool IsHeader(std::string_view line) const;
    std::string SectionOfKey(std::string_view key) const;
    int LineOfStray(std::string_view key) const;
    Finding StrayKey(const Line& line, const std::string& section);
    Finding UnreadLine(const Section& section, const Line& line, const std::vector<std::string>& missing);
    Finding LineWithoutKey(const Section& section, const Line& line,
                           const std::vector<std::string>& missing) const;

    std::string path_;
    std::shared_ptr<const IniText> text_;
    std::vector<Section> all_;                  // what precedes every section, then those of the file
    std::vector<std::string> missingSections_;  // asked for and not there; the first ones
    std::vector<std::pair<std::string, std::string_view>> askedNowhere_;  // sections and keys; the first ones
    std::map<std::string, int> strays_;  // the first line that belongs into a section, by that
    std::vector<NumberedSections> numbered_;
    // Every key that was asked for, by its section's place in all_. Most files are asked for all that they
    // hold, so this is looked into only where something is left.
    std::vector<std::pair<std::size_t, std::string_view>> asked_;
    std::string lastName_;  // of the section that was asked for last, and its place
    std::size_t lastPlace_ = 0;
};

}  // namespace tovarek
