#include "model/clsEvent.h"

#include <gtest/gtest.h>

namespace kaz {
namespace {

TEST(clsEvent, DatesDropTheirTimeAndTimesKeepIt) {
    const DateValue moment = DateValue::FromCivil(2024, 2, 29).PlusMinutes(14 * 60 + 30);
    clsEvent event;
    event.DueDate(moment);
    event.StartDate(moment);
    event.DueTime(moment);
    event.AlarmTime(moment);
    EXPECT_EQ(event.DueDate(), moment.DateOnly());
    EXPECT_EQ(event.StartDate(), moment.DateOnly());
    EXPECT_EQ(event.DueTime(), moment);
    EXPECT_EQ(event.AlarmTime(), moment);
}

TEST(clsEvent, ANameIsListedByItsTailInAnyCase) {
    clsEvent event;
    EXPECT_FALSE(event.NameInShared("Ann"));
    EXPECT_FALSE(event.NameInShared(""));
    event.ShareNames = "J\xF6rg\r\nAnn\r\n";
    EXPECT_TRUE(event.NameInShared("ANN"));
    EXPECT_TRUE(event.NameInShared("nn"));
    EXPECT_FALSE(event.NameInShared("Ann2"));
    EXPECT_FALSE(event.NameInShared("An"));
    EXPECT_TRUE(event.NameInShared("J\xD6RG"));
    EXPECT_FALSE(event.NameInShared("J\xD6RG", CaseFolding::Ascii()));
}

TEST(clsEvent, DaysLeftCountWholeDays) {
    const DateValue noon = DateValue::FromCivil(2024, 3, 6).PlusMinutes(12 * 60);
    clsEvent event;
    for (const int ahead : {-2, 0, 1}) {
        event.DueDate(noon.PlusDays(ahead));
        event.CalcDaysLeft(noon);
        EXPECT_EQ(event.DaysLeft(), ahead);
    }
}

}  // namespace
}  // namespace kaz
