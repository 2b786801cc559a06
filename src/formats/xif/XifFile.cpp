#include "formats/xif/XifFile.h"

#include <algorithm>
#include <charconv>

#include "base/Text.h"
#include "formats/xif/XifValues.h"
#include "system/CodePage.h"

namespace tovarek {
namespace {

constexpr int kFirstParameters = 6;
constexpr std::size_t kAttributes = 13;
constexpr char kEndOfText = '\x1A';

bool IsHexPairs(std::string_view text) {
    if (text.size() != 23)
        return false;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (i % 3 == 2 ? text[i] != ':' : !IsHexDigit(text[i]))
            return false;
    return true;
}

// Words between blanks and tabs.
std::vector<std::string_view> Words(std::string_view line) {
    std::vector<std::string_view> words;
    while (true) {
        line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
        if (line.empty())
            return words;
        const std::size_t end = std::min(line.find_first_of(" \t"), line.size());
        words.push_back(line.substr(0, end));
        line.remove_prefix(end);
    }
}

bool ParseNumber(std::string_view word, XifNumber& number) {
    number.reset();
    if (word == "*")
        return true;
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
    number = value;
    return error == std::errc() && end == word.data() + word.size();
}

bool IsControl(char c) {
    return static_cast<unsigned char>(c) < 0x20 && c != '\t';
}

class XifReader {
  public:
    XifReader(std::string_view bytes, XifFile& file) : bytes_(bytes), file_(file) {}

    Outcome Read() {
        if (ReadHeader() && ReadParameters() &&
            ReadDocumentation("program self-documentation", file_.documentation))
            ReadRecords();
        if (!outcome_.Ok())
            return outcome_;
        file_.attachedAt = position_;
        file_.attached = bytes_.substr(position_);
        return {};
    }

  private:
    // ---- lines ----

    // The next line without its line end, false at the end of the text: of the file, at the byte 1A, or
    // before bytes that are no text.
    bool Peek(std::string_view& line) {
        line = {};
        if (position_ >= bytes_.size())
            return false;
        const std::size_t end = std::min(bytes_.find('\n', position_), bytes_.size());
        line = bytes_.substr(position_, end - position_);
        next_ = std::min(end + 1, bytes_.size());
        // The mark may follow the last line without a line end.
        if (const std::size_t mark = line.find(kEndOfText); mark != std::string_view::npos) {
            line = line.substr(0, mark);
            next_ = position_ + mark;
            if (mark == 0)
                return false;
        }
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        return std::none_of(line.begin(), line.end(), IsControl);
    }

    void Accept(std::string role) {
        file_.lineRoles.push_back(std::move(role));
        position_ = next_;
        ++number_;
    }

    // The next line that is no comment; comments on the way are taken.
    bool PeekContent(std::string_view& line) {
        while (Peek(line)) {
            const std::size_t first = line.find_first_not_of(" \t");
            if (first == std::string_view::npos || line[first] != '#')
                return true;
            file_.comments.push_back({number_, FromCodePage(line.substr(first + 1))});
            Accept("comment");
        }
        return false;
    }

    static bool IsEmpty(std::string_view line) {
        return line.find_first_not_of(" \t") == std::string_view::npos;
    }

    bool Fail(const std::string& reason) {
        outcome_ = Failure(resultErrorOpenFile, "line " + std::to_string(number_) + ": " + reason);
        return false;
    }

    // Takes the next line as numbers, `least` of them or more.
    bool Numbers(const char* role, std::size_t least, std::vector<XifNumber>& numbers) {
        std::string_view line;
        if (!PeekContent(line))
            return Fail(std::string("the file ends where ") + role + " should stand");
        if (!ParseNumbers(Words(line), role, least, numbers))
            return false;
        Accept(role);
        return true;
    }

    bool ParseNumbers(const std::vector<std::string_view>& words, const char* role, std::size_t least,
                      std::vector<XifNumber>& numbers) {
        for (const std::string_view word : words)
            if (!ParseNumber(word, numbers.emplace_back()))
                return Fail("\"" + Excerpt(FromCodePage(word)) +
                            "\" is not a number; only numbers may stand in " + role);
        return numbers.size() >= least || Fail(std::string("too few numbers in ") + role);
    }

    // ---- the header ----

    bool ReadHeader() {
        std::string_view line;
        if (!Peek(line) || !ReadFirstLine(FromCodePage(line)))
            return outcome_.Ok() ? Fail(
                                       "the first line of an XIF file is \"File: NAME generated by TOOL, XIF "
                                       "Version N\", this one is not")
                                 : false;
        struct HeaderLine {
            const char* role;
            std::string* text;
        };
        std::string empty;
        for (const HeaderLine& each :
             {HeaderLine{"copyright", &file_.copyright}, HeaderLine{"date", &file_.run},
              HeaderLine{"empty", &empty}, HeaderLine{"program ID", &file_.programId}}) {
            if (!Peek(line))
                return Fail(std::string("the file ends where the ") + each.role + " should stand");
            *each.text = FromCodePage(line);
            if (each.text == &file_.programId && !IsHexPairs(file_.programId))
                return Fail(
                    "\"" + Excerpt(file_.programId) +
                    "\" is not a program ID, which is 8 pairs of hexadecimal digits with colons between");
            Accept(each.role);
        }
        return true;
    }

