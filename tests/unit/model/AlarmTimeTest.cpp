#include "model/AlarmTime.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace kaz {
namespace {

TEST(AlarmTimeTest, ATimeInShortIsTakenWhereItCanMeanOneOnly) {
    using Texts = std::vector<const char*>;
    const std::pair<int, Texts> meant[] = {
        {0, {"0", "00:00", "12am", "12 AM"}},
        {5, {"0005", "12:05am"}},
        {7 * 60, {"7", "07", "7am"}},
        {7 * 60 + 30, {"7:30", "7.30", "730", "0730", " 7;30 ", "730 am"}},
        {12 * 60, {"12", "12pm"}},
        {15 * 60 + 15, {"3:15 pm", "315PM", "1515"}},
        {23 * 60 + 59, {"2359", "11.59pm"}},
    };
    for (const auto& [minute, texts] : meant)
        for (const char* text : texts)
            EXPECT_TRUE(TimeInShort(text) == DateValue::FromTime(minute / 60, minute % 60)) << text;
    for (const char* text : {"", "pm", "7:3", "7:", ":30", "24", "2400", "7:60", "760", "0am", "13pm",
                             "15:00pm", "12345", "7:30:00", "-7", "7 30", "7m", "3 xm", "late"})
        EXPECT_EQ(std::nullopt, TimeInShort(text)) << text;
}

}  // namespace
}  // namespace kaz
