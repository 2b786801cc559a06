// The creating operations: every result code from a real fault, limits of the format, failed writes.
#include <cmath>
#include <ctime>
#include <limits>

#include "base/Error.h"
#include "formats/Fixtures.h"

namespace tovarek::test {
namespace {

class Creating : public ::testing::Test {
  protected:
    void OpenTypes() { ASSERT_EQ(control.CreateType(folder.Path("set.typ")), 0) << types.ResultReason(); }

    // Creates a type file with one thing wrong.
    std::int32_t Create(const std::string& programId, const std::string& creator, const std::string& webPage,
                        std::int32_t major = 1, std::int32_t minor = 0, std::int32_t kind = 4,
                        std::int32_t text = 2) {
        return types.CreateTypeFile(folder.Path("set.typ"), -1, control.handle, programId, creator, "", "",
                                    webPage, major, minor, kind, text);
    }

    std::int32_t StartNumber(const std::string& name) {
        EXPECT_EQ(types.StartType(name), 0) << types.ResultReason();
        EXPECT_EQ(types.DescribeUnsigned({}, 1, {}), 0) << types.ResultReason();
        return types.CompleteType();
    }

    const std::string kId = "900ABC0102030400";
    Scratch folder;
    ExampleControl control;
    QVxTypes& types = control.types;
    std::int32_t number = 0;
    std::int32_t scope = 0;
};

TEST_F(Creating, SecondFileIsCode2UntilTheFirstIsSavedOrANewSetBegins) {
    OpenTypes();
    EXPECT_EQ(control.CreateProfile(folder.Path("set.fpt")), 2);
    types.CloseResourceFile();
    EXPECT_EQ(control.CreateProfile(folder.Path("set.fpt")), 2);
    types.GetResourceSetHandle(control.handle);
    types.SetResourceScope(3);
    EXPECT_EQ(control.CreateProfile(folder.Path("set.fpt")), 0);
    EXPECT_EQ(control.Save(), 0);
    EXPECT_FALSE(FileExists(folder.Path("set.typ")));
}

TEST_F(Creating, BadScopeIsCode3) {
    for (const int bad : {-1, 7}) {
        EXPECT_EQ(types.SetResourceScope(bad), 3);
        EXPECT_EQ(control.CreateType(folder.Path("set.typ")), 3) << "no scope is left";
    }
    EXPECT_EQ(types.SetResourceScope(6), 0);
    EXPECT_EQ(control.CreateType(folder.Path("set.typ")), 0);
}

TEST_F(Creating, BadProgramIdIsCode4) {
    for (const char* id :
         {"", "900ABC010203040", "900ABC01020304000", "900ABC010203040G", "90:0A:BC:01:02:0"})
        EXPECT_EQ(Create(id, "", ""), 4) << id;
}

TEST_F(Creating, UnusablePathIsCode5) {
    EXPECT_EQ(control.CreateType(folder.Path("none/set.typ")), 5);
    EXPECT_EQ(control.CreateType(folder.Folder()), 5);
    EXPECT_EQ(control.CreateType(folder.Folder() + "\\"), 5);
    EXPECT_EQ(control.CreateType(""), 5);
}

TEST_F(Creating, HeaderTextsThatDoNotFitAreCode6AndControlCharactersCode9) {
    EXPECT_EQ(Create(kId, std::string(213, 'x'), ""), 6);
    EXPECT_EQ(Create(kId, "", std::string(256, 'x')), 6);
    EXPECT_EQ(Create(kId, "two\nlines", ""), 9);
    EXPECT_EQ(Create(kId, std::string("nul\0", 4), ""), 9);
    std::string widest;  // characters count, not the bytes of UTF-8
    for (int i = 0; i < 255; ++i)
        widest += "\xC2\xB0";
    EXPECT_EQ(Create(kId, std::string(212, 'x'), widest), 0);
    ASSERT_EQ(control.Save(), 0);
    EXPECT_EQ(ReadFile(folder.Path("set.typ")).substr(0x200, 256), std::string(255, '\xB0') + '\0');
}

TEST_F(Creating, BadVersionIsCode7AndUnknownLocaleCode8) {
    for (const auto& [major, minor] : {std::pair{-1, 0}, {65536, 0}, {0, -1}, {0, 256}})
        EXPECT_EQ(Create(kId, "", "", major, minor), 7);
    // None at all, a language without a country, one without an abbreviation.
    for (const int locale : {0, 0x0009, 0x0466, -1}) {
        EXPECT_EQ(control.CreateLanguage(folder.Path("set.enu"), locale), 8);
        EXPECT_NE(types.ResultReason().find("such as 1033"), std::string::npos);
    }
    for (const auto& [locale, language] : {std::pair{0x0407, "deu"}, {0x0408, "ell"}, {0x10407, "deu"}}) {
        ASSERT_EQ(control.CreateLanguage(folder.Path("set.lng"), locale), 0);
        ASSERT_EQ(control.Save(), 0);
        EXPECT_EQ(ReadFile(folder.Path("set.lng")).substr(0x32B, 4), language + std::string(1, '\0'));
    }
}

TEST_F(Creating, WrongKindTextOrHandleIsCode16) {
    EXPECT_EQ(Create(kId, "", "", 1, 0, 3), 16);
    EXPECT_EQ(Create(kId, "", "", 1, 0, 4, 1), 16);
    ++control.handle;
    EXPECT_EQ(Create(kId, "", ""), 16);
    types.GetResourceSetHandle(control.handle);
    types.GetResourceSetHandle(number);
    EXPECT_EQ(types.ResultCode(), 0);
    types.SetResourceScope(6);
    EXPECT_EQ(Create(kId, "", ""), 16) << "of the set before";
    QVxTypes fresh;
    fresh.SetResourceScope(6);
    for (const int handle : {0, 1}) {
        EXPECT_EQ(fresh.CreateTypeFile(folder.Path("f"), -1, handle, kId, "", "", "", "", 1, 0, 4, 2), 16)
            << "no set has begun";
    }
}

TEST_F(Creating, OperationsNeedAnOpenFileOfTheirKind) {
    EXPECT_EQ(types.AddLanguageString("x", 0, number, scope), 11);
    EXPECT_EQ(types.CreateEnumeration("e", number), 11);
    EXPECT_EQ(types.StartType("UNVT_x"), 11);
    EXPECT_EQ(types.DescribeUnsigned({}, 1, {}), 11);
    EXPECT_EQ(types.CompleteType(), 11);
    EXPECT_EQ(types.RegisterNetworkVariableType(1), 11);
    EXPECT_EQ(types.SaveResourceFile(0, 0), 11);
    OpenTypes();
    EXPECT_EQ(types.AddLanguageString("x", 0, number, scope), 12);
    EXPECT_EQ(types.CompleteType(), 21);
    EXPECT_EQ(control.Save(), 0);
    ASSERT_EQ(control.CreateLanguage(folder.Path("set.enu")), 0);
    EXPECT_EQ(types.CreateEnumeration("e", number), 12);
    EXPECT_EQ(types.AddEnumerationValue(1, "v", 1, 0), 12);
    EXPECT_EQ(types.StartType("UNVT_x"), 12);
    EXPECT_EQ(types.DescribeFloat({}, {}, {}), 12);
    EXPECT_EQ(types.RegisterConfigurationPropertyType(1, 1, "00", "00", "00"), 12);
    types.CloseResourceFile();
    EXPECT_EQ(types.AddLanguageString("x", 0, number, scope), 11) << "edits have ended";
}

TEST_F(Creating, LongestStringFitsAndALongerOneIsCode13) {
    ASSERT_EQ(control.CreateLanguage(folder.Path("set.enu")), 0);
    EXPECT_EQ(types.AddLanguageString(std::string(65531, 'x'), 0, number, scope), 0);
    EXPECT_EQ(types.AddLanguageString(std::string(65532, 'x'), 0, number, scope), 13);
    EXPECT_EQ(types.AddLanguageString(std::string("a\0b", 3), 0, number, scope), 13);
    EXPECT_EQ(number, 1);
    ASSERT_EQ(control.Save(), 0);
    LanguageFile file;
    ASSERT_EQ(ReadLanguageFile(ReadFile(folder.Path("set.enu")), file).reason, "");
    EXPECT_EQ(file.Find(1)->size(), 65531U);
}

TEST_F(Creating, EnumerationFaultsAreCodes14And15) {
    OpenTypes();
    EXPECT_EQ(types.CreateEnumeration("", number), 14);
    EXPECT_EQ(types.CreateEnumeration(std::string(256, 'e'), number), 14);
    ASSERT_EQ(types.CreateEnumeration(std::string(255, 'e'), number), 0);
    EXPECT_EQ(types.AddEnumerationValue(number, "v", -128, 0xFFFFFF), 0);
    EXPECT_EQ(types.AddEnumerationValue(number, "v", 127, 0), 0);
    for (const auto& [set, value] : {std::pair{0, 1}, {2, 1}, {number, 128}, {number, -129}})
        EXPECT_EQ(types.AddEnumerationValue(set, "v", value, 0), 15);
    EXPECT_EQ(types.AddEnumerationValue(number, "", 1, 0), 15);
    EXPECT_EQ(types.AddEnumerationValue(number, std::string(256, 'v'), 1, 0), 15);
    EXPECT_EQ(types.AddEnumerationValue(number, "v", 1, -1), 15);
}

// Its record has 65,535 bytes at most, and the place of the last name is told in 16 bits.
TEST_F(Creating, EnumerationTakesAsManyValuesAsItsRecord) {
    OpenTypes();
    ASSERT_EQ(types.CreateEnumeration("many", number), 0);
    int values = 0;
    while (values < 70000 && types.AddEnumerationValue(number, "value", values % 100, 0) == 0)
        ++values;
    EXPECT_EQ(types.ResultCode(), 15);
    EXPECT_EQ(values, (65535 - 1 - 4 - 1 - 5 - 2) / 13);
    ASSERT_EQ(control.Save(), 0) << types.ResultReason();
    TypeFile file;
    ASSERT_EQ(ReadTypeFile(ReadFile(folder.Path("set.typ")), file).reason, "");
    EXPECT_EQ(file.enumerations[0]->values.size(), static_cast<std::size_t>(values));
}

TEST_F(Creating, EnumerationIsFilledToItsLastByte) {
    OpenTypes();
    // The last value's name has `name` characters and follows on `before` bytes. The name of a short one
    // would begin behind what 16 bits tell, although the record ends in time.
    for (const auto& [before, name, code] :
         {std::tuple{65507U, 20U, 0}, {65507U, 21U, 15}, {65524U, 1U, 0}, {65525U, 1U, 15}}) {
        ASSERT_EQ(types.CreateEnumeration("many", number), 0);
        std::size_t length = 1 + 4 + 1 + 5 + 2;
        for (; length + 13 <= 65507; length += 13)
            ASSERT_EQ(types.AddEnumerationValue(number, "value", 0, 0), 0);
        if (length < before) {
            ASSERT_EQ(types.AddEnumerationValue(number, std::string(before - length - 8, 'n'), 0, 0), 0);
        }
        EXPECT_EQ(types.AddEnumerationValue(number, std::string(name, 'v'), 0, 0), code)
            << before << ' ' << name;
    }
    EXPECT_EQ(control.Save(), 0) << types.ResultReason();
}

TEST_F(Creating, ElementsThatTheKindDoesNotHaveAreCode16) {
    OpenTypes();
    EXPECT_EQ(types.DescribeUnsigned({}, 1, {}), 21) << "nothing is started";
    EXPECT_EQ(types.DescribeStructure({}, 1), 21);
    ASSERT_EQ(types.StartType("UNVT_x"), 0);
    for (const int length : {0, 3, 8, -1}) {
        EXPECT_EQ(types.DescribeSigned({}, length, {}), 16);
        EXPECT_EQ(types.DescribeUnsigned({}, length, {}), 16);
    }
    for (const auto& [bits, offset] : {std::pair{0, 0}, {9, 0}, {1, 8}, {1, -1}, {5, 4}})
        EXPECT_EQ(types.DescribeBitField({}, bits, offset, false, {}), 16);
    EXPECT_EQ(types.DescribeReference({}, 0, 2), 16);
    EXPECT_EQ(types.DescribeReference({}, 65536, 2), 16);
    EXPECT_EQ(types.DescribeReference({}, 140, 0), 16) << "a type that the catalog lacks has size 0";
    EXPECT_EQ(types.DescribeReference({}, 1, 256), 16);
    EXPECT_EQ(types.DescribeEnumeration({}, 1, 0, 1), 16) << "no such enumeration";
    EXPECT_EQ(types.DescribeText({}, 0), 16);
    EXPECT_EQ(types.DescribeText({}, 65536), 16);
    EXPECT_EQ(types.DescribeUnsigned({.nameText = -1}, 1, {}), 16);
    for (const int members : {0, -1, 65536}) {
        EXPECT_EQ(types.DescribeStructure({}, members), 18);
        EXPECT_EQ(types.DescribeUnion({}, members), 18);
    }
    EXPECT_EQ(types.DescribeSigned({}, 1, {.a = 32768}), 19);
    EXPECT_EQ(types.DescribeSigned({}, 1, {.b = -32769}), 19);
    EXPECT_EQ(types.DescribeSigned({.arraySize = -1}, 1, {}), 19);
    EXPECT_EQ(types.DescribeSigned({.arraySize = 65536}, 1, {}), 19);
    EXPECT_EQ(types.DescribeBitField({.arraySize = 2}, 1, 0, false, {}), 19);
    EXPECT_EQ(types.CompleteType(), 23) << "nothing was described";
    EXPECT_EQ(types.DescribeReference({}, 65535, 255), 0);
}

TEST_F(Creating, LimitsOutsideTheKindAreCodes24And25) {
    OpenTypes();
    ASSERT_EQ(types.CreateEnumeration("e", number), 0);
    ASSERT_EQ(types.StartType("UNVT_x"), 0);
    EXPECT_EQ(types.DescribeSigned({}, 1, {.minimum = -129}), 24);
    EXPECT_EQ(types.DescribeSigned({}, 1, {.maximum = 128}), 25);
    EXPECT_EQ(types.DescribeUnsigned({}, 2, {.minimum = -1}), 24);
    EXPECT_EQ(types.DescribeUnsigned({}, 2, {.maximum = 65536}), 25);
    EXPECT_EQ(types.DescribeUnsigned({}, 4, {.minimum = -1}), 24);
    EXPECT_EQ(types.DescribeBitField({}, 3, 0, false, {.maximum = 8}), 25);
    EXPECT_EQ(types.DescribeBitField({}, 3, 0, true, {.minimum = -5}), 24);
    EXPECT_EQ(types.DescribeBitField({}, 3, 0, true, {.maximum = 4}), 25);
    EXPECT_EQ(types.DescribeEnumeration({}, number, -129, 0), 24);
    EXPECT_EQ(types.DescribeEnumeration({}, number, 0, 128), 25);
    EXPECT_EQ(types.DescribeSigned({}, 2, {.minimum = 2, .maximum = 1}), 24);
    EXPECT_EQ(types.DescribeFloat({}, -1e39, {}), 24);
    EXPECT_EQ(types.DescribeFloat({}, {}, 1e39), 25);
    const double roundsUp = std::numeric_limits<float>::max() + 0x1p103;
    EXPECT_EQ(types.DescribeFloat({}, {}, roundsUp), 25) << "rounds to infinity";
    EXPECT_EQ(types.DescribeFloat({}, std::nan(""), {}), 24);
    EXPECT_EQ(types.DescribeFloat({}, 1.0, 0.5), 24);
    EXPECT_EQ(types.DescribeFloat({}, -std::nextafter(roundsUp, 0), 3.40282346638529E+38), 0)
        << "15 digits round up";
    ASSERT_EQ(types.CompleteType(), 22);
    ASSERT_EQ(types.RegisterNetworkVariableType(1), 0);
    ASSERT_EQ(types.StartType("UNVT_y"), 0);
    EXPECT_EQ(types.DescribeFloat({}, 0.5, 0.5), 0);
}

TEST_F(Creating, MembersAreCounted) {
    OpenTypes();
    ASSERT_EQ(types.StartType("UNVT_x"), 0);
    ASSERT_EQ(types.DescribeStructure({}, 2), 0);
    ASSERT_EQ(types.DescribeUnion({.name = "inner"}, 1), 0);
    EXPECT_EQ(types.DescribeUnsigned({}, 1, {}), 17) << "a member needs a name";
    EXPECT_EQ(types.DescribeStructure({}, 1), 17) << "whatever it is";
    EXPECT_EQ(types.DescribeUnsigned({.name = std::string(256, 'm')}, 1, {}), 17);
    EXPECT_EQ(types.DescribeUnsigned({.name = "a"}, 1, {}), 0);
    EXPECT_EQ(types.CompleteType(), 23);
    EXPECT_EQ(types.RegisterNetworkVariableType(1), 23);
    EXPECT_EQ(types.DescribeUnsigned({.name = "b"}, 1, {}), 0);
    EXPECT_EQ(types.DescribeUnsigned({.name = "c"}, 1, {}), 17) << "no third member";
    EXPECT_EQ(types.DescribeStructure({.name = "c"}, 1), 17);
    EXPECT_EQ(types.CompleteType(), 22);
    EXPECT_EQ(types.CompleteType(), 21);
    EXPECT_EQ(types.RegisterNetworkVariableType(1), 0);
    EXPECT_EQ(types.RegisterNetworkVariableType(2), 21);
}

TEST_F(Creating, TypeFaultsAreCode20) {
    OpenTypes();
    for (const char* name : {"", "UNVT"})
        EXPECT_EQ(types.StartType(name), 20);
    EXPECT_EQ(types.StartType("UNVT" + std::string(256, 'x')), 20);
    ASSERT_EQ(StartNumber("UNVT_x"), 22);
    EXPECT_EQ(types.StartType("UNVT_y"), 20) << "the first is not registered";
    for (const int index : {0, 2, -1, 65536}) {
        EXPECT_EQ(types.RegisterNetworkVariableType(index), 20);
        EXPECT_EQ(types.RegisterConfigurationPropertyType(index, 1, "00", "00", "FF"), 20);
    }
    ASSERT_EQ(types.RegisterNetworkVariableType(1), 0);
    ASSERT_EQ(StartNumber("UNVT_x"), 22);
    EXPECT_EQ(types.RegisterNetworkVariableType(2), 0) << "names may repeat";
    ASSERT_EQ(StartNumber("UNVT_x"), 22);
    EXPECT_EQ(types.RegisterConfigurationPropertyType(1, 1, "00", "00", "FF"), 0);
    ASSERT_EQ(types.StartType("UNVT_large"), 0);
    ASSERT_EQ(types.DescribeSigned({.arraySize = 65535}, 2, {}), 0);
    ASSERT_EQ(types.CompleteType(), 22);
    EXPECT_EQ(types.RegisterNetworkVariableType(3), 20) << "larger than 65535 bytes";
}

TEST_F(Creating, RawValuesOfAnotherLengthAreCodes26And24And25) {
    OpenTypes();
    ASSERT_EQ(StartNumber("UCPTx"), 22);
    EXPECT_EQ(types.RegisterConfigurationPropertyType(1, 0, "", "", ""), 16);
    ASSERT_EQ(types.RegisterConfigurationPropertyType(1, 1, "01", "00", "FF"), 0);
    ASSERT_EQ(types.StartType("UCPT_y"), 0);
    ASSERT_EQ(types.DescribeUnsigned({}, 2, {}), 0);
    ASSERT_EQ(types.CompleteType(), 22);
    // The size is that of the description, whatever length is told; zeros of 3 bytes are no value at all.
    for (const char* bad : {"", "00", "000", "00000", "000G", "010203", "0000000000"}) {
        EXPECT_EQ(types.RegisterConfigurationPropertyType(2, 3, bad, "0000", "0000"), 26) << bad;
        EXPECT_EQ(types.RegisterConfigurationPropertyType(2, 3, "0000", bad, "0000"), 24) << bad;
        EXPECT_EQ(types.RegisterConfigurationPropertyType(2, 3, "0000", "0000", bad), 25) << bad;
    }
    EXPECT_EQ(types.RegisterConfigurationPropertyType(2, 3, "0258", "000000", "04b000000001"), 0);
    ASSERT_EQ(control.Save(), 0);
    TypeFile file;
    ASSERT_EQ(ReadTypeFile(ReadFile(folder.Path("set.typ")), file).reason, "");
    EXPECT_EQ(file.cpTypes[1]->size, 2);
    EXPECT_EQ(file.cpTypes[1]->minimum, Bytes("0000"));
    EXPECT_EQ(file.cpTypes[1]->maximum, Bytes("04B0"));
    EXPECT_EQ(file.cpTypes[1]->initial, Bytes("0258"));
}

TEST_F(Creating, UnregisteredTypeIsCode23OnSaving) {
    OpenTypes();
    ASSERT_EQ(StartNumber("UNVT_x"), 22);
    EXPECT_EQ(control.Save(), 23);
    EXPECT_FALSE(FileExists(folder.Path("set.typ")));
    EXPECT_EQ(control.CreateType(folder.Path("set.typ")), 0) << "the file is closed in any case";
}

TEST_F(Creating, NestingEndsWhereReadersStop) {
    OpenTypes();
    ASSERT_EQ(types.StartType("UNVT_deep"), 0);
    int depth = 0;
    while (types.DescribeStructure({.name = "s"}, 1) == 0)
        ++depth;
    EXPECT_EQ(types.ResultCode(), 18);
    EXPECT_EQ(depth, kDeepestNesting - 2) << "an array of texts still fits below";
    EXPECT_EQ(types.DescribeText({.name = "t", .arraySize = 2}, 3), 0);
    ASSERT_EQ(types.CompleteType(), 22);
    ASSERT_EQ(types.RegisterNetworkVariableType(1), 0) << types.ResultReason();
    ASSERT_EQ(control.Save(), 0) << types.ResultReason();
    TypeFile file;
    ASSERT_EQ(ReadTypeFile(ReadFile(folder.Path("set.typ")), file).reason, "");
    EXPECT_EQ(file.nvTypes[0]->size, 6);
}

TEST_F(Creating, DescriptionThatGrowsBeyondARecordIsRefusedOnTheWay) {
    OpenTypes();
    ASSERT_EQ(types.StartType("UNVT_wide"), 0);
    ASSERT_EQ(types.DescribeStructure({}, 65535), 0);
    int members = 0;
    while (types.DescribeUnsigned({.name = std::string(255, 'm')}, 1, {}) == 0)
        ++members;
    EXPECT_EQ(types.ResultCode(), 17);
    EXPECT_EQ(members, 0xFFFF / (255 + 15)) << "a member takes no less";
}

TEST_F(Creating, FormatsLimitOf65535PerKindIsReachedInLinearTime) {
    OpenTypes();
    const std::clock_t start = std::clock();
    for (int i = 1; i <= 65535; ++i) {
        const std::string name = std::to_string(i);
        ASSERT_EQ(types.CreateEnumeration("e" + name, number), 0);
        ASSERT_EQ(types.AddEnumerationValue(number, "v", 1, 0), 0);
        ASSERT_EQ(StartNumber("UNVT_" + name), 22);
        ASSERT_EQ(types.RegisterNetworkVariableType(i), 0);
        ASSERT_EQ(StartNumber("UCPT" + name), 22);
        ASSERT_EQ(types.RegisterConfigurationPropertyType(i, 1, "00", "00", "FF"), 0);
    }
    EXPECT_EQ(types.CreateEnumeration("one more", number), 14);
    ASSERT_EQ(StartNumber("UNVT_onemore"), 22);
    EXPECT_EQ(types.RegisterNetworkVariableType(65536), 20);
    types.RegisterConfigurationPropertyType(65536, 1, "00", "00", "FF");
    EXPECT_EQ(types.ResultCode(), 20);
    EXPECT_EQ(control.Save(), 23) << "the last type has no number";
    EXPECT_LT((std::clock() - start) / CLOCKS_PER_SEC, 60) << "seconds of its own, whatever else runs";
}

// Lets a number of calls pass, then the disk is full.
class FailingSink : public FileSink {
  public:
    FailingSink(int& calls, std::string& written) : calls_(calls), written_(written) { Count(); }
    void Append(std::string_view bytes) override {
        Count();
        written_ += bytes;
    }
    void Close() override { Count(); }