    // "File: NAME generated by TOOL VERSION, XIF Version MAJOR.MINOR".
    bool ReadFirstLine(const std::string& line) {
        constexpr std::string_view kFile = "File:";
        constexpr std::string_view kBy = " generated by ";
        constexpr std::string_view kVersion = ", XIF Version ";
        const std::size_t by = line.find(kBy);
        const std::size_t version = line.rfind(kVersion);
        if (!line.starts_with(kFile) || by == std::string::npos || version == std::string::npos ||
            version < by + kBy.size())
            return Fail("an XIF begins with \"File: NAME generated by TOOL, XIF Version NUMBER\"");
        file_.name = TrimBlanks(std::string_view(line).substr(kFile.size(), by - kFile.size()));
        file_.tool = line.substr(by + kBy.size(), version - by - kBy.size());
        file_.version = TrimBlanks(std::string_view(line).substr(version + kVersion.size()));
        Accept("file name, tool and version");
        return true;
    }

    // Old versions have fewer lines of parameters, so the lone "*" behind them counts, not their number.
    bool ReadParameters() {
        std::string_view line;
        for (int number = kFirstParameters; PeekContent(line); ++number) {
            if (TrimBlanks(line) == "*") {
                Accept("end of the parameters");
                return true;
            }
            XifParameters parameters{number, {}};
            if (!Numbers("the parameters", 1, parameters.numbers))
                return false;
            file_.parameters.push_back(std::move(parameters));
        }
        return Fail("the file ends inside the parameters");
    }

    // A lone "*", or lines that begin with a quote.
    bool ReadDocumentation(const char* role, std::string& text) {
        std::string_view line;
        if (!PeekContent(line))
            return Fail(std::string("the file ends where the ") + role + " should stand");
        if (TrimBlanks(line) == "*") {
            Accept(role);
            return true;
        }
        if (!line.starts_with('"'))
            return Fail(std::string("neither \"*\" nor a quoted line where the ") + role + " should stand");
        while (PeekContent(line) && line.starts_with('"')) {
            text += FromCodePage(line.substr(1));
            Accept(role);
        }
        return true;
    }

    // ---- records ----

    void ReadRecords() {
        std::string_view line;
        while (PeekContent(line)) {
            if (IsEmpty(line))
                Accept("empty");
            else if (!ReadRecord(Words(line)))
                return;
        }
        // What cannot be read as text is attached to it, apart from the mark that ends it.
        if (position_ < bytes_.size() && bytes_[position_] == kEndOfText) {
            file_.endMark = true;
            ++position_;
            if (IsEmptyRest())
                position_ = bytes_.size();
        }
    }

    bool IsEmptyRest() const {
        return bytes_.find_first_not_of("\r\n\x1A", position_) == std::string_view::npos;
    }

    bool ReadRecord(const std::vector<std::string_view>& words) {
        if (words[0] == "TAG")
            return ReadTag(words);
        if (words[0] == "VAR")
            return ReadVariable(words);
        if (words[0] == "FILE")
            return ReadSection(words);
        if (words[0] == "NVVAL" && words.size() == 1)
            return ReadValues();
        ReadUnknown();
        return true;
    }

    // The name and the numbers behind a record's keyword.
    bool ReadHead(const std::vector<std::string_view>& words, const char* role, std::size_t least,
                  std::string& name, std::vector<XifNumber>& numbers) {
        if (words.size() < 2)
            return Fail(std::string(role) + " has no name");
        name = FromCodePage(words[1]);
        if (!ParseNumbers({words.begin() + 2, words.end()}, role, least, numbers))
            return false;
        Accept(std::string(role) + ' ' + name);
        return true;
    }

    bool ReadTag(const std::vector<std::string_view>& words) {
        XifTag tag;
        if (!ReadHead(words, "TAG", 3, tag.name, tag.numbers) ||
            !Numbers("attributes of the tag", 2, tag.attributes))
            return false;
        file_.tags.push_back(std::move(tag));
        return true;
    }

