#include "reminders/ReminderLines.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace kaz {
namespace {

TEST(ReminderLines, AreOrderedByTheDaysOrTheLeadingDigits) {
    const std::pair<const char*, int> numbers[] = {
        {"In 12 days: In 3 words", 12}, {"Dentist at 3", 0}, {"3 eggs", 3}, {"in 3 days", 0},
        {"99999 miles", 32767},         {"-1e300", -32768},  {"", 0}};
    for (const auto& [text, number] : numbers)
        EXPECT_EQ(ReminderLines::NumberOf(text), number) << text;
}

// Each stands before the first one whose number is not smaller.
TEST(ReminderLines, ManyAtOnceStandInTheOrderOfOneByOne) {
    std::vector<std::string> added, expected;
    for (int i = 0; i < 1231; ++i) {
        const std::string& line =
            added.emplace_back("In " + std::to_string(2 + i * 7 % 30) + " days: " + std::to_string(i));
        expected.insert(std::find_if(expected.begin(), expected.end(),
                                     [&](const std::string& other) {
                                         return std::stoi(other.substr(3)) >= std::stoi(line.substr(3));
                                     }),
                        line);
    }
    ReminderLines lines;
    lines.Add(added);
    EXPECT_EQ(lines.Texts(), expected);
}

}  // namespace
}  // namespace kaz
