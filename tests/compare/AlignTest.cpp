#include <gtest/gtest.h>

#include "compare/Align.h"

namespace tovarek::test {
namespace {

std::vector<std::string> Letters(const std::string& letters) {
    std::vector<std::string> names;
    for (const char letter : letters)
        names.emplace_back(1, letter);
    return names;
}

// Letters are records; digits are like each other.
std::string Story(const std::string& before, const std::string& after) {
    const Alignment found = Align(Letters(before), Letters(after), [&](std::size_t i, std::size_t j) {
        return before[i] <= '9' && after[j] <= '9' ? 1 : 0;
    });
    std::string story;
    for (const std::size_t place : found.removed)
        story += std::string("-") + before[place];
    for (const std::size_t place : found.added)
        story += std::string("+") + after[place];
    for (const AlignedPair& pair : found.pairs)
        if (before[pair.before] != after[pair.after])
            story += std::string(1, before[pair.before]) + '>' + after[pair.after];
    for (const auto& [first, second] : found.swapped)
        story += std::string("x") + after[first.after] + after[second.after];
    for (const AlignedPair& pair : found.moved)
        story += std::string("~") + after[pair.after];
    return story;
}

TEST(Align, TellsWhatWasDone) {
    struct Row {
        const char* before;
        const char* after;
        const char* story;
    };
    constexpr Row kRows[] = {
        {"", "", ""},
        {"abc", "abc", ""},
        {"", "ab", "+a+b"},
        {"ab", "", "-a-b"},
        {"abcd", "xabcd", "+x"},
        {"abcd", "abxcd", "+x"},
        {"abcd", "bcd", "-a"},
        {"abcd", "bacd", "xba"},
        {"abcd", "cbad", "xca"},
        {"abcdef", "fbcdea", "xfa"},
        {"abcdef", "fabcde", "~f"},
        {"abcdef", "bcdefa", "~a"},
        {"abcdef", "xabdcef", "+xxdc"},
        {"abcd", "dcba", "xdaxcb"},
        {"abcdefg", "gacbdef", "xcb~g"},
        {"abcdefg", "bedcafg", "xec~a"},
        {"abcdefg", "bedcfga", "xec~a"},
        {"abcdefghijkl", "ljbdcefghika", "xlaxdc~j"},
        {"abcd", "aBcd", "b>B"},
        {"aA", "Aa", "xAa"},
        {"abcd", "Dabc", "d>D~D"},
        {"a1b", "a2b", "1>2"},
        {"1ab", "2ab", "1>2"},
        {"ab1", "ab2", "1>2"},
        {"a1b", "a2x3b", "+x+31>2"},
        {"a12b", "a3xb", "-2+x1>3"},
        {"a1b", "ab2", "-1+2"},
        {"aab", "aaab", "+a"},
        {"aXb", "aYb", "-X+Y"},
    };
    for (const Row& row : kRows)
        EXPECT_EQ(Story(row.before, row.after), row.story) << row.before << " " << row.after;
}

// The loads that tell a list from a table: all renamed, all reversed, one inserted in front of many.
TEST(Align, TakesManyRecords) {
    constexpr std::size_t kCount = 2048;
    std::vector<std::string> names;
    std::vector<std::string> others;
    for (std::size_t i = 0; i < kCount; ++i) {
        names.push_back("nvi" + std::to_string(i));
        others.push_back("nvo" + std::to_string(i));
    }
    const Likeness alike = [](std::size_t, std::size_t) { return 1; };
    std::vector<std::string> more = names;
    more.insert(more.begin(), "nviNew");
    const Alignment inserted = Align(names, more, alike);
    EXPECT_EQ(inserted.added, std::vector<std::size_t>{0});
    EXPECT_EQ(inserted.pairs.size(), kCount);
    EXPECT_TRUE(inserted.moved.empty() && inserted.swapped.empty() && inserted.removed.empty());
    EXPECT_EQ(Align(names, others, alike).pairs.size(), kCount);
    EXPECT_EQ(Align(names, {names.rbegin(), names.rend()}, alike).swapped.size(), kCount / 2);
}

}  // namespace
}  // namespace tovarek::test
