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
    std::vector<ReminderLine> added;
    std::vector<std::string> expected;
    for (int i = 0; i < 1231; ++i) {
        const std::string line = "In " + std::to_string(2 + i * 7 % 30) + " days: " + std::to_string(i);
        added.push_back({line});
        expected.insert(std::find_if(expected.begin(), expected.end(),
                                     [&](const std::string& other) {
                                         return std::stoi(other.substr(3)) >= std::stoi(line.substr(3));
                                     }),
                        line);
    }
    ReminderLines lines;
    lines.Add(added);
    EXPECT_TRUE(
        std::equal(lines.All().begin(), lines.All().end(), expected.begin(), expected.end(),
                   [](const ReminderLine& line, const std::string& text) { return line.text == text; }));
}

}  // namespace
}  // namespace kaz