    bool ReadVariable(const std::vector<std::string_view>& words) {
        XifVariable variable;
        std::int64_t elements = 0;
        if (!ReadHead(words, "VAR", 3, variable.name, variable.numbers) ||
            !Numbers("attributes of the variable", kAttributes, variable.attributes) ||
            !ReadDocumentation("self-documentation of the variable", variable.documentation) ||
            !ReadType(variable, elements))
            return false;
        for (std::int64_t i = 0; i < elements; ++i) {
            std::vector<XifNumber> numbers;
            if (!Numbers("an element", 5, numbers))
                return false;
            variable.elements.push_back({numbers[0], numbers[1], numbers[2], numbers[3], numbers[4]});
        }
        file_.variables.push_back(std::move(variable));
        return true;
    }

    // "TYPE * ELEMENTS".
    bool ReadType(XifVariable& variable, std::int64_t& elements) {
        std::vector<XifNumber> numbers;
        if (!Numbers("the type", 3, numbers))
            return false;
        variable.standardType = numbers[0];
        elements = numbers[2].value_or(0);
        return elements >= 0 || Fail("the number of elements is negative");
    }

    bool ReadSection(const std::vector<std::string_view>& words) {
        XifSection section;
        std::vector<XifNumber> numbers;
        if (!ReadHead(words, "FILE", 2, section.name, numbers))
            return false;
        section.index = numbers[0];
        section.type = numbers[1];
        if (numbers.size() > 2)
            section.length = numbers[2];
        if (!ReadContent(section.content, "content of FILE " + section.name))
            return false;
        file_.sections.push_back(std::move(section));
        return true;
    }

    bool ReadValues() {
        Accept("NVVAL");
        if (!file_.values)
            file_.values.emplace();
        return ReadContent(*file_.values, "default values");
    }

    // Up to an empty line or the end of the text. A line that does not look like a value ends the content:
    // some tool has attached an image without a line between.
    bool ReadContent(XifContent& content, const std::string& role) {
        std::string_view line;
        while (PeekContent(line) && !IsEmpty(line)) {
            if (!AddXifContent(line, content)) {
                const char first = line[line.find_first_not_of(" \t,")];
                if (first != '\\' && !IsHexDigit(first))
                    return true;
                return Fail("\"" + Excerpt(FromCodePage(line)) + "\" is not a value of hexadecimal digits");
            }
            Accept(role);
        }
        TakeLastValues(line, content, role);
        return true;
    }

    // An attached image may follow the last value without a line end.
    void TakeLastValues(std::string_view line, XifContent& content, const std::string& role) {
        if (std::none_of(line.begin(), line.end(), IsControl))
            return;
        const std::size_t length = TakeXifValues(line, content.bytes);
        next_ = position_ + length;
        if (length != 0)
            Accept(role);
    }

    void ReadUnknown() {
        XifUnknown record{number_, {}};
        std::string_view line;
        while (PeekContent(line) && !IsEmpty(line)) {
            record.lines.push_back(FromCodePage(line));
            Accept("unknown record");
        }
        file_.unknown.push_back(std::move(record));
    }

    std::string_view bytes_;
    XifFile& file_;
    std::size_t position_ = 0;
    std::size_t next_ = 0;
    std::size_t number_ = 1;
    Outcome outcome_;
};

}  // namespace

std::int64_t XifVariable::Size() const {
    constexpr std::int64_t kBitField = 3;
    constexpr std::int64_t kUnion = 4;
    constexpr std::int64_t kWord = 2;
    constexpr std::int64_t kMostBytes = 1 << 20;  // keeps sums of absurd numbers in bounds
    std::int64_t size = 0;
    std::int64_t lastOffset = -1;  // of a bit field in the byte that is open
    for (const XifElement& element : elements) {
        const std::int64_t type = element.type.value_or(0);
        const std::int64_t count = std::clamp<std::int64_t>(element.array.value_or(0), 1, kMostBytes);
        if (type == kBitField) {
            const std::int64_t offset = element.offset.value_or(0);
            if (lastOffset < 0 || offset <= lastOffset)
                ++size;
            lastOffset = offset;
            continue;
        }
        lastOffset = -1;
        if (type == kUnion)
            size += std::clamp<std::int64_t>(element.size.value_or(0), 0, kMostBytes) * count;
        else
            size += (type == kWord ? 2 : 1) * count;
    }
    return size;
}

Outcome ReadXifFile(std::string_view bytes, XifFile& file) {
    file = {};
    return XifReader(bytes, file).Read();
}

void BlankXifDate(std::string& bytes) {
    constexpr std::string_view kRun = "Run on ";
    if (!bytes.starts_with("File: "))
        return;
    const std::size_t second = bytes.find('\n');
    const std::size_t third = bytes.find('\n', second + 1);
    const std::size_t end = bytes.find_first_of("\r\n", third + 1);
    if (second == std::string::npos || third == std::string::npos || end == std::string::npos)
        return;
    const std::size_t run = bytes.find(kRun, third);
    if (run < end)
        bytes.erase(run, end - run);
}

}  // namespace tovarek
