#include "story/Story.h"

#include <gmock/gmock.h>

using namespace kaz;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

clsEvent Warned(clsEvent event, std::int16_t days) {
    event.DaysWarning(days);
    return event;
}

}  // namespace

TEST(ADay, BringsComingUpThenTodayAndMovesTheWeeklyEventOn) {
    Story story;
    story.Settings("OWNER,Ann\r\n");
    story.Events({Warned(Daily("000001", "Swimming", story.Today(2), 7), 2),
                  Warned(OneOff("000002", "Dentist", story.Today(1)), 5)});
    story.Start().ShowMain();
    story.Advance(3);
    EXPECT_THAT(story.Lines("COMING UP"), ElementsAre("In 1 day: Dentist", "In 2 days: Swimming"));
    EXPECT_THAT(story.Lines("TODAY!"), IsEmpty());

    story.Jump(1);
    story.Advance(35);
    EXPECT_THAT(story.Lines("TODAY!"), ElementsAre("Dentist"));
    EXPECT_THAT(story.Lines("COMING UP"), ElementsAre("In 1 day: Swimming"));

    story.Jump(2);
    story.Advance(35);
    EXPECT_THAT(story.Lines("TODAY!"), IsEmpty());
    EXPECT_THAT(story.Saved("Expired.xml"), HasSubstr("<IDCode>000002</IDCode>"));
    EXPECT_THAT(story.Saved("Events.xml"), Not(HasSubstr("000002")));
    EXPECT_THAT(story.Saved("Events.xml"), HasSubstr("<DueDate>2023-03-24</DueDate>"));
}

TEST(ADay, ClosingTheMainWindowHidesItTellsTheHostAndKeepsTheAlarms) {
    Story story;
    story.Settings("OWNER,Ann\r\n");
    story.Events({WithAlarm(OneOff("000001", "Tea", story.Today()), 9, 2)});
    clsComponent& component = story.Start();
    component.ShowMain();
    story.Main()->Raise(0, Raised::CloseBox, kByEscape);
    EXPECT_TRUE(story.Main()->IsVisible());
    story.Main()->Raise(0, Raised::CloseBox);
    EXPECT_THAT(story.host.raised, ElementsAre("Closed"));
    EXPECT_FALSE(story.Main()->IsVisible());
    story.Advance(180);
    EXPECT_THAT(story.Lines("ALARM!"), ElementsAre("Tea"));
    component.ShowMain();
    EXPECT_TRUE(story.Main()->IsVisible());
    component.ShutDown();
    EXPECT_EQ(story.Main(), nullptr);
    EXPECT_EQ(story.Reminder("ALARM!"), nullptr);
}
