#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "Samples.h"
#include "Scratch.h"
#include "base/Text.h"
#include "profile/CProfile.h"
#include "profile/ProfileFields.h"
#include "support/CTools.h"
#include "support/Readings.h"

namespace tovarek::test {
namespace {

const CErrorHandler kHandler;

// Lines 6 to 10 of a profile that passes.
constexpr const char* kGoodLines[] = {
    "2 15 0 3 1 9 9 3 3 5 5 11 11 10 10 0 0 16 15 1 1 11 3",
    "0 5 7 13 28 0 0 15 5 3 284 4",
    "1 7 1 0 4 4 4 15 200 0",
    "78125 0 0 0 0 0 0 0 0 0 0 0",
    "90 0 240 0 0 0 40 40 0 5 1 2 5 0 1",
};

CProfile GoodProfile() {
    CProfile profile;
    profile.errorHandler = &kHandler;
    for (const ProfileField& field : kProfileFields)
        profile.*field.value = field.name == "domains" ? 2 : 1;
    profile.typeneuron = 0;
    return profile;
}

std::string XifText(int line, const std::string& replacement) {
    std::string text = "File: a\r\nb\r\nc\r\n\r\n90:00:00:00:00:00:00:00\r\n";
    for (int i = 6; i <= 10; ++i)
        text += (i == line ? replacement : std::string(kGoodLines[i - 6])) + "\r\n";
    return text;
}

struct Bound {
    const char* field;
    std::int32_t value;
    int error;  // 1000 + n, 0 = passes
};

TEST(Profile, EveryFieldIsHeldToItsBounds) {
    const Bound bounds[] = {
        {"domains", 0, 1001},
        {"domains", 3, 1001},
        {"addresses", 16, 1002},
        {"addresses", 15, 0},
        {"handleIncomingMessages", 2, 1003},
        {"applicationtype", 5, 1005},
        {"applicationtype", 4, 0},
        {"nvConfigurationTableSizeForMIP", -1, 1006},
        {"numberAliases", 4096, 0},
        {"numberAliases", 4097, 1008},
        {"supportRelaxedBinding", -1, 1009},
        {"statisticsRelativeAllowed", 2, 1010},
        {"maximumSizeMemoryBlock", -1, 1011},
        {"sizeapplicationinputbuffers", 16, 1004},
        {"numbernetworkinputbuffers", -1, 1004},
        {"typeneuron", 7, 1012},
        {"typeneuron", 8, 0},
        {"typeneuron", 14, 0},
        {"typeneuron", 15, 1012},
        {"protocolClockRate", 0, 1013},
        {"protocolClockRate", 8, 1013},
        {"firmware", -1, 1014},
        {"aliasTableEntrySize", -1, 1023},
        {"standardTransceiver", 2, 1024},
        {"standardTransceiverID", -1, 1025},
        {"transceiverRate", 12, 1027},
        {"channelPrioritySlots", 128, 1028},
        {"minimumClockRate", -1, 1029},
        {"minimumClockRate", 99999, 0},
        {"averagePacketSize", -1, 1030},
        {"controlPreamble", 2, 1035},
        {"generalPurposeOverride", 2, 1037},
        {"packetQualificationTime", -1, 1046},
        {"dataOverrideTiming", 2, 1047},
        {"rawDataClockRate", 8, 1048},
        {"rawData4", 256, 1049},
        {"rawData0", -1, 1049},
        // The loose rules.
        {"transceiverInterface", -7, 0},
        {"transceiverInterface", 99, 0},
        {"generalData0", -1, 0},
        {"generalData0", 256, 1038},
        {"generalData3", 1000, 0},
        {"generalData6", -1, 1038},
    };
    for (const Bound& bound : bounds) {
        CProfile profile = GoodProfile();
        for (const ProfileField& field : kProfileFields)
            if (field.name == bound.field)
                profile.*field.value = bound.value;
        EXPECT_EQ(RaisedNumber([&] { profile.VerifyData(); }), bound.error)
            << bound.field << " " << bound.value;
    }
}

TEST(Profile, EveryFieldButTwoRefusesTheMissingKey) {
    for (const ProfileField& field : kProfileFields) {
        CProfile profile = GoodProfile();
        profile.*field.value = -1;
        const bool accepted = field.name == "transceiverInterface" || field.name == "generalData0";
        EXPECT_EQ(RaisedNumber([&] { profile.VerifyData(); }) == 0, accepted) << field.name;
    }
}

TEST(Profile, TheEarlierCheckIsReported) {
    CProfile profile = GoodProfile();
    profile.numbernetworkinputbuffers = 99;
    profile.applicationtype = 9;
    EXPECT_EQ(RaisedNumber([&] { profile.VerifyData(); }), 1005);
    EXPECT_EQ(RaisedNumber([] {
                  CProfile empty;
                  empty.errorHandler = &kHandler;
                  empty.VerifyData();
              }),
              1001);
}

TEST(Profile, IniKeysAreFoundInTheSectionOfTheirLine) {
    const Scratch scratch;
    std::string text;
    int line = 0;
    std::int32_t value = 100;
    for (const ProfileField& field : kProfileFields) {
        if (field.line != line)
            text += "[LINE" + std::to_string(line = field.line) + "]\r\n";
        text += UpperCase(field.iniKey) + "=" + std::to_string(value++) + "\r\n";
    }
    CProfile profile;
    profile.errorHandler = &kHandler;
    profile.iniFile = scratch.File("p.ini", text);
    profile.xifFile = "never read";
    profile.Load();
    value = 100;
    for (const ProfileField& field : kProfileFields)
        EXPECT_EQ(profile.*field.value, value++) << field.name;
    EXPECT_EQ(profile.typeneuron, 120) << "the twenty-first value";
}

// The source `name` (INI, XML or XIF by its extension), not loaded yet.
CProfile ProfileOf(const Scratch& scratch, const std::string& name, const std::string& text) {
    CProfile profile;
    profile.errorHandler = &kHandler;
    profile.xmlNodeName = "P";
    std::string CProfile::*source = name.ends_with("ini")   ? &CProfile::iniFile
                                    : name.ends_with("xml") ? &CProfile::xmlFile
                                                            : &CProfile::xifFile;
    profile.*source = scratch.File(name, text);
    return profile;
}

TEST(Profile, FaultsSayWhatWasTypedAndWhatToDo) {
    const Scratch scratch;
    const std::string six = "<P>\n<XIF_LINE6><DOMAINS>1</DOMAINS>\n";
    const struct {
        const char* source;
        std::string text;
        const char* field;
        const char* value;
        int line;
        const char* reason;
    } rows[] = {
        {"p.ini", "[Line6]\naddresses=3\n", "domains", "", 1,
         "section [Line6] has no key 'domains'; it takes 1 or 2"},
        {"p.ini", "[Line6]\raddresses=3\rdomain=1\r", "domains", "", 3, "did you mean 'domain' in line 3?"},
        {"p.ini", "\n[Lin6]\ndomains=1\n", "", "", 2,
         "the file has no section [Line6]; did you mean [Lin6] in line 2?"},
        {"p.ini", "[Line6d]\n[Line6c]\n[Line6b]\n[Line6a]\n", "", "", 4, "did you mean [Line6a] in line 4?"},
        {"p.ini", "[Line7]\ndomains=1\n", "", "", 0, "the file has no section [Line6]"},
        {"p.ini", "[Line6]\ndomains=\n", "domains", "", 2, "an empty value reads as 0; accepted: 1 or 2"},
        {"p.ini", "[Line6]\ndomains=-1\n", "domains", "-1", 2, "accepted: 1 or 2"},
        {"p.ini", "[Line6]\ndomains=two\n", "domains", "two", 2, "not a number and reads as 0; accepted"},
        {"p.ini", "[Line6]\ndomains=10 MHz\n", "domains", "10 MHz", 2, "this reads as 10; accepted"},
        {"p.xml", six + "<ADDRESSES>16 </ADDRESSES></XIF_LINE6></P>", "addresses", "16 ", 3,
         "accepted: 0 to 15"},
        {"p.xml", "<P>\n<XIF_LIN6/></P>", "", "", 2, "did you mean <XIF_LIN6> in line 2?"},
        {"p.xml", "<P>\n<XIF_LINE6>\n<DOMAIN>1</DOMAIN></XIF_LINE6></P>", "domains", "", 3,
         "did you mean <DOMAIN> in line 3? without it the value is 0; it takes 1 or 2"},
        {"p.xml", six + "</XIF_LINE6>\n<XIF_LINE7><FIRMWARE>\n4294967296</FIRMWARE></XIF_LINE7></P>",
         "firmware", "\n4294967296", 4, "between -2147483648 and 2147483647"},
        {"p.xif", XifText(7, "0 10MHz 7 13 28 0 0 15 5 3 284 4"), "protocolClockRate", "10MHz", 7,
         "this reads as 10; accepted"},
        // The bound of generalData0 is checked together with the next field's.
        {"p.xif", XifText(9, "1 0"), "controlPreamble", "", 9,
         "12 numbers, each behind a single blank, this one 2"},
        {"p.xif", "[Line6]\ndomains=2\n\n\n\n\n\n", "domains", "", 6,
         "begins with \"File:\", this one does not"},
        {"p.xif", XifText(9, "1 0 0 0 0 300 0 0 0 0 0 0"), "generalData0", "300", 9,
         "generalData0 up to 255"},
        {"p.xif", XifText(9, "1 0 0 0 0 300 -1 0 0 0 0 0"), "generalData1", "-1", 9,
         "generalData0 up to 255"},
    };
    for (const auto& row : rows) {
        CProfile profile = ProfileOf(scratch, row.source, row.text);
        const auto error = Raised([&] {
            profile.Load();
            profile.VerifyData();
        });
        ASSERT_TRUE(error) << row.text;
        const ErrorContext& context = error->Context();
        EXPECT_EQ(context.field, row.field) << row.text;
        EXPECT_EQ(context.value, row.value) << row.text;
        EXPECT_EQ(context.line, row.line) << row.text;
        EXPECT_EQ(context.file, scratch.Path(row.source));
        EXPECT_NE(context.reason.find(row.reason), std::string::npos) << row.text << context.reason;
    }
}

TEST(Profile, AValueOfAnEarlierLoadIsToldAsSuch) {
    const Scratch scratch;
    CProfile profile = ProfileOf(scratch, "p.xml", "<P><XIF_LINE6><DOMAINS>9</DOMAINS></XIF_LINE6></P>");
    profile.Load();
    profile.xmlFile = scratch.File("q.xml", "<P><XIF_LINE6/></P>");
    profile.Load();
    const auto error = Raised([&] { profile.VerifyData(); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Context().file, profile.xmlFile);
    EXPECT_NE(error->Context().reason.find("9 stays from an earlier load"), std::string::npos)
        << error->Context().reason;
}

TEST(Profile, AnIniFileThatCannotBeReadIsNamed) {
    const Scratch scratch;
    CProfile profile = ProfileOf(scratch, "p.ini", "");
    for (const std::string& path : {scratch.Path("missing.ini"), scratch.Folder()}) {
        profile.iniFile = path;
        profile.Load();
        const auto error = Raised([&] { profile.VerifyData(); });
        const auto unread = Raised([&] { ReadFile(path); });
        ASSERT_TRUE(error && unread);
        EXPECT_EQ(error->Context().file, path);
        EXPECT_EQ(error->Context().field, "");
        EXPECT_TRUE(error->Context().reason.starts_with(unread->Context().reason)) << error->Context().reason;
    }
}

TEST(Profile, EveryFaultIsFoundInTheOrderOfTheChecks) {
    CProfile profile = GoodProfile();
    profile.addresses = 16;
    profile.domains = 0;
    profile.rawData4 = 256;
    CollectingSink all;
    profile.VerifyData(all);
    ASSERT_EQ(all.findings.size(), 3U);
    EXPECT_EQ(all.findings[0].context.field, "domains");
    EXPECT_EQ(all.findings[1].context.field, "addresses");
    EXPECT_EQ(all.findings[2].context.field, "rawData4");
}

// A missing line is one fault or one warning, not one for each of its values.
TEST(Profile, AMissingLineIsOneFinding) {
    const Scratch scratch;
    const auto found = [&](const std::string& file, const std::string& text) {
        CollectingSink all;
        Readings readings(all);
        CProfile profile = ProfileOf(scratch, file.c_str(), text);
        profile.Load();
        profile.TellReadings(readings);
        profile.VerifyData(all);
        std::string told;
        for (const Finding& finding : all.findings)
            told += finding.warning == Warning::missingValue
                        ? finding.context.reason + "\n"
                        : std::to_string(TestNumber(finding.error)) + "\n";
        return told;
    };
    std::string ini;
    for (const ProfileField& field : kProfileFields)
        if (field.line != 7) {
            if (field.token == 1)
                ini += "[line" + std::to_string(field.line) + "]\n";
            ini += std::string(field.iniKey) + "=1\n";
        }
    EXPECT_EQ(found("p.ini", ini), "1012\n");
    EXPECT_EQ(found("p.ini", "<DEVICEPROFILE/>"), "1001\n");
    const std::string told = found("p.xml",
                                   "<P><XIF_LINE6><DOMAINS>1</DOMAINS><ADDRESSES>1</ADDRESSES></XIF_LINE6>"
                                   "<XIF_LINE10><RAWDATACLOCKRATE>1</RAWDATACLOCKRATE></XIF_LINE10></P>");
    EXPECT_NE(told.find("<P> has no <XIF_LINE8>, so all values of line 8 are written as 0\n"),
              std::string::npos)
        << told;
    EXPECT_EQ(std::count(told.begin(), told.end(), '\n'), 18 + 14 + 2 + 1) << told;
}

TEST(Profile, XifTokensGoToTheirPlaces) {
    const Scratch scratch;
    CProfile profile = GoodProfile();
    profile.xifFile = scratch.File("p.xif", XifText(0, ""));
    profile.Load();
    EXPECT_EQ(profile.domains, 2);
    EXPECT_EQ(profile.numbernetworkinputbuffers, 9) << "places 4 and 5 are the template's";
    EXPECT_EQ(profile.maximumSizeMemoryBlock, 11);
    EXPECT_EQ(profile.transceiverInterface, 0) << "place 3 of line 8 is a constant";
    EXPECT_EQ(profile.generalData6, 0);
    EXPECT_EQ(profile.rawData4, 1);
    EXPECT_EQ(RaisedNumber([&] { profile.VerifyData(); }), 0);
}

TEST(Profile, XifLinesAreSplitAtEveryBlank) {
    const Scratch scratch;
    CProfile profile = GoodProfile();
    profile.xifFile = scratch.File("p.xif", XifText(7, "  0  5 7.5 13x &H1C 0 0 15 5 3 284 4 extra  "));
    profile.Load();
    EXPECT_EQ(profile.protocolClockRate, 0) << "an empty token is 0 and shifts what follows";
    EXPECT_EQ(profile.firmware, 5);
    EXPECT_EQ(profile.receiveTransBlockSize, 8) << "7.5 rounds to even";
    EXPECT_EQ(profile.transControlBlockSize, 13);
    EXPECT_EQ(profile.onChipRAM, 28);
}

TEST(Profile, AnEmptyLastXifTokenIsZero) {
    const Scratch scratch;
    CProfile profile = GoodProfile();
    profile.xifFile = scratch.File("p.xif", XifText(8, "1 7 1 0 4 4 4 15 200  77"));
    profile.Load();
    EXPECT_EQ(profile.oscillatorWakeupTime, 0);
    EXPECT_EQ(profile.oscillatorPrecision, 200);
}

TEST(Profile, XifFilesThatCannotServeSayWhy) {
    const Scratch scratch;
    const struct {
        std::string text;
        int error;
        int line;
    } rows[] = {
        {"", 62, 1},
        {XifText(0, "").substr(0, 40), 62, 6},
        {XifText(7, ""), 9, 7},
        {XifText(8, "1 7 1 0 4 4 4 15 200"), 9, 8},
        {"a,b\nc,d\ne,f\ng\nh\ni,j\nk\nl\nm\nn\n", 9, 6},
        {XifText(9, "2147483648 0 0 0 0 0 0 0 0 0 0 0"), 6, 9},
        {std::string("\0\x01\x02\n\n\n\n\n\xFF\xFE", 10), 9, 6},
    };
    for (const auto& row : rows) {
        CProfile profile = GoodProfile();
        profile.xifFile = scratch.File("p.xif", row.text);
        const auto error = Raised([&] { profile.Load(); });
        ASSERT_TRUE(error) << row.text;
        EXPECT_EQ(error->Number(), row.error) << row.text;
        EXPECT_EQ(error->Context().line, row.line) << row.text;
        EXPECT_FALSE(error->Context().reason.empty());
    }
    CProfile profile = GoodProfile();
    profile.xifFile = scratch.Path("missing.xif");
    EXPECT_EQ(RaisedNumber([&] { profile.Load(); }), 53);
    profile.xifFile = scratch.Folder();
    EXPECT_EQ(RaisedNumber([&] { profile.Load(); }), 75);
}

TEST(Profile, XmlElementsCountInsideTheirLine) {
    const Scratch scratch;
    CProfile profile = GoodProfile();
    profile.xmlNodeName = "P";
    profile.xmlFile =
        scratch.File("p.xml",
                     "<d><P><DOMAINS>77</DOMAINS>"
                     "<Xif_Line6>text<domains>1</domains><w><Addresses> 14 </Addresses></w>"
                     "<TYPENEURON>9</TYPENEURON>"
                     "<XIF_LINE7><applicationtype>3</applicationtype><FIRMWARE>5</FIRMWARE></XIF_LINE7>"
                     "<NUMBERALIASES/></Xif_Line6>"
                     "<XIF_LINE7><typeNeuron>10</typeNeuron><typeNeuron>&amp;HB</typeNeuron></XIF_LINE7>"
                     "</P></d>");
    profile.Load();
    EXPECT_EQ(profile.domains, 1) << "outside of a line an element is no value";
    EXPECT_EQ(profile.addresses, 14);
    EXPECT_EQ(profile.applicationtype, 3) << "a line inside a line keeps the outer one";
    EXPECT_EQ(profile.firmware, 1);
    EXPECT_EQ(profile.numberAliases, 0) << "no text is 0";
    EXPECT_EQ(profile.typeneuron, 11) << "the later one wins";
    EXPECT_EQ(profile.rawData0, 1) << "what has no element keeps its value";
}

// An element that is missing from an XML profile is written as 0.
TEST(Profile, BeginsWithZeros) {
    const CProfile profile;
    for (const ProfileField& field : kProfileFields)
        EXPECT_EQ(profile.*field.value, 0) << field.name;
}

TEST(Profile, AnElementAloneIsLoadedAndThenRefused) {
    const Scratch scratch;
    const std::string path = scratch.File("p.xml", "<P><XIF_LINE6><DOMAINS>2</DOMAINS></XIF_LINE6></P>");
    CProfile profile;
    profile.errorHandler = &kHandler;
    EXPECT_EQ(RaisedNumber([&] { profile.Load(); }), 1051);
    profile.xmlNode = CTools().SearchXmlNode(path, "P", kHandler);
    EXPECT_EQ(RaisedNumber([&] { profile.Load(); }), 1051);
    EXPECT_EQ(profile.domains, 2);
}

// Files of other tools: those of versions up to 4.400 serve as profiles; in later ones the application type
// or the chip is refused, never a line.
TEST(Profile, RealInterfaceFilesLoadOrAreRefusedForTheirNumbers) {
    const std::vector<std::string> paths = SampleFiles("xif");
    if (paths.empty())
        GTEST_SKIP() << "no sample files";
    int files = 0;
    for (const std::string& path : paths) {
        const std::string name = CTools().ExtractFile(path);
        CProfile profile;
        profile.errorHandler = &kHandler;
        profile.xifFile = path;
        const int loaded = RaisedNumber([&] { profile.Load(); });
        if (name.starts_with("vnone")) {
            EXPECT_EQ(loaded, 9) << name;
            continue;
        }
        ASSERT_EQ(loaded, 0) << name;
        const int verified = RaisedNumber([&] { profile.VerifyData(); });
        if (name.starts_with("v3.1") || name.starts_with("v4.0") || name.starts_with("v4.400"))
            EXPECT_EQ(verified, 0) << name;
        else
            EXPECT_TRUE(verified == 1005 || verified == 1012) << name << " " << verified;
        ++files;
    }
    EXPECT_GT(files, 30);
}

}  // namespace
}  // namespace tovarek::test
