// What the self-documentation of a device and of its variables says.
#include <gtest/gtest.h>

#include "template/SelfDocumentation.h"

namespace tovarek::test {
namespace {

// "0x1 0 Name" for each entry: first index, count, profile, name.
std::string Entries(std::string_view documentation) {
    std::string text;
    for (const DeclaredBlocks& entry : DeclaredBlocksOf(documentation))
        text += std::to_string(entry.first) + 'x' + std::to_string(entry.count) + ' ' + entry.profile + ' ' +
                entry.name + ';';
    return text;
}

TEST(Blocks, AreThoseThatTheDeviceDeclares) {
    const struct {
        const char* documentation;
        const char* entries;
    } rows[] = {
        {"&3.0@0,8020[2];Fan coil @5", "0x1 0 ;1x2 8020 ;"},
        {"&3.4@0NodeObject,4[2Lamp,1010LightSensor", "0x1 0 NodeObject;1x2 4 Lamp;3x1 1010 LightSensor;"},
        {"&3.2@0520UIn1,3Switch[12]", "0x1 0520 UIn1;1x12 3 Switch;"},
        {"&3.0@1[0],2", "0x1 1 ;1x1 2 ;"},
        {"&3.0@0,Lamp,3", "0x1 0 ;"},
        {"&3.0@0,8020[x],3", "0x1 0 ;"},
        {"&3.0@1[99999999999],2", "0x65535 1 ;65535x1 2 ;"},
        {"@0,8020", ""},
        {"Fan coil", ""},
        {"", ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Entries(row.documentation), row.entries) << row.documentation;
    const std::pair<const char*, std::optional<std::size_t>> counts[] = {
        {"&3.0@0", 1},
        {"&3.0@0,8020[2];@5,6", 3},
        {"&3.4@0NodeObject,4[2Lamp,10", 4},
        {"&3.2@0,3Switch[12]", 13},
        {"&3.0@1[99999999999]", kMostBlocks},
        {"&3.0@", {}},
        {"&3.0@0,", {}},
        {"&3.0@0,Lamp,3", {}},
        {"&3.0@0,8020[x]", {}},
        {"&3.0@0,8020Lamp[]", {}},
        {"&3@0", {}},
        {"&.0@0", {}},
        {"&3.@0", {}},
        {"&3.0,0", {}},
        {"3.0@0", {}},
        {"", {}},
    };
    for (const auto& [documentation, count] : counts)
        EXPECT_EQ(DeclaredBlockCount(documentation), count) << documentation;
}

std::string RangesText(const std::vector<IndexRange>& ranges) {
    std::string text;
    for (const IndexRange& range : ranges)
        text += std::to_string(range.first) + '-' + std::to_string(range.last) + ' ';
    return text;
}

TEST(Blocks, HaveWhatSaysThatItBelongsToThem) {
    const struct {
        const char* documentation;
        const char* blocks;
        const char* member;
        const char* property;
        const char* text;
    } rows[] = {
        {"@1|3;Room", "1-1 ", "3", "", "Room"},
        {"@12#2", "12-12 ", "#2", "", ""},
        {"@0-3|1?", "0-3 ", "1", "", ""},
        {"@2[4]|1", "2-2 ", "1", "", ""},
        {"@.3|1", "", "1", "", ""},
        {"@1", "", "", "", ""},
        {"&1,2-4,0\\x80,49;Send time", "2-4 ", "", "0/49", "Send time"},
        {"&1,0.3.5,3\\xA4,7", "0-0 3-3 5-5 ", "", "3/7", ""},
        {"&2,14,0\\x80,49", "", "", "0/49", ""},
        {"&0,,0\\x80,17", "", "", "0/17", ""},
        {"&1,1", "", "", "", ""},
        {"Room; temperature", "", "", "", "Room; temperature"},
        {"", "", "", "", ""},
    };
    for (const auto& row : rows) {
        const Membership found = MembershipOf(row.documentation);
        EXPECT_EQ(RangesText(found.blocks), row.blocks) << row.documentation;
        EXPECT_EQ(found.member, row.member) << row.documentation;
        EXPECT_EQ(found.propertyType.empty() ? "" : found.propertyScope + '/' + found.propertyType,
                  row.property)
            << row.documentation;
        EXPECT_EQ(found.text, row.text) << row.documentation;
    }
    EXPECT_EQ(RangesText(RangesOf("1~3.7")), "1-3 7-7 ");
    for (const char* wrong : {"", "a", "3~1", "1..2", "1.", "~2", "1 2"})
        EXPECT_EQ(RangesText(RangesOf(wrong)), "") << wrong;
}

}  // namespace
}  // namespace tovarek::test
