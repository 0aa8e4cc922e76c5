#include "base/Numbers.h"

#include "fakes/ErrorOf.h"
#include "fakes/TestData.h"

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

TEST(Numbers, AreReadAsTheTableSays) {
    for (const auto& row : GoldenTable("numbers.txt")) {
        const std::string& text = row.at(1);
        double number = 0;
        const int error = ErrorOf([&] {
            number = row[0] == "LeadingNumber" ? LeadingNumber(text)
                     : row[0] == "TextToInt16" ? TextToInt16(text)
                                               : TextToInt32(text);
        });
        if (error != 0)
            EXPECT_EQ("error " + std::to_string(error), row.at(2)) << row[0] << " " << text;
        else
            EXPECT_EQ(number, std::stod(row.at(2))) << row[0] << " " << text;
    }
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

}  // namespace
}  // namespace kaz
