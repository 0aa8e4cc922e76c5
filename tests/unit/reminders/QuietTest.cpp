#include "reminders/Quiet.h"

#include "ReminderDesk.h"
#include "base/DateText.h"

#include <gmock/gmock.h>

namespace kaz {
namespace {

class QuietTest : public testing::Test, protected ReminderDesk {
protected:
    // On Wednesday at that time: until when it is quiet, "" when it is not.
    std::string At(int hour, int minute) {
        machine.clock.Set(2023, 3, 15, hour, minute);
        const Quiet::State state = Quiet(machine.Services(), settings, folder).Look();
        return state.isOn ? FormatDate(state.until, "D HH:NN", machine.locale.data) : "";
    }
};

TEST_F(QuietTest, TheSettingsAreBelievedAsFarAsTheProgramWouldHaveWrittenThem) {
    const struct {
        const char *from, *to, *since, *until, *over;
        int hour, minute;
        const char* expected;
    } cases[] = {
        {"22:00", "07:00", "", "", "", 21, 59, ""},
        {"22:00", "07:00", "", "", "", 22, 0, "16 07:00"},
        {"22:00", "07:00", "", "", "", 6, 59, "15 07:00"},
        {"22:00", "07:00", "", "", "", 7, 0, ""},
        {"12:00", "13:00", "", "", "", 12, 30, "15 13:00"},
        {"12:00", "12:00", "", "", "", 12, 0, ""},
        {"noon", "13:00", "", "", "", 12, 30, ""},
        {"12:00", "13:00", "", "", "2023-03-15 13:00:00", 12, 30, ""},
        {"12:00", "13:00", "", "", "2024-03-15 13:00:00", 12, 30, "15 13:00"},
        {"12:00", "13:00", "2023-03-15 11:30:00", "2023-03-15 13:30:00", "", 12, 30, "15 13:30"},
        {"", "", "2023-03-15 11:30:00", "2023-03-15 13:30:00", "", 11, 0, ""},
        {"", "", "2023-03-15 11:30:00", "2023-03-16 13:30:00", "", 12, 0, ""},
        {"", "", "", "2023-03-15 13:30:00", "", 12, 0, ""},
    };
    for (const auto& each : cases) {
        for (const auto& [name, value] :
             {std::pair{"QuietFrom", each.from}, std::pair{"QuietTo", each.to},
              std::pair{"QuietSince", each.since}, std::pair{"QuietUntil", each.until},
              std::pair{"QuietHoursOver", each.over}})
            settings.StoreSetting(name, std::string(value));
        EXPECT_EQ(each.expected, At(each.hour, each.minute)) << &each - cases;
    }
}

TEST_F(QuietTest, AnEventThatIsMarkedSoBreaksItWithItsAlarmOrOnItsDayWithoutOne) {
    for (const bool timed : {true, false})
        for (const bool always : {true, false}) {
            clsEvent& event = Add("Oven", 0);
            if (timed) event = WithAlarm(event, 9, 0);
            EventExtras extras;
            extras.always = always;
            event.Extras(extras);
            quiet.Choose();
            Engine().DisplayReminders();
            Engine().DisplayAlarms(events);
            machine.windows.Advance(3000);
            const auto isShown = [&](const char* caption) {
                const FakeWindow* window = machine.windows.WithCaption(caption);
                return window && window->IsVisible();
            };
            EXPECT_EQ(timed && always, isShown("ALARM!"));
            EXPECT_EQ(!timed && always, isShown("TODAY!"));
            openWindows.UnloadAll();
            windows.ForgetShown();
            Changing(events).clear();
        }
}

}  // namespace
}  // namespace kaz
