// Files whose every byte is known: writers, the creating operations and readers against them.
#include "Fixtures.h"

namespace tovarek::test {

namespace {

const char* const kStrings[] = {
    "Language strings of Acme", "Acme Works", "Profiles of Acme", "Types of Acme", "Belt speed", "m/s"};

std::string Padded(std::string text) {
    text.resize(255, ' ');
    return text + '\0';
}

std::string TextBlocks(const std::string& magic, const std::string& title) {
    return Padded(magic + "\r\n" + title +
                  ", Data version 1.05.\r\nThis file is a binary (non-ASCII) file - DO NOT EDIT!\r\n\x1A") +
           Padded(
               "This file was created & is maintained by Acme Works.\nContact us at 555-0100,\nor at "
               "info@acme.example on the internet.\n") +
           Padded("www.acme.example");
}

const std::string& LanguageBytes() {
    static const std::string bytes =
        TextBlocks("URES", "Language Resource (RES) file") +
        Bytes(
            "03 00 00 01 03 00 00 02 00 01 07 E8 03 09 0E 1E 07 05 03 00 00 00 03 4D BB A2 00 00 03 61 00 00"
            "00 84 90 0A BC 01 02 03 04 00 03 65 6E 75 00 00 00 06 00 00 00 00 00 03 63 00 00 03 84 00 00 03"
            "97 00 00 03 B0 00 00 03 C6 00 00 03 D9 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00"
            "00 77 0D 00 00 01 00 1C 05 0D 00 4C 61 6E 67 75 61 67 65 20 73 74 72 69 6E 67 73 20 6F 66 20 41"
            "63 6D 65 00 00 00 02 00 0E B1 23 00 41 63 6D 65 20 57 6F 72 6B 73 00 00 00 03 00 14 C7 86 00 50"
            "72 6F 66 69 6C 65 73 20 6F 66 20 41 63 6D 65 00 00 00 04 00 11 F2 ED 00 54 79 70 65 73 20 6F 66"
            "20 41 63 6D 65 00 00 00 05 00 0E 1B F9 00 42 65 6C 74 20 73 70 65 65 64 00 00 00 06 00 07 55 08"
            "00 6D 2F 73 00 00");
    return bytes;
}

const std::string& ProfileBytes() {
    static const std::string bytes =
        TextBlocks("UFPT", "Functional Profile Template (FPT) file") +
        Bytes(
            "03 00 00 03 03 00 00 02 00 01 07 E8 03 09 0E 1E 07 05 05 00 00 00 03 4B 9F 64 00 00 03 CF 00 00"
            "00 02 90 0A BC 01 02 03 04 00 03 00 00 00 01 00 02 00 03 00 04 00 05 00 06 00 00 00 01 00 02 00"
            "03 00 04 00 05 00 06 00 00 00 00 00 00");
    return bytes;
}

const std::string kTypeHeader = Bytes(
    "03 00 00 04 03 00 00 02 00 01 07 E8 03 09 0E 1E 07 05 06 00 00 00 03 77 79 31 00 00 04 87 00 00"
    "01 47 90 0A BC 01 02 03 04 00 03 00 00 00 01 00 02 00 03 00 04 00 05 00 06 00 00 00 01 00 02 00"
    "03 00 04 00 05 00 06 00 02 00 01 00 01 00 00 00 00 00 00 00 00 04 89 00 00 04 B4 00 00 04 89 00"
    "00 04 B4 00 00 05 50 00 00 05 50 00 00 05 7B 00 00 05 7B 00 00 05 7B");

const std::string kTypeRecords =
    Bytes("00 01 00 27 00 00 00 00 02 0A") + "_beltSpeed" +
    Bytes(
        "03 00 00 05 03 00 00 00 03 00 00 06 05 06 FE 0C 04 B0 00 05 FF FE 00"
        "00 02 00 98 00 00 00 00 07 0A") +
    "_beltState" + Bytes("03 00 00 00 03 00 00 00 03 00 00 00 09 00 05 04") + "mode" +
    Bytes("03 00 00 00 03 00 00 00 03 00 00 00 07 03 00 01 40 02 03") + "run" +
    Bytes("03 00 00 00 03 00 00 00 03 00 00 00 0B 01 90 04") + "gear" +
    Bytes("03 00 00 00 03 00 00 00 03 00 00 00 0B 13 80 05 04") + "load" +
    Bytes("03 00 00 00 03 00 00 00 03 00 00 00 08 00 03 03 00 00 00 03 00 00 00 03 00 00 00 04 80 64 00 04") +
    "temp" + Bytes("03 00 00 00 03 00 00 00 03 00 00 00 0E 00 00 69 02 00 01 00 27 00 00 00 00 02 09") +
    "_maxSpeed" +
    Bytes("03 00 00 00 03 00 00 00 03 00 00 00 0E 03 00 01 02 03 00 00 04 B0 02 58 00 01 00 4F 0B") +
    "belt_mode_t" + Bytes("06") + "belt.h" +
    Bytes("00 04 FF 00 35 03 00 00 00 00 00 3C 03 00 00 00 01 00 43 03 00 00 00 02 00 4B 03 00 00 00 06") +
    "BM_NUL" + Bytes("06") + "BM_OFF" + Bytes("07") + "BM_SLOW" + Bytes("07") + "BM_FAST";

void SetHeader(ResourceHeader& header, ResourceKind kind, std::uint32_t description) {
    header.title = TitleText(kind, 1, 5);
    header.contact = ContactText("Acme Works", "555-0100", "info@acme.example");
    header.webPage = "www.acme.example";
    header.description = {3, description};
    header.creator = {3, 2};
    header.majorVersion = 1;
    header.minorVersion = 5;
    header.saved = {2024, 3, 9, 14, 30, 7};
    header.programId = {0x90, 0x0A, 0xBC, 0x01, 0x02, 0x03, 0x04, 0x00};
    header.scope = 3;
}

constexpr StringRef kNone{3, 0};

TypeDescription BitField(std::uint8_t offset, std::uint8_t width, std::int64_t maximum) {
    TypeDescription type;
    type.kind = TypeKind::bitField;
    type.bitOffset = offset;
    type.bitWidth = width;
    type.maximum = maximum;
    return type;
}

TypeDescription Reference(TypeRef target, std::uint8_t size) {
    TypeDescription type;
    type.kind = TypeKind::reference;
    type.target = target;
    type.referencedSize = size;
    return type;
}

NvType BeltSpeed() {
    NvType type{"_beltSpeed", 2, {3, 5}, kNone, {3, 6}, Ranged(TypeKind::signedLong, -500, 1200)};
    type.type.a = 5;
    type.type.b = -2;
    return type;
}

NvType BeltState() {
    TypeDescription state;
    state.kind = TypeKind::structure;
    TypeDescription mode = Ranged(TypeKind::enumeration, -1, 2);
    mode.target = {3, 1};
    state.members.push_back({"mode", kNone, kNone, kNone, mode});
    state.members.push_back({"run", kNone, kNone, kNone, BitField(0, 1, 1)});
    state.members.push_back({"gear", kNone, kNone, kNone, BitField(1, 3, 5)});
    state.members.push_back(
        {"load", kNone, kNone, kNone, ArrayOf(Ranged(TypeKind::unsignedShort, 0, 100), 3, 3)});
    state.members.push_back({"temp", kNone, kNone, kNone, Reference({0, 105}, 2)});
    return {"_beltState", 7, kNone, kNone, kNone, state};
}

Enumeration BeltMode(const std::string& file) {
    return {"belt_mode_t",
            file,
            {{-1, "BM_NUL", kNone}, {0, "BM_OFF", kNone}, {1, "BM_SLOW", kNone}, {2, "BM_FAST", kNone}}};
}

CpType MaxSpeed() {
    CpType type;
    static_cast<NvType&>(type) = {"_maxSpeed", 2, kNone, kNone, kNone, Reference({3, 1}, 2)};
    type.minimum = Bytes("00 00");
    type.maximum = Bytes("04 B0");
    type.initial = Bytes("02 58");
    return type;
}

}  // namespace

ExampleSet MakeExampleSet() {
    ExampleSet set;
    SetHeader(set.language.header, ResourceKind::language, 1);
    set.language.language = "enu";
    set.language.strings.assign(std::begin(kStrings), std::end(kStrings));
    SetHeader(set.types.header, ResourceKind::type, 4);
    set.types.nvTypes = {BeltSpeed(), BeltState()};
    set.types.cpTypes = {MaxSpeed()};
    set.types.enumerations = {BeltMode("belt.h")};
    SetHeader(set.profiles.header, ResourceKind::profile, 3);
    return set;
}

std::vector<std::string> ExampleBytes() {
    const ExampleSet set = MakeExampleSet();
    std::vector<std::string> files(3);
    EXPECT_EQ(WriteLanguageFile(set.language, files[0]).reason, "");
    EXPECT_EQ(WriteTypeFile(set.types, files[1]).reason, "");
    EXPECT_EQ(WriteProfileFile(set.profiles, files[2]).reason, "");
    return files;
}

ExampleControl::ExampleControl() {
    types.SetClock(FixedClock(1709994607));
    types.GetResourceSetHandle(handle);
    types.SetResourceScope(3);
}

std::int32_t ExampleControl::CreateLanguage(const std::string& path, std::int32_t locale) {
    return types.CreateLanguageFile(path, -1, handle, "900ABC0102030400", "Acme Works", "555-0100",
                                    "info@acme.example", "www.acme.example", locale, 1, 5, 1, 2);
}

std::int32_t ExampleControl::CreateProfile(const std::string& path) {
    return types.CreateFunctionalProfileFile(path, -1, handle, "900ABC0102030400", "Acme Works", "555-0100",
                                             "info@acme.example", "www.acme.example", 1, 5, 3, 2);
}

std::int32_t ExampleControl::CreateType(const std::string& path) {
    return types.CreateTypeFile(path, -1, handle, "900abc0102030400", "Acme Works", "555-0100",
                                "info@acme.example", "www.acme.example", 1, 5, 4, 2);
}

std::int32_t ExampleControl::Save() {
    types.CloseResourceFile();
    return types.SaveResourceFile(0, 0);
}

TEST(WorkedExamples, LanguageFileThroughTheCreatingOperations) {
    const Scratch folder;
    ExampleControl control;
    ASSERT_EQ(control.CreateLanguage(folder.Path("Acme_3.enu")), 0) << control.types.ResultReason();
    std::int32_t expected = 1;
    for (const char* text : kStrings) {
        std::int32_t number = 0;
        std::int32_t scope = 0;
        ASSERT_EQ(control.types.AddLanguageString(text, 0, number, scope), 0);
        EXPECT_EQ(number, expected++);
        EXPECT_EQ(scope, 3);
    }
    ASSERT_EQ(control.Save(), 0) << control.types.ResultReason();
    EXPECT_EQ(ReadFile(folder.Path("Acme_3.enu")), LanguageBytes());
    EXPECT_EQ(LanguageBytes().size(), 998U);
}

TEST(WorkedExamples, EmptyProfileFileThroughTheCreatingOperations) {
    const Scratch folder;
    ExampleControl control;
    ASSERT_EQ(control.CreateProfile(folder.Path("Acme_3.fpt")), 0) << control.types.ResultReason();
    ASSERT_EQ(control.Save(), 0);
    EXPECT_EQ(ReadFile(folder.Path("Acme_3.fpt")), ProfileBytes());
    EXPECT_EQ(ProfileBytes().size(), 845U);
}

TEST(WorkedExamples, TypeFileThroughTheWriter) {
    const std::string bytes = ExampleBytes()[1];
    const std::string texts = TextBlocks("UTYP", "NV and CP Type and Enum (TYP) file");
    ASSERT_EQ(bytes.size(), 1487U);
    EXPECT_EQ(bytes.substr(0, 0x300), texts);
    EXPECT_EQ(bytes.substr(0x300, kTypeHeader.size()), kTypeHeader);
    EXPECT_EQ(bytes.substr(0x377, 0x487 - 0x377), std::string(0x487 - 0x377, '\0'));
    EXPECT_EQ(bytes.substr(0x489, kTypeRecords.size()), kTypeRecords);
    EXPECT_EQ(bytes.back(), '\0');
}

TEST(WorkedExamples, TypesThroughTheCreatingOperations) {
    const Scratch folder;
    ExampleControl control;
    QVxTypes& types = control.types;
    ASSERT_EQ(control.CreateType(folder.Path("belt.typ")), 0) << types.ResultReason();
    std::int32_t mode = 0;
    ASSERT_EQ(types.CreateEnumeration("belt_mode_t", mode), 0);
    for (const auto& [name, value] : {std::pair{"BM_NUL", -1}, {"BM_OFF", 0}, {"BM_SLOW", 1}, {"BM_FAST", 2}})
        ASSERT_EQ(types.AddEnumerationValue(mode, name, value, 0), 0);
    ASSERT_EQ(types.StartType("UNVT_beltSpeed"), 0);
    const NumberRange speed{.minimum = -500, .maximum = 1200, .a = 5, .b = -2};
    ASSERT_EQ(types.DescribeSigned({.nameText = 5, .unitText = 6}, 2, speed), 0);
    ASSERT_EQ(types.CompleteType(), 22);
    ASSERT_EQ(types.RegisterNetworkVariableType(1), 0);
    ASSERT_EQ(types.StartType("UNVT_beltState"), 0);
    ASSERT_EQ(types.DescribeStructure({}, 5), 0);
    ASSERT_EQ(types.DescribeEnumeration({.name = "mode"}, mode, -1, 2), 0);
    ASSERT_EQ(types.DescribeBitField({.name = "run"}, 1, 0, false, {}), 0);
    ASSERT_EQ(types.DescribeBitField({.name = "gear"}, 3, 1, false, {.maximum = 5}), 0);
    ASSERT_EQ(types.DescribeUnsigned({.name = "load", .arraySize = 3}, 1, {.minimum = 0, .maximum = 100}), 0);
    ASSERT_EQ(types.DescribeReference({.name = "temp"}, 105, 2), 0);
    ASSERT_EQ(types.CompleteType(), 22);
    ASSERT_EQ(types.RegisterNetworkVariableType(2), 0) << types.ResultReason();
    ASSERT_EQ(control.Save(), 0) << types.ResultReason();

    ExampleSet expected = MakeExampleSet();
    expected.types.cpTypes.clear();
    std::string bytes;
    ASSERT_TRUE(WriteTypeFile(expected.types, bytes).Ok());
    EXPECT_EQ(ReadFile(folder.Path("belt.typ")), bytes);
}

TEST(WorkedExamples, ReadersGiveWhatWasWritten) {
    LanguageFile language;
    ASSERT_EQ(ReadLanguageFile(LanguageBytes(), language).reason, "");
    EXPECT_EQ(language.language, "enu");
    ASSERT_EQ(language.strings.size(), 6U);
    EXPECT_EQ(*language.Find(5), "Belt speed");
    EXPECT_EQ(language.Find(7), nullptr);
    EXPECT_EQ(language.header.saved.minute, 30);
    EXPECT_EQ(language.header.webPage, "www.acme.example");

    ProfileFile profiles;
    ASSERT_EQ(ReadProfileFile(ProfileBytes(), profiles).reason, "");
    EXPECT_TRUE(profiles.profiles.empty());

    TypeFile types;
    const ExampleSet expected = MakeExampleSet();
    ASSERT_EQ(ReadTypeFile(ExampleBytes()[1], types).reason, "");
    EXPECT_EQ(types.nvTypes, expected.types.nvTypes);
    EXPECT_EQ(types.cpTypes, expected.types.cpTypes);
    EXPECT_EQ(types.enumerations, expected.types.enumerations);
}

}  // namespace tovarek::test
