#include "fakes/Matchers.h"
#include "unit/reminders/ReminderDesk.h"

namespace kaz {
namespace {

TEST(UpdateAllEvents, MovesRecurringEventsOnAndOthersOut) {
    ReminderDesk desk;
    desk.Add("Deleted", -1).Deleted = true;
    desk.Add("Past", -1);
    desk.Add("Today", 0);
    desk.Add("Daily", -3, true).MailSent = true;
    desk.Engine().UpdateAllEvents();

    EXPECT_THAT(desk.TakeLog(), ElementsAre("Event expired and deleted: 3/14/2023 Past",
                                            "Event expired and updated: 3/12/2023 Daily"));
    EXPECT_THAT(desk.OnDisk("Events.xml"), ElementsAre("Today", "Daily"));
    EXPECT_THAT(desk.OnDisk("Expired.xml"), ElementsAre("Past"));
    const clsEvent& daily = desk.events.AllEvents().back();
    EXPECT_EQ(daily.DueDate(), desk.machine.clock.Today());
    EXPECT_EQ(daily.DaysLeft(), 0);
    EXPECT_FALSE(daily.MailSent);
    EXPECT_EQ(desk.expired.AllEvents().front().DaysLeft(), -1);
}

TEST(UpdateAllEvents, TheEventAfterARemovedOneWaitsForTheNextPass) {
    ReminderDesk desk;
    for (const char* name : {"A", "B", "C"})
        desk.Add(name, -1);
    desk.Add("R", -1, true);
    desk.Engine().UpdateAllEvents();
    EXPECT_THAT(DescriptionsOf(desk.events.AllEvents()), ElementsAre("B", "R"));
    desk.Engine().UpdateAllEvents();
    EXPECT_THAT(DescriptionsOf(desk.events.AllEvents()), ElementsAre("R"));
    EXPECT_LT(desk.events.AllEvents().front().DueDate(), desk.machine.clock.Today());
    desk.Engine().UpdateAllEvents();
    EXPECT_EQ(desk.events.AllEvents().front().DueDate(), desk.machine.clock.Today());
    EXPECT_THAT(DescriptionsOf(desk.expired.AllEvents()), ElementsAre("A", "C", "B"));
}

TEST(UpdateAllEvents, ABadRuleIsOneErrorAndStopsNothing) {
    ReminderDesk desk;
    desk.Add("Bad", -1, true).RecurrenceType(RecurWeekdays);
    desk.Add("Good", -1, true);
    desk.Engine().UpdateAllEvents();
    EXPECT_THAT(desk.TakeLog(),
                ElementsAre("Error 5 (Invalid procedure call or argument) in CalcDueDate of clsEvent",
                            "Event expired and updated: 3/14/2023 Bad",
                            "Event expired and updated: 3/14/2023 Good"));
    EXPECT_EQ(desk.events.AllEvents()[0].DueDate(), desk.machine.clock.Today().PlusDays(-1));
    EXPECT_EQ(desk.events.AllEvents()[1].DueDate(), desk.machine.clock.Today());
}

// False when the pass was over before the n-th operation.
bool SurvivesAFault(int n, FaultInjector::Lasts lasts) {
    ReminderDesk desk;
    desk.Add("Past", -1);
    desk.events.SaveDB();
    desk.machine.files.faults.FailAt(n, ErrorNumber::DeviceError, lasts);
    desk.Engine().UpdateAllEvents();
    const bool struck = desk.machine.files.faults.Struck();
    desk.machine.files.faults.FailAt(0);
    desk.machine.files.LosePower();

    const auto events = desk.OnDisk("Events.xml");
    const auto expired = desk.OnDisk("Expired.xml");
    EXPECT_THAT(events.empty() ? expired : events, ElementsAre("Past"));
    EXPECT_THAT(expired, AnyOf(IsEmpty(), ElementsAre("Past")));
    return struck;
}

TEST(UpdateAllEvents, AFaultAtAnyPlaceLeavesTheEventInOneOfTheFiles) {
    for (const auto lasts : {FaultInjector::Lasts::Once, FaultInjector::Lasts::FromThenOn}) {
        int n = 1;
        while (SurvivesAFault(n, lasts) && n < 100)
            ++n;
        EXPECT_GT(n, 5);
        EXPECT_LT(n, 100);
    }
}

TEST(UpdateAllEvents, AnExpiredEventKeepsItsPlaceBesideAnotherWithItsCode) {
    ReminderDesk desk;
    clsEvent older = desk.Add("Past", -1);
    older.Desc("Older");
    desk.expired.StoreRecord(older);
    desk.Engine().UpdateAllEvents();
    ASSERT_THAT(DescriptionsOf(desk.expired.AllEvents()), ElementsAre("Older", "Past"));
    EXPECT_NE(desk.expired.AllEvents()[0].IDCode, desk.expired.AllEvents()[1].IDCode);
}

TEST(UpdateAllEvents, ALongAbsenceIsToldInOneWriting) {
    ReminderDesk desk;
    for (int i = 0; i < 6800; ++i)
        desk.Add("Event " + std::to_string(i), -400, true);
    desk.Add("Past", -400);
    const int before = desk.machine.files.written;
    desk.Engine().UpdateAllEvents();
    EXPECT_EQ(desk.machine.files.written - before, 3);  // the log and the two files
    EXPECT_EQ(desk.TakeLog().size(), 6801U);
    EXPECT_EQ(desk.expired.RecordCount(), 1);
}

}  // namespace
}  // namespace kaz
