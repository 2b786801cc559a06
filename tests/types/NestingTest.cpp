// Types that contain themselves, nest too deeply or expand without measure are refused; what is within the
// limits works.

#include "Device.h"

namespace tovarek::test {
namespace {

std::string Structure(int number, const std::string& fields) {
    const std::string element = "SNVT_" + std::to_string(number);
    return "<" + element + "><TYPE>STRUCT</TYPE><NAME>n</NAME><FIELDS>" + fields + "</FIELDS></" + element +
           ">";
}
std::string Field(int number) {
    return "<f>" + std::to_string(number) + "</f>";
}

// `levels` structures inside one another, and a byte in the innermost one.
std::string Chain(int levels) {
    std::string text = "<SNVT_300><TYPE>USER</TYPE><LENGTH>1</LENGTH></SNVT_300>";
    for (int i = 1; i <= levels; ++i)
        text += Structure(300 + i, Field(299 + i));
    return text;
}

TEST(Nesting, AThousandLevelsWork) {
    Device device;
    device.AddNv(1300);
    device.Load(Chain(1000));
    CType& type = device.Unvt("6_1");
    EXPECT_EQ(type.length, 1);
    EXPECT_EQ(device.Lines(type), "UNVT__n: int;\r\n");
}

TEST(Nesting, BeyondTheLimitsIsOutOfStackSpace) {
    struct Case {
        const char* what;
        std::string elements;
        int top;
        const char* chain;
    };
    std::string doubling = "<SNVT_300><TYPE>USER</TYPE><LENGTH>1</LENGTH></SNVT_300>";
    for (int i = 1; i <= 30; ++i)
        doubling += Structure(300 + i, Field(299 + i) + Field(299 + i));
    std::string wide;
    for (int i = 0; i < 1001; ++i)
        wide += Field(301);
    std::string thousand;
    for (int i = 0; i < 1000; ++i)
        thousand += Field(302);
    for (const Case& c : std::vector<Case>{
             {"itself", Structure(301, Field(301)), 301, "SNVT_301 > SNVT_301"},
             {"through others",
              Structure(301, Field(302)) + Structure(302, Field(303)) + Structure(303, Field(302)), 301,
              "SNVT_301 > SNVT_302 > SNVT_303 > SNVT_302"},
             {"one level too deep", Chain(1001), 1301, "SNVT_1301 > SNVT_1300"},
             {"ten thousand levels", Chain(10000), 10300, "SNVT_10300 > "},
             {"2^30 members", doubling, 330, "SNVT_330 > "},
             {"a million and more members",
              Structure(300, wide) + Structure(301, thousand) +
                  "<SNVT_302><TYPE>USER</TYPE><LENGTH>1</LENGTH></SNVT_302>",
              300, "SNVT_300 > SNVT_301"},
             // 999 x 1001 members and one more are a million: only what holds them has too many.
             {"a million members and their owner",
              Structure(299, Field(300)) +
                  Structure(300, wide.substr(0, 999 * Field(301).size()) + Field(302)) +
                  Structure(301, thousand) + "<SNVT_302><TYPE>USER</TYPE><LENGTH>1</LENGTH></SNVT_302>",
              299, "SNVT_299 > SNVT_300."}}) {
        Device device;
        device.AddNv(c.top);
        device.WriteFiles(c.elements);
        const auto error = Raised([&] { device.Load(); });
        ASSERT_TRUE(error) << c.what;
        EXPECT_EQ(error->Number(), static_cast<std::int32_t>(RuntimeError::outOfStackSpace)) << c.what;
        const std::string reason = error->Context().reason + '.';
        EXPECT_NE(reason.find(c.chain), std::string::npos) << reason;
    }
}

// A definition that was read for another type, as deep as is allowed by itself, is too deep inside a
// structure.
TEST(Nesting, KnownDefinitionsCountAsWell) {
    Device device;
    device.AddNv(1299);
    device.AddNv(1300);
    device.AddNv(1301);
    device.WriteFiles(Chain(1001));
    EXPECT_EQ(RaisedNumber([&] { device.Load(); }), 28);
    EXPECT_EQ(device.types.unvtTypes.size(), 2U);
}

TEST(Nesting, TypesThatAreNotStructuresMayNameThemselves) {
    Device device;
    device.AddNv(301);
    device.Load(
        "<SNVT_301><FIELDS><f>301</f></FIELDS><TYPE>USER</TYPE><NAME>a</NAME><LENGTH>1</"
        "LENGTH><FIELDS><f>301</f></FIELDS>"
        "</SNVT_301>");
    EXPECT_TRUE(device.Unvt("6_1").elements.empty());
}

}  // namespace
}  // namespace tovarek::test
