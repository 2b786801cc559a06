// Opening the standard catalog and what it answers. The catalog is the one that the build wrote from the
// facts.
#include <algorithm>

#include "control/ResourceSet.h"
#include "control/StandardCatalog.h"
#include "formats/Fixtures.h"

namespace tovarek::test {
namespace {

const std::string kFolder = TOVAREK_CATALOG;

std::unique_ptr<StandardCatalog> OpenBuilt() {
    std::unique_ptr<StandardCatalog> catalog;
    EXPECT_EQ(StandardCatalog::Open(kFolder + "/ldrf.cat", catalog).reason, "");
    return catalog;
}

std::int32_t OpenIn(const std::string& folder, const std::string& file = "ldrf.cat") {
    QVxTypes types;
    types.CatalogDirectory(folder);
    types.CatalogFileName(file);
    types.OpenCatalog();
    EXPECT_EQ(types.ResultCode() == 0, types.Catalog() != nullptr);
    EXPECT_EQ(types.ResultCode() == 0, types.ResultReason().empty());
    return types.ResultCode();
}

TEST(Catalog, SelectionAnswersSizeAndNamedFormats) {
    QVxTypes types;
    types.CatalogDirectory(kFolder);
    types.CatalogFileName("ldrf.cat");
    types.SelectedTypeIndex(105);
    EXPECT_EQ(types.ResultCode(), 1) << "not open yet";
    types.OpenCatalog();
    ASSERT_EQ(types.ResultCode(), 0) << types.ResultReason();
    types.SelectedTypeIndex(39);
    EXPECT_EQ(types.ResultCode(), 0);
    EXPECT_EQ(types.SelectedTypeSize(), 2);
    ASSERT_EQ(types.SelectedTypeFormatCount(), 3);
    TypeFormat format;
    ASSERT_EQ(types.SelectedTypeFormat(2, format), 0);
    EXPECT_EQ(format.name, "US");
    EXPECT_EQ(format.factor, 1.8);
    EXPECT_EQ(format.offset, 32);
    EXPECT_EQ(format.unit, "degrees F");
    EXPECT_EQ(types.SelectedTypeFormat(0, format), 16);
    EXPECT_EQ(types.SelectedTypeFormat(4, format), 16);
    types.SelectedTypeIndex(112);
    EXPECT_EQ(types.SelectedTypeSize(), 12);
    EXPECT_EQ(types.SelectedTypeFormatCount(), 0) << "only a default format";
    types.ClearTypeSelection();
    EXPECT_EQ(types.SelectedTypeSize(), 0);
    types.SelectedTypeIndex(140);
    EXPECT_EQ(types.ResultCode(), 1);
    types.ClearTypeSelection();
    EXPECT_EQ(types.ResultCode(), 0);
    types.CloseCatalog();
    EXPECT_EQ(types.Catalog(), nullptr);
}

TEST(Catalog, FormatWithSeveralParametersGivesThoseOfTheFirst) {
    QVxTypes types;
    types.CatalogDirectory(kFolder);
    types.CatalogFileName("ldrf.cat");
    types.OpenCatalog();
    types.SelectedTypeIndex(types.Catalog()->NvIndex("SNVT_hvac_overid"));
    ASSERT_EQ(types.SelectedTypeFormatCount(), 4);
    TypeFormat format;
    ASSERT_EQ(types.SelectedTypeFormat(3, format), 0);
    EXPECT_EQ(format.name, "US");
    EXPECT_EQ(format.factor, 1);
    EXPECT_EQ(format.unit, "");
}

TEST(Catalog, NumbersWithoutATypeAreNotInIt) {
    const auto catalog = OpenBuilt();
    for (const int index : {-1, 0, 140, 141, 142, 167, 216, 225, 226, 65535, 65536})
        EXPECT_FALSE(catalog->HasNv(index)) << index;
    EXPECT_EQ(catalog->Cp(381), nullptr);
    EXPECT_NE(catalog->Cp(384), nullptr);
    EXPECT_EQ(catalog->NvTypes().size(), 214U);
    EXPECT_EQ(catalog->CpTypes().size(), 359U);
    EXPECT_EQ(catalog->NvIndex("SNVT_nothing"), 0);
    EXPECT_EQ(catalog->NvIndex("UNVT_temp"), 0);
}

TEST(Catalog, TypesAreDescribedCompletely) {
    const auto catalog = OpenBuilt();
    for (const CatalogEntry& entry : catalog->NvTypes()) {
        const NvType* type = catalog->Nv(entry.index);
        ASSERT_NE(type, nullptr) << entry.name;
        EXPECT_EQ(SizeOf(type->type), entry.size) << entry.name;
        EXPECT_EQ(catalog->NvIndex(entry.name), entry.index);
        EXPECT_FALSE(catalog->NvFields(entry.index).empty()) << entry.name;
        if (type->type.kind == TypeKind::enumeration) {
            EXPECT_NE(catalog->EnumerationSet(type->type.target.index), nullptr) << entry.name;
        }
    }
    for (const CatalogEntry& entry : catalog->CpTypes())
        ASSERT_NE(catalog->Cp(entry.index), nullptr) << entry.name;
    const NvType& temperature = *catalog->Nv(105);
    EXPECT_EQ(temperature.type.kind, TypeKind::signedLong);
    EXPECT_EQ(temperature.type.minimum, -27317);
    EXPECT_EQ(temperature.type.invalid, 32767);
    EXPECT_EQ(temperature.type.b, -2);
    EXPECT_EQ(catalog->Text(temperature.unit), "degrees Celsius");
    EXPECT_EQ(catalog->Text({0, 854}), "degrees C");
    const Enumeration* days = catalog->EnumerationSet(catalog->Nv(11)->type.target.index);
    ASSERT_NE(days, nullptr);
    EXPECT_EQ(days->name, "days_of_week_t");
    EXPECT_EQ(catalog->Cp(1)->maximum, std::string("\0\0\0\0\x3B\x03\xE7", 7));
}

std::string Shown(const std::vector<FormatParameter>& parameters) {
    std::string text;
    for (const FormatParameter& parameter : parameters)
        text += parameter.conversion + ' ' + parameter.expression + ';';
    return text;
}

TEST(Catalog, DefaultParametersFollowKindScalingAndMembers) {
    const auto catalog = OpenBuilt();
    EXPECT_EQ(Shown(catalog->DefaultParameters(95)), "%f value;%d state;");
    EXPECT_EQ(Shown(catalog->DefaultParameters(105)), "%f ;") << "only named formats: from the type";
    EXPECT_EQ(Shown(catalog->DefaultParameters(8)), "%d ;");
    EXPECT_EQ(Shown(catalog->DefaultParameters(11)), "%m ;");
    EXPECT_EQ(Shown(catalog->DefaultParameters(36)), "%s ascii;");
    EXPECT_EQ(Shown(catalog->DefaultParameters(140)), "");
    const auto table = catalog->NvFields(catalog->NvIndex("SNVT_trans_table"));
    ASSERT_GE(table.size(), 7U);
    EXPECT_EQ(table[6].path, "point[6]");
    EXPECT_EQ(table[6].conversion, "%f");
}

TEST(Catalog, FormatFileAndTypeFileShowTheSameValues) {
    const auto catalog = OpenBuilt();
    for (const CatalogEntry& entry : catalog->NvTypes()) {
        const auto fields = catalog->NvFields(entry.index);
        for (const DisplayFormat& format : catalog->Formats(entry.name)) {
            for (const FormatParameter& parameter : format.parameters) {
                const bool known = std::any_of(fields.begin(), fields.end(), [&](const CatalogField& field) {
                    return field.path == parameter.expression || parameter.conversion == "%s";
                });
                EXPECT_TRUE(known) << entry.name << ' ' << parameter.expression;
            }
        }
    }
}

TEST(Catalog, MissingFilesAreCodeFive) {
    const Scratch folder;
    EXPECT_EQ(OpenIn(folder.Folder()), 5) << "no catalog file";
    EXPECT_EQ(OpenIn(folder.Path("none")), 5) << "no folder";
    EXPECT_EQ(OpenIn("", ""), 5);
    folder.File("ldrf.cat", "# Tovarek resource catalog 1\n.\nnowhere\n");
    EXPECT_EQ(OpenIn(folder.Folder()), 5) << "no standard set";
    const Scratch other;
    ASSERT_TRUE(MakeDirectory(other.Path("ldrf.cat")));
    EXPECT_EQ(OpenIn(other.Folder()), 5) << "a folder in its place";
    std::unique_ptr<StandardCatalog> earlier = OpenBuilt();
    EXPECT_EQ(StandardCatalog::Open(folder.Path("none"), earlier).code, 5);
    EXPECT_EQ(earlier, nullptr);
}

TEST(Catalog, AFileThatCannotBeReadIsNoSet) {
    if (kIsWindows || !std::filesystem::exists(kUnreadable))
        GTEST_SKIP() << "no link to such a file here";
    const Scratch folder;
    folder.File("ldrf.cat", "");
    for (const char* name : {"standard.typ", "standard.xyz"})
        std::filesystem::create_symlink(kUnreadable, folder.Path(name));
    EXPECT_EQ(OpenIn(folder.Folder()), 5);
    EXPECT_EQ(FindResourceSet(folder.Path("standard.typ")).language, "");
}

TEST(Catalog, TheEnglishTextsOfASetAreTaken) {
    const Scratch folder;
    for (const char* name : {"set.deu", "set.ENU", "set.fra", "set.typ"})
        folder.File(name, "");
    EXPECT_EQ(FindResourceSet(folder.Path("set.typ")).language, folder.Path("set.ENU"));
}

TEST(Catalog, IsNoLanguageFile) {
    EXPECT_TRUE(IsLanguageExtension("ELL"));
    EXPECT_FALSE(IsLanguageExtension("CAT")) << "although it abbreviates Catalan";
}

TEST(Catalog, OursNamesFoldersRelativeToItself) {
    const Scratch folder;
    ASSERT_TRUE(MakeDirectory(folder.Path("sets")));
    folder.File("sets/standard.typ", ReadFile(kFolder + "/standard.typ"));
    folder.File("ldrf.cat", "# Tovarek resource catalog 1\r\n\r\n# a comment\r\nmissing\r\n  sets  ");
    EXPECT_EQ(OpenIn(folder.Folder() + "\\"), 0);
    folder.File("ldrf.cat", "# Tovarek resource catalog 1\n" + kFolder + "\n");
    EXPECT_EQ(OpenIn(folder.Folder()), 0) << "an absolute folder";
}

// "\xE9" alone is no UTF-8, so it is that letter of the code page; the folder is the same.
TEST(Catalog, FoldersAreUtf8OrElseInTheCodePage) {
    const Scratch folder;
    ASSERT_TRUE(MakeDirectory(folder.Path("g\xC3\xA9")));
    folder.File("g\xC3\xA9/standard.typ", ReadFile(kFolder + "/standard.typ"));
    for (const char* line : {"g\xC3\xA9", "g\xE9", "g\xC3\xA9\n# \xEF\xBF\xBD"}) {
        folder.File("ldrf.cat", std::string("# Tovarek resource catalog 1\n") + line);
        EXPECT_EQ(OpenIn(folder.Folder()), 0) << line;
    }
    folder.File("ldrf.cat", "\xEF\xBB\xBF# Tovarek resource catalog 1\ng\xC3\xA9\n");
    EXPECT_EQ(OpenIn(folder.Folder()), 0) << "with a UTF-8 mark";
    folder.File("ldrf.cat", "# Tovarek resource catalog 1\n# \xE9\ng\xC3\xA9\n");
    EXPECT_EQ(OpenIn(folder.Folder()), 5) << "one byte decides for all";
}

TEST(Catalog, ForeignCatalogLeadsToItsOwnFolderInAnyLetterCase) {
    const Scratch folder;
    folder.File("LDRF.CAT", std::string("UCAT\0\x01\x02", 7));
    folder.File("STANDARD.Typ", ReadFile(kFolder + "/standard.typ"));
    EXPECT_EQ(OpenIn(folder.Folder(), "LDRF.CAT"), 0);
}

TEST(Catalog, OpensWithoutTextsAndFormats) {
    const Scratch folder;
    folder.File("standard.typ", ReadFile(kFolder + "/standard.typ"));
    folder.File("ldrf.cat", "");
    std::unique_ptr<StandardCatalog> catalog;
    ASSERT_TRUE(StandardCatalog::Open(folder.Path("ldrf.cat"), catalog).Ok());
    EXPECT_EQ(catalog->NvSize(112), 12);
    EXPECT_TRUE(catalog->Formats("SNVT_temp").empty());
    EXPECT_EQ(catalog->Text({0, 854}), "");
}

TEST(Catalog, DamagedStandardSetIsRefused) {
    const Scratch folder;
    folder.File("ldrf.cat", "");
    std::string bytes = ReadFile(kFolder + "/standard.typ");
    bytes[bytes.size() - 20] ^= 1;
    folder.File("standard.typ", bytes);
    EXPECT_EQ(OpenIn(folder.Folder()), 10);
    folder.File("standard.typ", ExampleBytes()[1]);
    EXPECT_EQ(OpenIn(folder.Folder()), 3) << "scope 3";
    std::string misplaced = ReadFile(kFolder + "/standard.typ");
    misplaced[misplaced.find("boolean_t") - 4] ^= 1;  // the number of the enumeration
    Repair(misplaced);
    folder.File("standard.typ", misplaced);
    EXPECT_EQ(OpenIn(folder.Folder()), 14) << "a record in another one's place";
    folder.File("standard.typ", bytes.substr(0, 5000));
    EXPECT_NE(OpenIn(folder.Folder()), 0);
    EXPECT_NE(OpenIn(folder.Folder()), 1);
}

TEST(Catalog, ASetInMemoryAnswersAsItsFilesDo) {
    const std::unique_ptr<StandardCatalog> files = OpenBuilt();
    std::string types = ReadFile(kFolder + "/standard.typ");
    const std::string texts = ReadFile(kFolder + "/standard.enu");
    const std::string formats = ReadFile(kFolder + "/standard.fmt");
    for (const bool isDecoded : {false, true}) {
        std::unique_ptr<StandardCatalog> memory;
        ASSERT_TRUE(StandardCatalog::Open({types, texts, formats}, memory).Ok());
        if (isDecoded)
            memory->DecodeAll();
        EXPECT_TRUE(memory->Files().empty());
        ASSERT_EQ(memory->NvTypes().size(), files->NvTypes().size());
        EXPECT_EQ(memory->CpTypes().size(), files->CpTypes().size());
        for (const CatalogEntry& type : files->NvTypes()) {
            EXPECT_EQ(memory->NvName(type.index), type.name);
            EXPECT_EQ(memory->NvFields(type.index).size(), files->NvFields(type.index).size());
            ASSERT_EQ(memory->Formats(type.name).size(), files->Formats(type.name).size());
            for (std::size_t i = 0; i < files->Formats(type.name).size(); ++i)
                EXPECT_EQ(memory->Formats(type.name)[i].body, files->Formats(type.name)[i].body);
        }
        EXPECT_EQ(memory->Text({0, 854}), files->Text({0, 854}));
    }
    std::unique_ptr<StandardCatalog> none = OpenBuilt();
    EXPECT_EQ(StandardCatalog::Open({ExampleBytes()[1], texts, formats}, none).code, 3) << "scope 3";
    types[types.size() - 20] ^= 1;
    EXPECT_EQ(StandardCatalog::Open({types, texts, formats}, none).code, 10);
    EXPECT_EQ(none, nullptr);
}

// A reference circle in a set that is sound by its checksums.
TEST(Catalog, TypesThatReferToThemselvesEnd) {
    TypeFile types;
    types.header.title = TitleText(ResourceKind::type, 1, 0);
    TypeDescription circle;
    circle.kind = TypeKind::structure;
    TypeDescription self;
    self.kind = TypeKind::reference;
    self.target = {0, 1};
    for (const char* name : {"a", "b", "c"})
        circle.members.push_back({name, {}, {}, {}, self});
    types.nvTypes.emplace_back(NvType{"_circle", 3, {}, {}, {}, circle});
    std::string bytes;
    ASSERT_TRUE(WriteTypeFile(types, bytes).Ok());
    const Scratch folder;
    folder.File("ldrf.cat", "");
    folder.File("standard.typ", bytes);
    std::unique_ptr<StandardCatalog> catalog;
    ASSERT_TRUE(StandardCatalog::Open(folder.Path("ldrf.cat"), catalog).Ok());
    EXPECT_TRUE(catalog->NvFields(1).empty());
}

TEST(Catalog, ADamagedDescriptionIsAsGoodAsNone) {
    TypeFile types;
    types.header.title = TitleText(ResourceKind::type, 1, 0);
    for (const char* name : {"_sound", "_worn"})
        types.nvTypes.emplace_back(NvType{name, 1, {}, {}, {}, NumberOfKind(TypeKind::unsignedShort)});
    types.enumerations = {Enumeration{"worn_t", "worn.h", {{1, "A", {}}}}};
    std::string bytes;
    ASSERT_TRUE(WriteTypeFile(types, bytes).Ok());
    bytes[bytes.find("_worn") + 5 + 12] = 0x7F;  // the kind, behind three texts
    bytes[bytes.find("worn.h") + 6] = '\x7F';    // how many values
    Repair(bytes);
    std::unique_ptr<StandardCatalog> catalog;
    ASSERT_TRUE(StandardCatalog::Open({bytes, "", ""}, catalog).Ok());
    for (int i = 0; i < 2; ++i) {
        EXPECT_NE(catalog->Nv(1), nullptr);
        EXPECT_EQ(catalog->Nv(2), nullptr);
        EXPECT_EQ(catalog->EnumerationSet(1), nullptr);
    }
    EXPECT_EQ(catalog->NvSize(2), 1);
}

}  // namespace
}  // namespace tovarek::test
