// What dump shows, and that it shows nothing of a damaged file.
#include <gtest/gtest.h>

#include "Fixtures.h"
#include "cli/Json.h"
#include "inspect/InspectText.h"
#include "inspect/TypeTree.h"
#include "profile/ProfileFields.h"

namespace tovarek::test {
namespace {

// The value at a path of child names, as text.
std::string At(const InspectNode& tree, const std::vector<std::string>& path) {
    const InspectNode* node = &tree;
    for (const std::string& name : path) {
        node = node->Find(name);
        if (node == nullptr)
            return "no " + name;
    }
    return OneLineText(*node, false);
}

class DumpTest : public testing::Test {
  protected:
    DumpTest() {
        scratch.File("Belt.ENU", BytesOf(WriteLanguageFile, SmallLanguage()));
        types = scratch.File("belt.typ", BytesOf(WriteTypeFile, SmallTypes()));
        profiles = scratch.File("bElt.fpt", BytesOf(WriteProfileFile, SmallProfiles()));
    }

    Scratch scratch;
    std::string types;
    std::string profiles;
};

TEST_F(DumpTest, NumbersTextsAndReferencesOfASet) {
    struct Case {
        std::vector<std::string> path;
        std::string value;
    };
    const InspectNode tree = InspectFile(types, nullptr).tree;
    for (const Case& each : std::vector<Case>{
             {{"header", "saved"}, "2024-03-09 14:30:07 UTC"},
             {{"header", "programId"}, "90:0A:BC:01:02:03:04:00"},
             {{"header", "creatorText"}, "Acme Works"},
             {{"nvTypes", "1", "name"}, "UNVT_beltSpeed"},
             {{"nvTypes", "1", "unitText"}, "m/s"},
             {{"nvTypes", "1", "type", "rawMinimum"}, "-500"},
             {{"nvTypes", "1", "type", "minimum"}, "-25"},
             {{"nvTypes", "1", "type", "maximum"}, "60"},
             {{"nvTypes", "2", "deleted"}, "yes"},
             {{"nvTypes", "3", "type", "members", "mode", "enumerationName"}, "belt_mode_t"},
             {{"nvTypes", "3", "type", "members", "gear", "bitOffset"}, "1"},
             {{"nvTypes", "3", "type", "members", "label", "shownAs"}, "text"},
             {{"nvTypes", "3", "type", "members", "temp", "target"}, "0-105"},
             {{"nvTypes", "3", "type", "members", "temp", "targetName"}, "no targetName"},
             {{"cpTypes", "1", "type", "targetName"}, "UNVT_beltSpeed"},
             {{"cpTypes", "1", "rawDefault"}, "02 58"},
             {{"cpTypes", "1", "rawDefaultValue"}, "30"},
             {{"enumerations", "1", "values", "BM_ON", "descriptionText"}, "Caf\xC3\xA9 \xC2\xB0"},
         })
        EXPECT_EQ(At(tree, each.path), each.value) << testing::PrintToString(each.path);
    const InspectNode profile = InspectFile(profiles, nullptr).tree;
    EXPECT_EQ(At(profile, {"profiles", "1", "networkVariables", "1", "typeName"}), "UNVT_beltSpeed");
    EXPECT_EQ(At(profile, {"profiles", "1", "networkVariables", "1", "rawDefaultValue"}), "12.9");
    EXPECT_EQ(At(profile, {"profiles", "1", "configurationProperties", "1", "typeName"}), "UCPT_maxSpeed");
    TypeFile file = SmallTypes();
    file.nvTypes[0]->type = NumberOfKind(TypeKind::unsignedLong);
    file.cpTypes[0]->initial = "\xFF\x38";
    scratch.File("belt.typ", BytesOf(WriteTypeFile, file));
    EXPECT_EQ(At(InspectFile(types, nullptr).tree, {"cpTypes", "1", "rawDefaultValue"}), "65336");
}

TEST_F(DumpTest, StandardNamesComeFromTheCatalog) {
    std::unique_ptr<StandardCatalog> catalog;
    if (!StandardCatalog::Open(std::string(TOVAREK_CATALOG) + "/ldrf.cat", catalog).Ok())
        GTEST_SKIP() << "no standard catalog was built";
    const InspectNode tree = InspectFile(types, catalog.get()).tree;
    EXPECT_EQ(At(tree, {"nvTypes", "3", "type", "members", "temp", "targetName"}), "SNVT_temp_p");
    for (const auto& [type, name] : {std::pair{"105", "SNVT_temp_p"},
                                     {"1", "SNVT_amp"},
                                     {"0", "no standardTypeName"},
                                     {"65641", "no standardTypeName"}}) {
        std::string xif(kSmallXif);
        xif.replace(xif.find("105 *"), 3, type);
        EXPECT_EQ(At(InspectFile(scratch.File("belt.xif", xif), catalog.get()).tree,
                     {"networkVariables", "nviSpeed", "standardTypeName"}),
                  name);
    }
}

// The shipped catalog numbers most of its strings itself: other makers mean something else by them.
TEST_F(DumpTest, PublishedNumbersAloneHaveTextsOfTheShippedCatalog) {
    std::unique_ptr<StandardCatalog> catalog;
    ASSERT_TRUE(StandardCatalog::Open(std::string(TOVAREK_CATALOG) + "/ldrf.cat", catalog).Ok());
    for (const auto& [number, text] :
         std::vector<std::pair<std::uint32_t, std::string>>{{854, "degrees C"},
                                                            {855, "degrees F"},
                                                            {966, "cubic feet/minute"},
                                                            {1400, "BTU/pound"},
                                                            {1409, "kiloJoules/kg"},
                                                            {1, ""},
                                                            {6, ""}}) {
        TypeFile file = SmallTypes();
        file.nvTypes[0]->unit = {0, number};
        const std::string path = scratch.File("scope0.typ", BytesOf(WriteTypeFile, file));
        const std::string own = catalog->Text({0, number});
        EXPECT_NE(own, "") << number;
        for (const auto& [texts, shown] :
             {std::pair{StandardTexts::published, text}, {StandardTexts::all, own}})
            EXPECT_EQ(At(InspectFile(path, catalog.get(), texts).tree, {"nvTypes", "1", "unitText"}),
                      shown.empty() ? "no unitText" : shown)
                << number;
    }
}

TEST_F(DumpTest, DamagedNeighboursAreNamedAndLeftOut) {
    scratch.File("Belt.ENU", "URES and nothing more");
    const InspectNode tree = InspectFile(types, nullptr).tree;
    EXPECT_NE(At(tree, {"problems"}).find("Belt.ENU"), std::string::npos);
    EXPECT_EQ(At(tree, {"nvTypes", "1", "unitText"}), "no unitText");
}

TEST_F(DumpTest, ExtremeNumbersAreStillJson) {
    TypeFile file = SmallTypes();
    file.nvTypes[0]->type.b = -32768;
    NvType floating{.name = "_float", .size = 4};
    floating.type = NumberOfKind(TypeKind::floatingPoint);
    floating.type.floatMinimum = -std::numeric_limits<float>::infinity();
    floating.type.floatMaximum = std::numeric_limits<float>::quiet_NaN();
    file.nvTypes[1] = floating;
    floating.name = "_digits";
    floating.type.floatMinimum = 0.1F;
    floating.type.floatMaximum = std::numeric_limits<float>::max();
    file.nvTypes.emplace_back(floating);
    const std::string path = scratch.File("extreme.typ", BytesOf(WriteTypeFile, file));
    const InspectNode tree = InspectFile(path, nullptr).tree;
    EXPECT_EQ(At(tree, {"nvTypes", "1", "type", "minimum"}), "-2500E-32768");
    EXPECT_EQ(At(tree, {"nvTypes", "2", "type", "minimum"}), "-infinite");
    EXPECT_EQ(At(tree, {"nvTypes", "2", "type", "maximum"}), "not a number");
    // Seven digits tell a 4-byte float, in the listing too.
    const std::string json = JsonText(NodeJson(tree));
    EXPECT_NE(json.find("\"minimum\": 0.1,"), std::string::npos);
    EXPECT_NE(json.find("\"maximum\": 3.4028235e+38"), std::string::npos);
    EXPECT_NE(ListingText(ListFile(path).listing, ReadFile(path)).find("minimum = 0.1\n"), std::string::npos);
}

TEST_F(DumpTest, AFloatHasTheScalingThatItsFileStoresAgainstTheRule) {
    const TypeDescription plain = NumberOfKind(TypeKind::floatingPoint);
    TypeDescription a = plain;
    TypeDescription b = plain;
    TypeDescription c = plain;
    a.a = b.b = c.c = 2;
    EXPECT_EQ(DescriptionNode("type", plain, ResourceNames()).Find("scaling"), nullptr);
    for (const TypeDescription& stored : {a, b, c})
        EXPECT_NE(DescriptionNode("type", stored, ResourceNames()).Find("scaling"), nullptr);
}

TEST_F(DumpTest, AKindHasOneNameInContentAndListing) {
    TypeFile file = SmallTypes();
    file.nvTypes.clear();
    for (const TypeKind kind : {TypeKind::signedChar, TypeKind::unsignedChar, TypeKind::signedShort,
                                TypeKind::unsignedShort, TypeKind::signedLong, TypeKind::unsignedLong,
                                TypeKind::floatingPoint, TypeKind::signedQuad, TypeKind::unsignedQuad}) {
        NvType type{.name = "_" + std::to_string(static_cast<int>(kind))};
        type.type = NumberOfKind(kind);
        if (IsInteger(kind)) {
            type.type.invalid = type.type.maximum--;
            ++type.type.minimum;
        }
        type.size = static_cast<std::uint16_t>(SizeOf(type.type));
        file.nvTypes.emplace_back(type);
    }
    const std::string path = scratch.File("kinds.typ", BytesOf(WriteTypeFile, file));
    const InspectNode tree = InspectFile(path, nullptr).tree;
    std::size_t shown = 0;
    for (const ByteRow& row : ListFile(path).listing.rows) {
        for (const auto& [field, name] :
             {std::pair{"minimum", "rawMinimum"}, {"maximum", "rawMaximum"}, {"invalid value", "rawInvalid"}})
            if (row.field == field) {
                EXPECT_EQ(row.value, At(tree, {"nvTypes", std::to_string(shown), "type", name}));
            }
        if (row.record.starts_with("NV type ") && row.field == "kind") {
            const std::string kind = At(tree, {"nvTypes", std::to_string(++shown), "type", "kind"});
            EXPECT_TRUE(row.value.ends_with(' ' + kind)) << row.value << kind;
        }
    }
    EXPECT_EQ(shown, file.nvTypes.size());
}

// The generator writes the language file with any extension that it is told.
TEST_F(DumpTest, TheLanguageFileMayHaveAnyExtension) {
    for (const char* extension : {"xyz", ""}) {
        const std::string stem = scratch.Path("other" + std::string(extension) + ".");
        WriteFile(stem + "typ", ReadFile(types));
        WriteFile(stem + "abc", "no language file");
        WriteFile(stem + extension, ReadFile(scratch.Path("Belt.ENU")));
        EXPECT_EQ(At(InspectFile(stem + "typ", nullptr).tree, {"nvTypes", "1", "unitText"}), "m/s");
    }
}

TEST_F(DumpTest, ProfileValuesHaveTheNamesOfTheProfile) {
    std::string xif(kSmallXif);
    xif.insert(xif.find("4\r\n# a comment") + 1, " 10000000");
    const InspectNode tree = InspectFile(scratch.File("belt.xif", xif), nullptr).tree;
    for (const ProfileField& field : kProfileFields)
        EXPECT_NE(At(tree, {"parameters", "line" + std::to_string(field.line), std::string(field.iniKey)})
                      .substr(0, 3),
                  "no ")
            << field.iniKey;
    for (const auto& [line, name, value] : std::vector<std::tuple<const char*, const char*, const char*>>{
             {"line6", "numberOfTags", "1"},
             {"line6", "maximumNumberOfNvs", "default"},
             {"line6", "numberapplicationinputbuffersDecoded", "2"},
             {"line6", "sizenetworkinputbuffersDecoded", "66"},
             {"line7", "number13", "10000000"},
             {"line8", "transceiverType", "1"},
             {"line10", "rawData4", "15"}})
        EXPECT_EQ(At(tree, {"parameters", line, name}), value) << name;
}

// Names behind the declarations, records over several lines and several in one.
TEST_F(DumpTest, EveryPropertyRecordIsFound) {
    std::string xif(kSmallXif);
    const std::string old = "\"1,0,0\\x80,49,2,,0:600;\r\n";
    xif.replace(xif.find(old), old.size(),
                "\"1,0,0\\x80,49,2;nciBeat\"\r\n\"1,1.2,6\\x84,1,2,3;\"\r\n\"2,0~3,0\\x80,5,\"\r\n"
                "\"2,,0:600;0,,0\\x80,24,7;a, text\"\r\n\"strange;\"\r\n");
    const InspectNode tree = InspectFile(scratch.File("belt.xif", xif), nullptr).tree;
    const InspectNode& properties = *tree.Find("files")->children[0].Find("properties");
    std::string shown;
    for (const InspectNode& property : properties.children)
        shown += property.name + ": " + OneLineText(property, true) + '\n';
    EXPECT_EQ(shown,
              "nciBeat: name nciBeat, appliesTo functional block, select 0, scope 0, flags \\x80, type 49, "
              "length 2\n"
              "1,1.2,6,1: appliesTo functional block, select 1.2, scope 6, flags \\x84, type 1, length 2, "
              "count 3\n"
              "2,0~3,0,5: appliesTo network variable, select 0~3, scope 0, flags \\x80, type 5, length 2, "
              "range 0:600\n"
              "a, textstrange: name a, textstrange, appliesTo device, select , scope 0, flags \\x80, type "
              "24, length 7\n");
}

// Deepest nesting that a file may have: no walk over the tree may run out of stack.
TEST_F(DumpTest, DeepTypesAreShownWhole) {
    TypeFile file = SmallTypes();
    TypeDescription type = NumberOfKind(TypeKind::unsignedShort);
    for (int i = 0; i < kDeepestNesting - 1; ++i)
        type = ArrayOf(std::move(type), 1, 3);
    file.nvTypes[0]->type = std::move(type);
    const std::string path = scratch.File("deep.typ", BytesOf(WriteTypeFile, file));
    const Inspection inspection = InspectFile(path, nullptr);
    EXPECT_NE(JsonText(NodeJson(inspection.tree)).find("unsigned short"), std::string::npos);
    EXPECT_NE(TreeText(inspection.tree).find("unsigned short"), std::string::npos);
    EXPECT_TRUE(Compare(inspection.tree, inspection.tree).empty());
}

TEST_F(DumpTest, KindsAreToldByContent) {
    struct Case {
        const char* name;
        std::string content;
        FileKind kind;
    };
    for (const Case& each : std::vector<Case>{
             {"a.dat", BytesOf(WriteTypeFile, SmallTypes()), FileKind::type},
             {"b.xif", BytesOf(WriteLanguageFile, SmallLanguage()), FileKind::language},
             {"c", std::string(kSmallXif), FileKind::xif},
             {"d.txt", "set selector MANUFACTURER;\r\nUNVT_a: int;\r\n", FileKind::format},
             {"e.fmt", "", FileKind::format},
             {"f", "# Tovarek resource catalog 1\r\n.\r\n", FileKind::catalog},
         })
        EXPECT_EQ(InspectFile(scratch.File(each.name, each.content), nullptr).kind, each.kind) << each.name;
    for (const auto& [name, content, reason] : std::vector<std::tuple<const char*, const char*, const char*>>{
             {"g.xif", "#filetype,x\n,Type\nA,B\n", "comma-separated"},
             {"h.typ", "nothing", "\"UTYP\""},
             {"i.enu", "nothing", "\"URES\""},
             {"j", "", "empty"}}) {
        const auto error = Raised([&, file = scratch.File(name, content)] { InspectFile(file, nullptr); });
        ASSERT_TRUE(error) << name;
        EXPECT_NE(error->Context().reason.find(reason), std::string::npos) << error->Context().reason;
    }
    EXPECT_EQ(RaisedNumber([&] { InspectFile(scratch.Path("none.typ"), nullptr); }), 53);
}

// The folders are shown as the catalog is opened, by the content and by the listing.
TEST_F(DumpTest, FoldersOfACatalogAreThoseThatOpen) {
    ASSERT_TRUE(MakeDirectory(scratch.Path("g\xC3\xA9")));
    scratch.File("g\xC3\xA9/a.typ", "");
    for (const char* name : {"g\xC3\xA9", "g\xE9"}) {
        const std::string path =
            scratch.File("ldrf.cat", std::string("# Tovarek resource catalog 1\n") + name);
        const InspectNode tree = InspectFile(path, nullptr).tree;
        EXPECT_EQ(At(tree, {"folders", "g\xC3\xA9", "exists"}), "yes");
        EXPECT_EQ(At(tree, {"folders", "g\xC3\xA9", "typeFiles"}), "a.typ");
        EXPECT_EQ(ListFile(path).listing.rows.back().value, "g\xC3\xA9");
    }
}

// Either everything or an error: never a crash, and no other exception.
TEST_F(DumpTest, DamagedFilesRaiseErrors) {
    const std::vector<std::pair<std::string, std::string>> files = {
        {"d.typ", BytesOf(WriteTypeFile, SmallTypes())},
        {"d.enu", BytesOf(WriteLanguageFile, SmallLanguage())},
        {"d.fpt", BytesOf(WriteProfileFile, SmallProfiles())},
        {"d.xif", std::string(kSmallXif)},
        {"d.fmt", "set a b;\r\nUNVT_a#US: text(\"%f\",*1.8+32(0:855)); ! degrees\r\n"}};
    for (const auto& [name, bytes] : files) {
        const bool isText = name == "d.xif" || name == "d.fmt";
        int survived = 0;
        ForDamaged(bytes, 7, 150, [&, file = name](const std::string& damaged) {
            const auto error = Raised([&] { InspectFile(scratch.File(file, damaged), nullptr); });
            survived += error ? 0 : 1;
            EXPECT_TRUE(!error || !error->Context().reason.empty());
        });
        // The checksums of a resource file cover all but the slack and the last byte.
        if (!isText) {
            EXPECT_LT(survived, 40) << name;
        }
    }
}

TEST(DumpSamples, EverySampleIsShownWhole) {
    std::vector<std::string> paths = SampleFiles("resources");
    for (std::string& path : SampleFiles("xif"))
        paths.push_back(std::move(path));
    if (paths.empty())
        GTEST_SKIP() << "no samples";
    for (const std::string& path : paths) {
        if (IsNoXif(path)) {
            const auto error = Raised([&] { InspectFile(path, nullptr); });
            ASSERT_TRUE(error);
            EXPECT_NE(error->Context().reason.find("comma-separated"), std::string::npos);
            continue;
        }
        const Inspection inspection = InspectFile(path, nullptr);
        EXPECT_EQ(inspection.tree.Find("unknownRecords"), nullptr) << path;
        EXPECT_EQ(inspection.tree.Find("attached"), nullptr) << path;
        if (inspection.kind != FileKind::xif)
            continue;
        // The header counts the variables and tags that follow.
        const InspectNode* line6 = inspection.tree.Find("parameters")->Find("line6");
        const auto count = [&](const char* list) {
            return InspectNode::Value(static_cast<std::int64_t>(inspection.tree.Find(list)->children.size()));
        };
        EXPECT_EQ(line6->Find("numberOfStaticNvs")->value, count("networkVariables")) << path;
        EXPECT_EQ(line6->Find("numberOfTags")->value, count("messageTags")) << path;
    }
}

}  // namespace
}  // namespace tovarek::test
