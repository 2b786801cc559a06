#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "Scratch.h"
#include "base/Numbers.h"

namespace tovarek::test {
namespace {

TEST(Numbers, TheLongestLeadingNumberCounts) {
    const std::pair<const char*, double> rows[] = {
        {"", 0},        {"abc", 0},  {"12abc", 12}, {" \t\r\n-7", -7}, {"1 0", 1},     {"+3", 3},
        {"-", 0},       {".5", 0.5}, {"5.", 5},     {".", 0},          {"1.5.2", 1.5}, {"2e3", 2000},
        {"2E-1x", 0.2}, {"2e", 2},   {"2e+", 2},    {"1e-400", 0},     {"1,5", 1},     {"&H10", 0},
        {"\v1", 0},     {"--1", 0},  {"0x10", 0},   {"1d2", 1},
    };
    for (const auto& [text, value] : rows)
        EXPECT_EQ(LeadingNumber(text), value) << text;
    EXPECT_TRUE(std::isinf(LeadingNumber("-1e400")));
    EXPECT_TRUE(std::isinf(LeadingNumber(std::string(500, '9'))));
    EXPECT_EQ(LeadingNumber("0." + std::string(5000, '0') + "1"), 0);
}

TEST(Numbers, ProfileValuesKnowLiterals) {
    const std::pair<const char*, double> rows[] = {{"&H1f", 31}, {" &hFFFF", 65535}, {"&O17", 15},
                                                   {"&o8", 0},   {"&H", 0},          {"-&H1", 0},
                                                   {"&", 0},     {"17", 17}};
    for (const auto& [text, value] : rows)
        EXPECT_EQ(LeadingProfileNumber(text), value) << text;
}

TEST(Numbers, HalvesRoundToEvenAndTheRangeIsChecked) {
    const std::pair<double, int> rows[] = {{2.5, 2}, {3.5, 4},  {-2.5, -2}, {2147483647.4, 2147483647},
                                           {0.5, 0}, {-0.5, 0}, {1.5, 2},   {-2147483648.5, INT32_MIN}};
    for (const auto& [value, rounded] : rows)
        EXPECT_EQ(RoundToInt32(value), rounded) << value;
    for (const double value : {2147483647.5, -2147483649.0, std::nan(""), HUGE_VAL})
        EXPECT_EQ(RaisedNumber([&] { RoundToInt32(value); }), 6) << value;
    EXPECT_EQ(RaisedNumber([] { AddChecked(INT32_MAX, 1); }), 6);
    EXPECT_EQ(RaisedNumber([] { MultiplyChecked(65536, 32768); }), 6);
}

TEST(Numbers, TextHasAPointAndTheFormOfThePlatform) {
    const std::pair<double, const char*> rows[] = {{0.5, "0.5"},
                                                   {3, "3"},
                                                   {-0.0, "0"},
                                                   {1e-5, "1E-05"},
                                                   {1e-4, "0.0001"},
                                                   {1e15, "1E+15"},
                                                   {123456789012345.0, "123456789012345"},
                                                   {1.0 / 3, "0.333333333333333"},
                                                   {-2.5, "-2.5"},
                                                   {1.5e-100, "1.5E-100"}};
    for (const auto& [value, text] : rows)
        EXPECT_EQ(DoubleToText(value), text);
}

}  // namespace
}  // namespace tovarek::test
