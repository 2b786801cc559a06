// What holds for any text.
#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <string>
#include <vector>

#include "base/Text.h"

namespace tovarek::test {
namespace {

TEST(Text, Utf16ComesBack) {
    const bool held = rc::check("valid text survives UTF-16 both ways", [](bool bigEndian) {
        std::string text;
        for (const auto& c :
             *rc::gen::container<std::vector<char32_t>>(rc::gen::inRange<char32_t>(0, 0x110000)))
            AppendUtf8(text, c);
        RC_ASSERT(FromUtf16(ToUtf16(text, bigEndian), bigEndian) == text);
    });
    EXPECT_TRUE(held);
}

}  // namespace
}  // namespace tovarek::test
