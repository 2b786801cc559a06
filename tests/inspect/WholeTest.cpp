// Whole files: all that their trees and listings say, as texts beside the tests. In a tree "~" marks what is
// derived, "=" a reference that counts by its text; "{}" an object, "()" a list and "[]" a sequence.
#include <gtest/gtest.h>

#include "Fixtures.h"
#include "inspect/InspectText.h"

namespace tovarek::test {
namespace {

// Long lines go on behind four blanks.
std::string Folded(std::string_view text) {
    constexpr std::size_t kWidth = 150;
    std::string folded;
    while (!text.empty()) {
        std::string_view line = text.substr(0, text.find('\n') + 1);
        text.remove_prefix(line.size());
        while (line.size() > kWidth) {
            const std::size_t blank = line.find_last_of(' ', kWidth);
            if (blank == std::string_view::npos)
                break;
            folded += std::string(line.substr(0, blank)) + "\n    ";
            line.remove_prefix(blank + 1);
        }
        folded += line;
    }
    return folded;
}

ProfileFile RichProfiles() {
    ProfileFile file = SmallProfiles();
    file.marks[0] = 9;
    Profile& belt = *file.profiles[0];
    belt.inherits = true;
    belt.nameText = {3, 5};
    belt.description = {3, 7};
    belt.reservedByte = 5;
    belt.reservedWord = 262;
    for (const std::uint8_t service : std::initializer_list<std::uint8_t>{1, 2, 4, 7}) {
        ProfileNv nv{{.number = static_cast<std::uint16_t>(service + 1), .name = "nvo", .type = {3, 4}}};
        nv.service = service;
        nv.isPolled = service == 2;
        nv.mandatory = service < 3;
        belt.nvs.push_back(nv);
    }
    belt.nvs[4].type = {3, 772};
    belt.nvs[1].nameText = {3, 6};
    belt.nvs[1].description = {3, 2};
    belt.nvs[1].reserved = 258;
    belt.nvs[1].type = {3, 1};
    belt.nvs[1].values = {2, std::nullopt, "\1\2", "\3\4"};
    ProfileCp label{{.number = 2, .name = "label", .mandatory = true, .type = {3, 3}}};
    label.appliesTo = 258;
    label.smallestArray = 2;
    label.largestArray = 259;
    label.restrictions = 6;
    label.values = {6, "Belt 2", "aaaaaa", "zzzzzz"};
    belt.cps.push_back(label);
    file.profiles.emplace_back(std::nullopt);
    file.profiles.emplace_back(Profile{.name = "UFPTgear", .key = 20001});
    return file;
}

constexpr const char* kRichFormats =
    "! belts\r\nset program_id 90:0A:BC:01:02:03:04:00;\r\n\r\nUNVT_beltSpeed: real;\r\n"
    "UNVT_beltSpeed#US: text(\"%f\",*1.8+32(3:6));\r\n"
    "UNVT_beltAll: text(\"%f and %m\",\r\n step*2-0.5, ! steps\r\n either.list);\r\nUNVT_odd: strange;\r\n";

// The small interface with attributes that are no flags, and an image behind it.
std::string RichXif() {
    std::string xif(kSmallXif);
    for (const auto& [from, to] :
         {std::pair{"0 1 63 0 2 1 0 1 0 1 0", "0 1 62 2 2 7 0 * 0 1 0"},
          {"\"1,0,0\\x80,49,2,,0:600;\r\n", "\"1,0,0\\x80,49,2,,0:600;\r\n\"2,0.1,6\\xA4,1,4,3;limit\r\n"}})
        xif.replace(xif.find(from), std::string_view(from).size(), to);
    return xif + "\x1A" + std::string("\1\0\xFFimage", 8);
}

// A node with all below it in one line.
std::string Flat(const InspectNode& node) {
    if (node.shape == InspectNode::Shape::value)
        return ValueText(node.value);
    std::string text;
    for (const InspectNode& child : node.children)
        text += (text.empty() ? "" : ", ") + std::string(child.derived ? "~" : "") + child.name +
                (child.name.empty() ? ""
                 : child.meaning    ? "= "
                                    : " ") +
                Flat(child);
    return node.shape == InspectNode::Shape::object ? '{' + text + '}'
           : node.shape == InspectNode::Shape::list ? '(' + text + ')'
                                                    : '[' + text + ']';
}

std::string TreeOf(const std::string& path, const StandardCatalog& catalog) {
    const InspectNode tree = InspectFile(path, &catalog).tree;
    std::string text;
    for (const InspectNode& child : tree.children) {
        text += std::string(child.derived ? "~" : "") + child.name + ": ";
        if (!child.IsList()) {
            text += Flat(child) + '\n';
            continue;
        }
        text += child.shape == InspectNode::Shape::list ? "()\n" : "[]\n";
        for (const InspectNode& item : child.children)
            text += "  " + item.name + ' ' + Flat(item) + '\n';
    }
    return text;
}

std::string ListingOf(const std::string& path) {
    std::string text;
    std::string line;
    const std::vector<ByteRow> rows = ListFile(path).listing.rows;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (i == 0 || rows[i].record != rows[i - 1].record)
            line = '<' + rows[i].record + '>';
        line += ' ' + std::string(static_cast<std::size_t>(rows[i].depth), '.') + rows[i].field + '[' +
                std::to_string(rows[i].length) + "]=" + rows[i].value + ';';
        if (i + 1 == rows.size() || rows[i + 1].record != rows[i].record)
            text += line + '\n';
    }
    return text;
}

TEST(WholeFiles, AreShownWithAllThatTheySay) {
    std::unique_ptr<StandardCatalog> catalog;
    ASSERT_TRUE(StandardCatalog::Open(std::string(TOVAREK_CATALOG) + "/ldrf.cat", catalog).Ok());
    const Scratch scratch;
    LanguageFile language = SmallLanguage();
    const std::string files[] = {scratch.File("belt.enu", BytesOf(WriteLanguageFile, language)),
                                 scratch.File("belt.typ", BytesOf(WriteTypeFile, RichTypes())),
                                 scratch.File("belt.fpt", BytesOf(WriteProfileFile, RichProfiles())),
                                 scratch.File("belt.fmt", kRichFormats), scratch.File("belt.xif", RichXif())};
    std::string trees;
    std::string listings;
    for (const std::string& path : files) {
        const std::string head = "==== " + path.substr(path.size() - 3) + '\n';
        trees += head + TreeOf(path, *catalog);
        listings += head + ListingOf(path);
    }
    ExpectText(Folded(trees), TOVAREK_EXPECTED "/trees.txt");
    ExpectText(Folded(listings), TOVAREK_EXPECTED "/listings.txt");
    // A property of a form that is not known stands as it is.
    const std::string later = std::string(kSmallXif).replace(kSmallXif.find("1.1;"), 4, "1.1;soon,2;");
    EXPECT_NE(TreeOf(scratch.File("later.xif", later), *catalog)
                  .find("properties [soon,2 {record soon,2}, 1,0,0,49 {"),
              std::string::npos);
}

// Every value in a line of its own, but for a few that belong together.
TEST(WholeFiles, AreTextInLines) {
    InspectNode tree = InspectNode::Object("");
    InspectNode pair = InspectNode::Object("pair");
    pair.Real("real", 0.5);
    pair.Flag("flag", true);
    pair.Put("nothing", {});
    pair.Text("text", "a\tb");
    InspectNode five = pair;
    five.name = "five";
    five.Number("number", -7);
    InspectNode numbers = InspectNode::Sequence("numbers");
    for (int i = 1; i <= 5; ++i)
        numbers.Number("", i);
    InspectNode texts = InspectNode::List("texts");
    texts.Text("", "one");
    texts.Text("\n", "");
    texts.Add(InspectNode::Object("pairs")).Add(pair);
    for (const InspectNode& child : {pair, five, numbers, texts, InspectNode::List("empty")})
        tree.Add(child);
    tree.Text("blank", "");
    EXPECT_EQ(
        TreeText(tree),
        "pair: real 0.5, flag yes, nothing none, text a\\tb\nfive:\n  real: 0.5\n  flag: yes\n  nothing: "
        "none\n"
        "  text: a\\tb\n  number: -7\nnumbers: 1, 2, 3, 4, 5\ntexts:\n  [1]: one\n  [\\n]:\n  [pairs]:\n"
        "    pair: real 0.5, flag yes, nothing none, text a\\tb\nempty: none\nblank:\n");
    tree.children[3].children[0].derived = true;
    EXPECT_EQ(OneLineText(tree.children[3], false),
              "one, , (pair (real 0.5, flag yes, nothing none, text a\\tb))");
    EXPECT_EQ(OneLineText(tree.children[3], true), ", (pair (real 0.5, flag yes, nothing none, text a\\tb))");
    const std::vector<ByteRow> rows = {{1, 9, 2, "set 1", "name", "\"x\""}, {10, 8, 0, "", "slack", ""}};
    EXPECT_EQ(ListingText({false, rows}, "abcdefghijklmnopqr"),
              "00000001  62 63 64 65 66 67 68 69  set 1:     name = \"x\"\n00000009  6A\n"
              "0000000A  6B 6C 6D 6E 6F 70 71 72  slack\n");
    EXPECT_EQ(
        ListingText({true, {{1, 9, 0, "", "tag", "x"}, {10, 2, 0, "", "image", "no text"}}}, "0123456789kl"),
        "00000001  tag: x\n0000000A  6B 6C                    image = no text\n");
}

}  // namespace
}  // namespace tovarek::test