  private:
    void Count() {
        if (--calls_ < 0)
            RaiseRuntimeError(RuntimeError::diskFull);
    }
    int& calls_;
    std::string& written_;
};

TEST_F(Creating, FailedWriteIsCode27WithTheRuntimeNumber) {
    for (int passing = 0; passing < 4; ++passing) {
        int calls = passing;
        std::string written;
        types.SetFileOpener(
            [&](const std::string&) { return std::make_unique<FailingSink>(calls, written); });
        ASSERT_EQ(control.CreateProfile(folder.Path("set.fpt")), 0);
        EXPECT_EQ(control.Save(), passing < 3 ? 27 : 0);
        EXPECT_EQ(types.LastRuntimeError(), passing < 3 ? 61 : 0);
        EXPECT_EQ(types.SaveResourceFile(0, 0), 11) << "closed in any case";
    }
}

TEST_F(Creating, FullDiskIsCode27) {
    if (!HasFullDisk())
        GTEST_SKIP() << "the system has no disk that is full";
    ASSERT_EQ(control.CreateProfile(kFullDisk), 0);
    EXPECT_EQ(control.Save(), 27);
    EXPECT_EQ(types.LastRuntimeError(), 61);
}

TEST_F(Creating, EqualInputsAndClockGiveEqualBytes) {
    const auto create = [this](const std::string& path) {
        EXPECT_EQ(control.CreateLanguage(path), 0);
        types.AddLanguageString("Temp\xC3\xA9rature \xE2\x82\xAC", 0, number, scope);
        EXPECT_EQ(control.Save(), 0);
        return ReadFile(path);
    };
    const std::string bytes = create(folder.Path("a.enu"));
    EXPECT_EQ(bytes, create(folder.Path("b.enu")));
    EXPECT_NE(bytes.find("Temp\xE9rature \x80"), std::string::npos) << "texts are in the code page";
}

}  // namespace
}  // namespace tovarek::test
