#include "base/Numbers.h"

#include "fakes/ErrorOf.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace kaz {
namespace {

TEST(Numbers, HalvesGoToTheEvenNumber) {
    struct {
        double value;
        int rounded;
    } const cases[] = {{0.5, 0},          {1.5, 2},  {2.5, 2},    {-0.5, 0},         {-1.5, -2},
                       {-2.5, -2},        {2.51, 3}, {-2.51, -3}, {32767.49, 32767}, {0.49999999999999994, 0},
                       {-32768.5, -32768}};
    for (const auto& [value, rounded] : cases) {
        EXPECT_EQ(RoundToInt32(value), rounded) << value;
        EXPECT_EQ(RoundToInt16(value), rounded) << value;
    }
    EXPECT_EQ(RoundToInt32(-2147483648.5), INT32_MIN);
    for (const double far : {32767.5, -32768.6, 1e300, -1e300, std::nan(""), HUGE_VAL})
        EXPECT_EQ(ErrorOf([&] { RoundToInt16(far); }), 6) << far;
    for (const double far : {2147483647.5, -2147483649.0, 1e300, std::nan("")})
        EXPECT_EQ(ErrorOf([&] { RoundToInt32(far); }), 6) << far;
    EXPECT_EQ(ErrorOf([] { ToInt16(32768); }), 6);
    EXPECT_EQ(ToInt16(-32768), INT16_MIN);
}

TEST(Numbers, LeadingNumberStopsWhereTheNumberDoes) {
    struct {
        const char* text;
        double value;
    } const cases[] = {{"", 0},
                       {" \t\r\n 12abc", 12},
                       {"+-7", 0},
                       {"1,5", 1},
                       {".5", 0.5},
                       {"-.5", -0.5},
                       {".", 0},
                       {"1E2x", 100},
                       {"1e", 1},
                       {"1e+", 1},
                       {"nan", 0},
                       {"0x10", 0},
                       {"&H10", 16},
                       {"&hFFFF", -1},
                       {"&H0FFFF", 65535},
                       {"&HG", 0},
                       {"- 5", 0},
                       {"12 34", 12},
                       {"&H8000 ", -32768}};
    for (const auto& [text, value] : cases)
        EXPECT_EQ(LeadingNumber(text), value) << text;
    EXPECT_EQ(LeadingNumber(std::string_view("1\0002", 3)), 1);
}

TEST(Numbers, WhatNoDoubleHoldsIsInfiniteOrZero) {
    const std::string zeros(400, '0');
    const std::string nines(400, '9');
    for (const std::string& large :
         {"1e" + nines, std::string("1e400"), "1" + zeros, "1" + zeros + "e-5", "0.1e" + zeros + "999"})
        EXPECT_EQ(LeadingNumber(large), HUGE_VAL) << large;
    for (const std::string& tiny : {"1e-" + nines, std::string("1e-400"), "0." + zeros + "1",
                                    "0." + zeros + "1e5", "1e-" + zeros + "999", "-0." + zeros + "1"})
        EXPECT_EQ(LeadingNumber(tiny), 0) << tiny;
    EXPECT_EQ(LeadingNumber("-1e999"), -HUGE_VAL);
}

TEST(Numbers, WholeTextsAreNumbersOrMismatches) {
    EXPECT_EQ(TextToInt16(" 12 "), 12);
    EXPECT_EQ(TextToInt16("+12"), 12);
    EXPECT_EQ(TextToInt16("2.5"), 2);
    EXPECT_EQ(TextToInt16("-32768"), INT16_MIN);
    EXPECT_EQ(TextToInt32("&H7FFFFFFF"), INT32_MAX);
    EXPECT_EQ(TextToInt32("1e3"), 1000);
    for (const char* text :
         {"", " ", "x", "1x", "1 2", "--1", "1,5", "\t1", "&HFG", "1\n", "&H123456789ABCDEF01"})
        EXPECT_EQ(ErrorOf([&] { TextToInt16(text); }), 13) << text;
    for (const char* text : {"32768", "-32769", "32767.5", "99999999999999999999", "1e400"})
        EXPECT_EQ(ErrorOf([&] { TextToInt16(text); }), 6) << text;
    EXPECT_EQ(ErrorOf([] { TextToInt32("2147483648"); }), 6);
}

}  // namespace
}  // namespace kaz
