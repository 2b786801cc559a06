#include "support/IniReading.h"

#include <algorithm>

#include "base/Text.h"
#include "support/InputPlace.h"

namespace tovarek {
namespace {

// A bit for names of this length and first letter; most names that are not in a section have another one.
std::uint64_t NameBit(std::string_view name) {
    const bool isPlain = !name.empty() && static_cast<unsigned char>(name[0]) < 0x80;
    const std::size_t letter = static_cast<unsigned char>(isPlain ? AsciiUpper(name[0]) : '\0');
    return std::uint64_t{1} << ((letter * 5 + name.size()) % 64);
}

// Most names differ in length or in their first letter; that is seen without a call.
bool IsNamed(std::string_view name, std::string_view wanted) {
    if (name.size() != wanted.size())
        return false;
    const bool isPlain = !name.empty() && static_cast<unsigned char>(name[0]) < 0x80 &&
                         static_cast<unsigned char>(wanted[0]) < 0x80;
    return !(isPlain && AsciiUpper(name[0]) != AsciiUpper(wanted[0])) && CaselessEqual()(name, wanted);
}

}  // namespace

IniReading::IniReading(std::string path, std::shared_ptr<const IniText> text)
    : path_(std::move(path)), text_(std::move(text)) {
    const std::vector<IniBody>& bodies = text_->Bodies();
    const std::string_view whole = text_->Whole();
    all_.resize(bodies.size() + 1);
    Scan(bodies.empty() ? whole
                        : whole.substr(0, static_cast<std::size_t>(bodies[0].header.data() - whole.data())),
         all_[0]);
    for (std::size_t i = 0; i < bodies.size(); ++i) {
        Section& section = all_[i + 1];
        section.body = &bodies[i];
        section.isFirst = bodies[i].first == i;
        section.isAsked = bodies[i].isPlain;
        if (!bodies[i].isPlain)
            Scan(bodies[i].lines, section);
    }
}

void IniReading::Scan(std::string_view lines, Section& section) {
    FirstKeys keys;
    while (!lines.empty())
        ScanLine(TrimIniLine(TakeLine(lines)), section, keys);
}

// The first key with the name of `entry` in its section, null when it is the first itself. Few keys are
// compared one by one, many are looked up in `keys`.
const char* IniReading::FirstOf(const Section& section, const Line& entry, FirstKeys& keys) {
    if ((section.names & NameBit(entry.key)) == 0 && keys.empty())
        return nullptr;
    constexpr std::size_t kFew = 32;
    if (section.lines.size() < kFew) {
        for (const Line& line : section.lines)
            if (line.kind == Kind::key && IsNamed(line.key, entry.key))
                return line.first != nullptr ? line.first : line.key.data();
        return nullptr;
    }
    if (keys.empty())
        for (const Line& line : section.lines)
            if (line.kind == Kind::key)
                keys.try_emplace(line.key, line.key.data());
    const auto [first, isNew] = keys.try_emplace(entry.key, entry.key.data());
    return isNew ? nullptr : first->second;
}

// `keys`: those of the section, once they are many.
void IniReading::ScanLine(std::string_view line, Section& section, FirstKeys& keys) {
    if (line.empty() || line.starts_with(';'))
        return;
    Line entry;
    if (SplitIniKey(line, entry.key, entry.value)) {
        entry.value = IniValue(entry.value);
        entry.first = FirstOf(section, entry, keys);
        section.names |= NameBit(entry.key);
    } else {
        entry.kind = Kind::other;
        entry.key = line;
    }
    section.lines.push_back(entry);
}

// The value of a key; a view of null when there is none.
std::string_view IniReading::Value(std::string_view section, std::string_view key) const {
    IniSection keys;
    text_->ReadSection(section, keys);
    return keys.RawValue(key);
}

IniReading::Line* IniReading::Ask(std::string_view section, std::string_view key) {
    // The keys of a section are asked for one behind the other.
    if (lastPlace_ == 0 || lastName_ != section) {
        lastName_ = section;
        lastPlace_ = text_->HasSection(section) ? text_->PlaceOf(section) + 1 : 0;
        // Names to suggest; a suggestion out of thousands helps nobody.
        constexpr std::size_t kMostSuggested = 32;
        if (lastPlace_ == 0 && missingSections_.size() < kMostSuggested &&
            (missingSections_.empty() || missingSections_.back() != section))
            missingSections_.emplace_back(section);
    }
    if (lastPlace_ == 0) {
        constexpr std::size_t kMostKept = 256;
        if (askedNowhere_.size() < kMostKept)
            askedNowhere_.emplace_back(section, key);
        return nullptr;
    }
    Section& asked = all_[lastPlace_];
    asked.isAsked = true;
    asked_.emplace_back(lastPlace_, key);
    if ((asked.names & NameBit(key)) == 0)
        return nullptr;
    for (Line& line : asked.lines) {
        if (line.kind != Kind::key || !IsNamed(line.key, key))
            continue;
        line.isAsked = true;
        return &line;
    }
    return nullptr;
}

void IniReading::Skip(std::string_view section) {
    if (!HasSection(section))
        return;
    Section& skipped = all_[text_->PlaceOf(section) + 1];
    skipped.isAsked = true;
    skipped.lines.clear();
}

Finding IniReading::At(Warning warning, int line, LinePart part, std::string reason) const {
    return {.context = {.file = path_, .line = line, .reason = std::move(reason)},
            .warning = warning,
            .part = part};
}

void IniReading::Integer(std::string_view section, std::string_view key, const Title& record,
                         const Explain& explain, FindingSink& findings) {
    const Line* const line = Ask(section, key);
    if (line == nullptr)
        return;
    const IniInteger read = ReadIniInteger(line->value);
    if (read.isWhole && !read.wraps)
        return;
    const std::string typed(TrimBlanks(line->value));
    const Advice advice = explain ? explain(typed, read.value) : AdviceOn(section, key);
    const std::string& more = advice.text;
    const std::string value = std::to_string(read.value);
    std::string reason = read.isWhole ? QuotedExcerpt(typed) + " is beyond 32 bits; it is read as " + value +
                                            (more.empty() ? more : ", " + more)
                                      : NotANumber(typed, key, value, more);
    Finding finding = At(read.isWhole ? Warning::overflowedNumber : Warning::notANumber, LineOf(*line),
                         LinePart::value, std::move(reason));
    finding.context.record = record();
    finding.context.field = key;
    finding.context.value = typed;
    if (!read.isWhole && !advice.value.empty())
        finding.edits = {{EditPart::value, finding.context.line, 0, advice.value}};
    findings.Take(std::move(finding));
}

void IniReading::Text(std::string_view section, std::string_view key, const Title& record,
                      FindingSink& findings) {
    const Line* const line = Ask(section, key);
    if (line == nullptr)
        return;
    const std::string_view value = TrimBlanks(line->value);
    if (BeginsOddly(value))
        Tell(
            Warning::oddQuote, *line, key, record,
            std::string("the text begins with ") + value.front() +
                " and does not end with it, so it is read with the quotation mark: close it, or leave it out",
            findings);
    // Bytes are counted faster than characters, and there are never fewer of them.
    const std::size_t length = value.size() <= kLongestIniValue ? 0 : CharacterCount(value);
    if (length <= kLongestIniValue)
        return;
    Tell(Warning::cutText, *line, key, record,
         "only the first " + std::to_string(kLongestIniValue) + " of the " + std::to_string(length) +
             " characters are read; an XML template has no such bound",
         findings);
}

// A warning about the text of a key.
void IniReading::Tell(Warning warning, const Line& line, std::string_view key, const Title& record,
                      std::string reason, FindingSink& findings) const {
    Finding finding = At(warning, LineOf(line), LinePart::value, std::move(reason));
    finding.context.record = record();
    finding.context.field = key;
    findings.Take(std::move(finding));
}

void IniReading::Numbered(std::string_view prefix, std::string_view section, std::string_view count,
                          std::int32_t most) {
    numbered_.push_back({prefix, section, count, most});
}

}  // namespace tovarek
