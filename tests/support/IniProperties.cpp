// What holds for any value that is written to an INI file.
#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <string>

#include "Scratch.h"
#include "support/cIni.h"

namespace tovarek::test {
namespace {

TEST(Ini, WhatIsWrittenIsRead) {
    const Scratch scratch;
    const bool held =
        rc::check("a number and a text come back", [&](std::int32_t number, const std::string& raw) {
            std::string text;
            for (const char c : raw)
                if (static_cast<unsigned char>(c) > 0x20 && static_cast<unsigned char>(c) < 0x7F &&
                    c != '"' && c != '\'')
                    text += c;
            cIni ini;
            ini.iniFile(scratch.File("p.ini", "[other]\na=1\n"));
            ini.SetLongValue("s", "n", number);
            ini.SetStringValue("s", "t", text);
            RC_ASSERT(ini.GetLongValue("s", "n", number == -1 ? 0 : -1) == number);
            RC_ASSERT(ini.GetStringValue("s", "t", "missing") == text);
            RC_ASSERT(ini.GetLongValue("other", "a", 0) == 1);
        });
    EXPECT_TRUE(held);
}

}  // namespace
}  // namespace tovarek::test
