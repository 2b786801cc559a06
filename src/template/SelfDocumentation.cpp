#include "template/SelfDocumentation.h"

#include <algorithm>
#include <cstdint>

#include "base/Numbers.h"
#include "base/Text.h"

namespace tovarek {
namespace {

std::string_view TakeDigits(std::string_view& text) {
    const auto end = std::find_if_not(text.begin(), text.end(), IsDigit);
    const std::string_view digits = text.substr(0, static_cast<std::size_t>(end - text.begin()));
    text.remove_prefix(digits.size());
    return digits;
}

// A number that does not fit stands for the most.
std::optional<std::size_t> TakeIndex(std::string_view& text) {
    const std::string_view digits = TakeDigits(text);
    if (digits.empty())
        return std::nullopt;
    return std::min<std::size_t>(ExactNumber<std::uint32_t>(digits).value_or(kMostBlocks), kMostBlocks);
}

bool Take(std::string_view& text, std::string_view marks) {
    const bool isThere = !text.empty() && marks.find(text.front()) != std::string_view::npos;
    text.remove_prefix(isThere ? 1 : 0);
    return isThere;
}

// Up to `mark`, which is taken as well.
std::string_view TakeUpTo(std::string_view& text, char mark) {
    const std::string_view part = text.substr(0, text.find(mark));
    text.remove_prefix(std::min(part.size() + 1, text.size()));
    return part;
}

// "8020", "8020[2]", "3[12Digital", "0NodeObject", "4Lamp[2]".
std::optional<DeclaredBlocks> EntryOf(std::string_view text) {
    DeclaredBlocks entry;
    entry.profile = TakeDigits(text);
    if (entry.profile.empty())
        return std::nullopt;
    const auto takeCount = [&] {
        if (!Take(text, "["))
            return true;
        const std::optional<std::size_t> count = TakeIndex(text);
        if (!count)
            return false;
        Take(text, "]");
        entry.count = std::max<std::size_t>(*count, 1);
        return true;
    };
    if (!takeCount())
        return std::nullopt;
    const std::string_view name = text.substr(0, text.find('['));
    entry.name = name;
    text.remove_prefix(name.size());
    if (!takeCount())
        return std::nullopt;
    return entry;
}

// The entries of "0,8020[2]Room,3Switch"; one that is none stays in `list` with all behind it.
std::vector<DeclaredBlocks> TakeBlocks(std::string_view& list) {
    std::vector<DeclaredBlocks> blocks;
    std::size_t next = 0;
    while (!list.empty() && next <= kMostBlocks) {
        std::string_view rest = list;
        std::optional<DeclaredBlocks> entry = EntryOf(TakeUpTo(rest, ','));
        if (!entry)
            break;
        list = rest;
        entry->first = next;
        next += entry->count;
        blocks.push_back(std::move(*entry));
    }
    return blocks;
}

Membership PropertyOf(std::string_view text) {
    Membership found;
    const bool isOfBlock = TakeUpTo(text, ',') == "1";
    if (const std::string_view select = TakeUpTo(text, ','); isOfBlock)
        found.blocks = RangesOf(select);
    found.propertyScope = TakeUpTo(text, ',').substr(0, 1);
    found.propertyType = TakeDigits(text);
    if (found.propertyType.empty() ||
        !std::all_of(found.propertyScope.begin(), found.propertyScope.end(), IsDigit))
        return {};
    return found;
}

Membership MemberOf(std::string_view text) {
    const std::size_t end = text.find_first_of("|#");
    if (end == std::string_view::npos)
        return {};
    std::string_view member = text.substr(end + 1);
    const std::string_view digits = TakeDigits(member);
    if (digits.empty())
        return {};
    Membership found;
    found.member = (text[end] == '#' ? "#" : "") + std::string(digits);
    found.blocks = RangesOf(text.substr(0, std::min(text.find('['), end)));
    return found;
}

}  // namespace

std::vector<DeclaredBlocks> DeclaredBlocksOf(std::string_view documentation) {
    std::string_view list = documentation.substr(0, documentation.find(';'));
    const std::size_t at = list.find('@');
    if (!list.starts_with('&') || at == std::string_view::npos)
        return {};
    list.remove_prefix(at + 1);
    return TakeBlocks(list);
}

std::optional<std::size_t> DeclaredBlockCount(std::string_view documentation) {
    std::string_view list = documentation.substr(0, documentation.find(';'));
    if (!Take(list, "&") || TakeDigits(list).empty() || !Take(list, ".") || TakeDigits(list).empty() ||
        !Take(list, "@") || list.empty() || list.ends_with(','))
        return std::nullopt;
    const std::vector<DeclaredBlocks> blocks = TakeBlocks(list);
    if (!list.empty())
        return std::nullopt;
    return std::min(blocks.back().first + blocks.back().count, kMostBlocks);
}

std::vector<IndexRange> RangesOf(std::string_view select) {
    std::vector<IndexRange> ranges;
    while (true) {
        const std::optional<std::size_t> first = TakeIndex(select);
        const std::optional<std::size_t> last = first && Take(select, "~-") ? TakeIndex(select) : first;
        if (!last || *last < *first)
            return {};
        ranges.push_back({*first, *last});
        if (select.empty())
            return ranges;
        if (!Take(select, "."))
            return {};
    }
}

Membership MembershipOf(std::string_view documentation) {
    std::string_view head = documentation.substr(0, documentation.find(';'));
    const std::string_view text = documentation.substr(std::min(head.size() + 1, documentation.size()));
    const char mark = head.empty() ? '\0' : head.front();
    head.remove_prefix(head.empty() ? 0 : 1);
    Membership found = mark == '@' ? MemberOf(head) : mark == '&' ? PropertyOf(head) : Membership();
    found.text = mark == '@' || mark == '&' ? text : documentation;
    return found;
}

}  // namespace tovarek
