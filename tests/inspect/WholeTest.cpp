// Whole files: all that their trees and listings say, as texts beside the tests. In a tree "~" marks what is
// derived, "=" a reference that counts by its text; "{}" an object, "()" a list and "[]" a sequence.
#include <gtest/gtest.h>

#include <array>
#include <tuple>

#include "Fixtures.h"
#include "inspect/InspectText.h"

namespace tovarek::test {
namespace {

std::string Expected(const std::string& name) {
    return ReadFile(std::string(TOVAREK_EXPECTED) + "/" + name);
}

NvType TypeNamed(const char* name, TypeDescription type) {
    NvType nv{.name = name, .size = static_cast<std::uint16_t>(SizeOf(type)), .type = std::move(type)};
    return nv;
}

CpType Property(const char* name, TypeDescription type, const std::string& initial) {
    CpType cp;
    static_cast<NvType&>(cp) = TypeNamed(name, std::move(type));
    cp.initial = initial;
    return cp;
}

TypeDescription Number(TypeKind kind, std::int64_t minimum, std::int64_t maximum,
                       std::array<std::int16_t, 3> scaling = {1, 0, 0}) {
    TypeDescription type = NumberOfKind(kind);
    type.minimum = minimum;
    type.maximum = maximum;
    std::tie(type.a, type.b, type.c) = std::tie(scaling[0], scaling[1], scaling[2]);
    return type;
}

TypeDescription Field(int offset, int width, bool isSigned) {
    TypeDescription type = NumberOfKind(TypeKind::bitField);
    type.bitOffset = static_cast<std::uint8_t>(offset);
    type.bitWidth = static_cast<std::uint8_t>(width);
    type.bitSigned = isSigned;
    type.minimum = SmallestRaw(type);
    type.maximum = LargestRaw(type);
    return type;
}

// The small set with everything in it that a type file can say.
TypeFile RichTypes() {
    TypeFile file = SmallTypes();
    file.header.title += " (belts)";
    file.header.webPage = std::string(255, 'w');
    file.marks[13] = 7;
    NvType& speed = *file.nvTypes[0];
    speed.name += '~';
    speed.description = {3, 7};
    speed.reservedByte = 8;
    speed.reservedWord = 515;
    speed.type.c = 10;
    speed.type.invalid = 32767;
    TypeDescription total = Number(TypeKind::unsignedQuad, 1, 0xFFFFFFFE, {2, 3, -1});
    total.invalid = 0xFFFFFFFF;
    TypeDescription real = NumberOfKind(TypeKind::floatingPoint);
    real.floatMinimum = -1.5F;
    real.floatMaximum = 0.1F;
    real.floatInvalid = 9.0F;
    TypeDescription either;
    either.kind = TypeKind::unionKind;
    either.members = {{.name = "byte", .type = Number(TypeKind::unsignedChar, 0, 127)},
                      {.name = "list", .type = ArrayOf(file.nvTypes[2]->type.members[0].type, 2, 3)}};
    TypeDescription low = Field(0, 3, true);
    low.minimum = -2;
    low.maximum = 1;
    TypeDescription all;
    all.kind = TypeKind::structure;
    all.members = {
        {.name = "total", .nameText = {3, 5}, .description = {3, 7}, .unit = {3, 6}, .type = total},
        {.name = "step", .type = Number(TypeKind::signedQuad, -1, 1, {1, 0, 5})},
        {.name = "share", .type = Number(TypeKind::unsignedLong, 0, 65535, {1, 300, 0})},
        {.name = "level", .type = Number(TypeKind::signedShort, -128, 0, {1, -2, 0})},
        {.name = "real", .type = real},
        {.name = "low", .type = low},
        {.name = "high", .type = Field(3, 5, false)},
        {.name = "either", .type = either},
        {.name = "letter", .type = Number(TypeKind::signedChar, 0, 1)}};
    file.nvTypes.emplace_back(TypeNamed("_beltAll", all));
    const TypeDescription mode = file.nvTypes[2]->type.members[0].type;
    file.cpTypes = {file.cpTypes[0],
                    std::nullopt,
                    Property("_label", TextOf(6, 3), {"Belt\0\0", 6}),
                    Property("_real", real, "\x3F\xC0\x40\x41"),
                    Property("_mode", mode, "\1"),
                    Property("_pair", ArrayOf(mode, 2, 3), "\1\2")};
    file.cpTypes[4]->minimum = "\xFF";
    file.cpTypes[5]->maximum = "\3\4";
    file.enumerations.emplace_back(std::nullopt);
    file.enumerations.emplace_back(Enumeration{"gear_t", "gears.h", {{0, "G_N", {3, 1}}}});
    return file;
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

// Long lines are folded at blanks.
std::string Folded(const std::string& line) {
    std::string text;
    std::size_t column = 0;
    for (const char c : line) {
        const bool isEnd = c == ' ' && column > 125;
        text += isEnd ? "\n    " : std::string(1, c);
        column = isEnd ? 4 : column + 1;
    }
    return text + '\n';
}

std::string TreeOf(const std::string& path, const StandardCatalog& catalog) {
    const InspectNode tree = InspectFile(path, &catalog).tree;
    std::string text;
    for (const InspectNode& child : tree.children) {
        text += std::string(child.derived ? "~" : "") + child.name + ": ";
        if (!child.IsList()) {
            text += Folded(Flat(child));
            continue;
        }
        text += child.shape == InspectNode::Shape::list ? "()\n" : "[]\n";
        for (const InspectNode& item : child.children)
            text += "  " + Folded(item.name + ' ' + Flat(item));
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
            text += Folded(line);
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
    EXPECT_EQ(trees, Expected("trees.txt"));
    EXPECT_EQ(listings, Expected("listings.txt"));
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
