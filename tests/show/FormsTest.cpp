#include <gtest/gtest.h>

#include <map>
#include <regex>

#include "../Samples.h"
#include "base/Text.h"
#include "formats/xif/XifFile.h"
#include "show/Drawing.h"
#include "show/Facts.h"
#include "show/MakeView.h"
#include "show/ViewForms.h"
#include "system/Files.h"

namespace tovarek::test {
namespace {

constexpr const char* kBad = "<script>alert(\"1\")</script>&'|*_`";

// A view with so many inputs and half as many outputs and properties, all of them called `name`.
View LargeView(std::size_t count, const std::string& name) {
    View view{.title = name, .text = name};
    ViewBlock block{.title = name};
    ViewTable table{"Network variables", {"Index", "Name"}, {}};
    for (std::size_t i = 0; i < count; ++i) {
        block.inputs.push_back({name, name, i % 3 == 0 ? name : ""});
        table.rows.push_back({std::to_string(i), name});
        if (i % 2 == 0) {
            block.outputs.push_back({name, "SNVT_switch"});
            block.properties.push_back({name, i % 4 == 0 ? name : "1"});
        }
    }
    view.blocks = {block, {.title = "Empty"}, block};
    view.records = {table};
    view.types = {{{{0, name}, {1, name}, {2, name}, {1, name}}}, {{{0, name}}}};
    return view;
}

bool DoMeet(const Rectangle& a, const Rectangle& b) {
    return a.x < b.x + b.width && b.x < a.x + a.width && a.y < b.y + b.height && b.y < a.y + a.height;
}

bool IsInside(const Rectangle& inner, const Rectangle& outer) {
    return inner.x >= outer.x && inner.y >= outer.y && inner.x + inner.width <= outer.x + outer.width &&
           inner.y + inner.height <= outer.y + outer.height;
}

// How wide the text is that is shown, at most.
int WidthOf(const DrawnText& text) {
    return static_cast<int>(CharacterCount(text.shown)) * SizeOf(text.kind) * kCharacterWidth / 100;
}

void ExpectSoundBox(const DrawnBox& box) {
    EXPECT_LE(box.place.height, kTallestBox);
    EXPECT_TRUE(IsInside(box.frame, box.place));
    for (std::size_t i = 0; i < box.texts.size(); ++i) {
        const DrawnText& text = box.texts[i];
        EXPECT_TRUE(IsInside(text.place, box.frame)) << text.whole;
        EXPECT_LE(WidthOf(text), text.place.width) << text.shown;
        EXPECT_GE(text.place.height, SizeOf(text.kind));
        for (std::size_t j = 0; j < i; ++j)
            EXPECT_FALSE(DoMeet(text.place, box.texts[j].place)) << text.whole;
    }
    for (const DrawnArrow& arrow : box.arrows)
        EXPECT_TRUE(arrow.x + kArrowLength == box.frame.x || arrow.x == box.frame.x + box.frame.width);
}

TEST(Texts, AreShownWithoutWhatAFormStumblesOver) {
    const struct {
        std::string text;
        const char* shown;
    } rows[] = {
        {"20 °C <b>", "20 °C <b>"},
        {"a\r\n\tb", "a\\x0D\\x0A\\x09b"},
        {std::string("\0\x7F", 2), "\\x00\\x7F"},
        {"\xC2\x85", "\\x85"},
        {"\xE2\x80\xAE"
         "cba",
         "\\u202Ecba"},
        {"\xEF\xBF\xBF", "\\uFFFF"},
        {"a\xFF\xC3", "a\xEF\xBF\xBD\xEF\xBF\xBD"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(ShownText(row.text), row.shown);
        EXPECT_TRUE(IsUtf8(ShownText(row.text)));
    }
}

TEST(Drawing, HasNothingOnTopOfAnother) {
    for (const std::string& name : {std::string("nviTemp"), std::string(70, 'W'), std::string("ä€")})
        for (const std::size_t count : {0U, 1U, 5U, 60U}) {
            const View view = LargeView(count, name);
            const DrawnPicture picture = ArrangeBoxes(DrawBoxes(view), 3);
            std::map<std::string, std::size_t> shown;
            for (std::size_t i = 0; i < picture.boxes.size(); ++i) {
                const DrawnBox& box = picture.boxes[i];
                ExpectSoundBox(box);
                EXPECT_TRUE(IsInside(box.place, {0, 0, picture.width, picture.height}));
                for (std::size_t j = 0; j < i; ++j)
                    EXPECT_FALSE(DoMeet(box.place, picture.boxes[j].place));
                shown["arrows"] += box.arrows.size();
            }
            EXPECT_EQ(shown["arrows"], 2 * (count + (count + 1) / 2));
        }
}

std::size_t CountOf(const std::string& text, std::string_view part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + part.size()))
        ++count;
    return count;
}

// The names of all tags in order, those that close with "/" in front; what stands in styles and scripts is
// none.
std::vector<std::string> TagsOf(const std::string& page) {
    std::vector<std::string> tags;
    for (std::size_t at = page.find('<'); at != std::string::npos; at = page.find('<', at + 1)) {
        const std::size_t end = page.find('>', at);
        if (page[end - 1] == '/' || page.compare(at, 2, "<!") == 0 || page.compare(at, 5, "<meta") == 0)
            continue;
        tags.push_back(page.substr(at + 1, std::min(page.find_first_of(" >", at), end) - at - 1));
        if (tags.back() == "script" || tags.back() == "style")
            at = page.find("</", end) - 1;
    }
    return tags;
}

TEST(Html, IsOneSoundPageWhateverTheTextsAre) {
    const std::string page = HtmlForm(LargeView(2048, kBad));
    EXPECT_EQ(CountOf(page, "<tr><th scope=\"row\">"), 2048U);
    EXPECT_EQ(CountOf(page, "<script>"), 1U);
    EXPECT_EQ(CountOf(page, "alert(\""), 0U);
    for (const char* outside : {"http:", "https:", "src=", "@import", "url(", "<link"})
        EXPECT_EQ(CountOf(page, outside), 0U) << outside;
    std::vector<std::string> open;
    for (const std::string& tag : TagsOf(page)) {
        if (tag[0] != '/') {
            open.push_back(tag);
            continue;
        }
        ASSERT_FALSE(open.empty());
        ASSERT_EQ('/' + open.back(), tag);
        open.pop_back();
    }
    EXPECT_TRUE(open.empty());
}

TEST(Markdown, KeepsTextsInTheirCells) {
    const View view = LargeView(3, kBad);
    const std::string text = MarkdownForm(view);
    std::string plain = std::regex_replace(text, std::regex(R"(\\.)"), "");
    EXPECT_EQ(CountOf(plain, "<"), 0U);
    EXPECT_EQ(CountOf(plain, "*") + CountOf(plain, "_") + CountOf(plain, "`"), 0U);
    EXPECT_EQ(CountOf(plain, "|0"), 0U);
    // Three bars in each row of two cells: head, rule and three rows of each of three tables.
    EXPECT_EQ(CountOf(plain, "|"), 3U * 5U * 3U);
    for (const char* start : {"- a", "+ a", "12. a", "3) a", "===", "# a"})
        EXPECT_EQ(MarkdownForm({.title = "t", .text = start}).find("\n" + std::string(start)),
                  std::string::npos)
            << start;
}

std::size_t RowsOf(const View& view, std::string_view title) {
    for (const ViewTable& table : view.records)
        if (table.title == title)
            return table.rows.size();
    return 0;
}

TEST(View, SplitsStandardProgramIdsOnly) {
    XifFile file;
    for (const auto& [id, rows] :
         {std::pair{"9F:FF:FF:50:14:03:04:01", 7U}, {"20:00:00:00:00:00:00:00", 1U}, {"?", 1U}}) {
        file.programId = id;
        EXPECT_EQ(ProgramIdTable(file).rows.size(), rows) << id;
    }
}

TEST(View, HasARowForEachRecordInEveryForm) {
    for (const std::string& path : SampleFiles("xif")) {
        ShownDevice device{.title = path};
        if (!ReadXifFile(ReadFile(path), device.file).Ok())
            continue;
        const View view = MakeView(device, nullptr, StandardTexts::all);
        EXPECT_EQ(RowsOf(view, "Network variables"), device.file.variables.size()) << path;
        EXPECT_EQ(RowsOf(view, "Message tags"), device.file.tags.size()) << path;
        for (const DrawnBox& box : DrawBoxes(view))
            ExpectSoundBox(box);
        for (const std::string& text : {MarkdownForm(view), HtmlForm(view), SvgForm(view)})
            EXPECT_TRUE(IsUtf8(text)) << path;
    }
}

}  // namespace
}  // namespace tovarek::test
