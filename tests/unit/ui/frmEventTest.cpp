#include "ui/frmEvent.h"

#include "fakes/FakePlatform.h"
#include "fakes/Sample.h"
#include "ui/EventEditorDialog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <optional>

namespace kaz {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using User = std::function<void(FakeWindow&)>;

// The user "Smith" at the editor on Wednesday, 15 March 2023, at nine.
class frmEventTest : public testing::Test {
protected:
    frmEventTest() {
        app.settings.StoreSetting("Owner", std::string("Smith"));
        app.settings.StoreSetting("DateStyle", std::int16_t{1});
        app.runtimePath = "C:\\KAZ";
        app.layers.LoadLayers();
        machine.files.Put("C:\\Share\\KAZShared.ini", "Ann\r\nBob\r\nob\r\n");
        app.settings.StoreSetting("SharedDataPath", std::string("C:\\Share"));
    }
    // Opens the editor and lets the user work and press Save; what was saved, or nothing. A window that is
    // still open then is aborted.
    std::optional<clsEvent> Edit(clsEvent event, const User& user, EditMode mode = EditMode::Whole) {
        machine.windows.OnModal([&](FakeWindow& window) {
            user(window);
            window.Click(IDC_cmdSave);
            window.Click(IDC_cmdAbort);
        });
        if (!EventEditorDialog(app).Edit(event, mode)) return std::nullopt;
        return event;
    }
    // What is said about the event that the user leaves like that.
    std::string Refusal(const clsEvent& event, const User& user, int focus) {
        machine.dialogs.messages.clear();
        const auto saved = Edit(event, [&](FakeWindow& window) {
            user(window);
            window.Click(IDC_cmdSave);
            EXPECT_EQ(focus, window.focus);
        });
        EXPECT_FALSE(saved);
        return machine.dialogs.messages.empty() ? "" : machine.dialogs.messages.front();
    }
    DateValue Today() { return machine.clock.Today(); }

    FakePlatform machine;
    Application app{machine.Services()};
};

// Sets the fields of the kind, and of nothing else.
clsEvent OfKind(std::int32_t type) {
    clsEvent event = Daily("000007", "Caf\xE9\r\nand cake", DateValue(45010), 3);
    event.RecurrenceType(type);
    event.Owner("Smith");
    event.Layer(3);
    event.DaysWarning(5);
    event.WeekDays(2 + 128);
    event.DayOfMonth(31);
    event.MonthNumber(type == RecurDayOfMonth ? kEveryMonthByDay : kEveryMonthByWeekday);
    event.Daynumber(5);
    event.DayOfWeek(7);
    return event;
}

TEST_F(frmEventTest, AnUntouchedEventOfEachKindIsSavedByteForByte) {
    for (const bool networked : {false, true})
        for (std::int32_t type = RecurWeekdays; type <= RecurEveryNDays; ++type) {
            app.settings.StoreSetting("Networked", networked);
            clsEvent event = OfKind(type);
            event.AlarmSet(type % 2 == 1);
            event.DueTime(DateValue::FromTime(8, 15));
            event.MinutesWarning(20);
            event.AlarmTime(DateValue::FromTime(7, 55));
            event.PlayWav = true;
            event.WavFile = "C:\\Sounds\\bell.wav";
            event.ExecFile = true;
            event.Filename = "C:\\list.txt";
            event.Email = "ann@example.org;bob@example.org";
            // Of others, one who is not in the list of the folder at the moment.
            if (networked) event.SharedEvent = event.ShareWithSpecific = true;
            if (networked) event.ShareNames = "Ann\r\nCid\r\n";
            const auto saved = Edit(event, [](FakeWindow&) {});
            ASSERT_TRUE(saved) << machine.dialogs.messages.back();
            EXPECT_EQ(FileOf({event}), FileOf({*saved})) << type;
        }
}

}  // namespace
}  // namespace kaz
