#include "ui/event/frmEvent.h"

#include "fakes/FakePlatform.h"
#include "fakes/Sample.h"
#include "ui/event/EventEditorDialog.h"

#include <gmock/gmock.h>

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

TEST_F(frmEventTest, SaysWhatIsWrongAtTheFieldInFaultAndLosesNothing) {
    const std::string time = "Please specify a time in the range of 00:00 to 23:59";
    const std::string days = "Please enter the days of warning as a whole number from 0 to 32767";
    const std::string most = "Maximum warning is 60 minutes";
    const std::string minutes = "Please enter the minutes of warning as a whole number from 0 to 60";
    const std::string number = "Please enter a number in the repeat box";
    const std::string period = "Please enter a whole number from 1 to 32767 in the repeat box";
    const std::string tag = ", which has a meaning in the event file.";
    const struct {
        std::int32_t type;
        int control;
        std::vector<std::string> texts;
        std::string message;
    } cases[] = {
        {0, IDC_txtTime, {"7:30", "07.30", "24:00", "12:60", "+1:30", ""}, time},
        {0, IDC_txtMinutesWarning, {"61", "99999"}, most},
        {0, IDC_txtMinutesWarning, {"-1", "1.5", "x"}, minutes},
        {0, IDC_txtDaysWarning, {"x", "-1", "32768"}, days},
        {0, IDC_txtEmailAlert, {"a\r\nb"}, "The e-mail address must be a single line."},
        {0, IDC_txtEmailAlert, {"<a</eMail>"}, "The e-mail address must not contain \"</eMail>\"" + tag},
        {0, IDC_lblWavFile, {"a<Event>"}, "The name of the sound file must not contain \"<Event>\"" + tag},
        {1, IDC_txtDayOfMonth, {"", "x", "0", "32"}, "Please enter a valid day of the month"},
        {2, IDC_txtMonthlyPeriod, {"x", ""}, number},
        {3, IDC_txtWeeklyPeriod, {"4682"}, "Please enter a whole number from 1 to 4681 in the repeat box"},
        {5, IDC_txtDailyPeriod, {"0", "-1", "1.5", "99999"}, period},
    };
    for (const auto& bad : cases)
        for (const std::string& text : bad.texts) {
            clsEvent event = OfKind(bad.type);
            event.AlarmSet(true);
            const User types = [&](FakeWindow& window) { window.Type(bad.control, text); };
            EXPECT_EQ(bad.message, Refusal(event, types, bad.control)) << text;
        }
    const User typesUnknown = [](FakeWindow& window) { window.unreadable = IDC_txtDesc; };
    EXPECT_EQ("A character cannot be stored", Refusal(OfKind(0), typesUnknown, IDC_txtDesc));
    const User clears = [](FakeWindow& window) { window.Toggle(IDC_chkDay), window.Toggle(IDC_chkDay + 6); };
    EXPECT_EQ("Please select at least one day of the week", Refusal(OfKind(0), clears, IDC_chkDay));
    const User runs = [](FakeWindow& window) { window.Toggle(IDC_chkRunFile); };
    EXPECT_EQ("Please choose the file to run", Refusal(OfKind(0), runs, IDC_cmdPickFile));
    machine.dialogs.files = {"C:\\KAZ"};
    const User picks = [](FakeWindow& window) { window.Click(IDC_cmdPickWav); };
    EXPECT_EQ("\"C:\\KAZ\" is a folder. Please choose a sound file.",
              Refusal(OfKind(0), picks, IDC_cmdPickWav));
}

TEST_F(frmEventTest, TakesTimesAndNumbersInEveryFormThatIsMeant) {
    clsEvent event = OfKind(RecurEveryNWeeks);
    auto saved = Edit(event, [](FakeWindow& window) {
        window.Toggle(IDC_chkTimed);
        window.Type(IDC_txtTime, "0");
        EXPECT_EQ("", window.Text(IDC_lblAlarmAdvice));
        window.Type(IDC_txtTime, "00:30");
        window.Type(IDC_txtMinutesWarning, "60");
        EXPECT_EQ("(Alarm will sound at 11:30pm)", window.Text(IDC_lblAlarmAdvice));
        EXPECT_NE("", window.Text(IDC_lblPreviewWarning));
        window.Type(IDC_txtTime, " 08;15 ");
        EXPECT_EQ("", window.Text(IDC_lblPreviewWarning));
        window.Type(IDC_txtWeeklyPeriod, " 4681 ");
        window.Type(IDC_txtDaysWarning, "");
    });
    ASSERT_TRUE(saved);
    EXPECT_EQ(DateValue::FromTime(8, 15), saved->DueTime());
    EXPECT_EQ(DateValue::FromTime(7, 15), saved->AlarmTime());
    EXPECT_EQ(4681, saved->Period());
    EXPECT_EQ(0, saved->DaysWarning());

    // Without the alarm nothing of it is looked at.
    saved = Edit(*saved, [](FakeWindow& window) {
        window.Toggle(IDC_chkTimed);
        EXPECT_EQ("", window.Text(IDC_lblAlarmAdvice));
        window.Type(IDC_txtTime, "x");
        window.Type(IDC_txtMinutesWarning, "");
    });
    ASSERT_TRUE(saved);
    EXPECT_FALSE(saved->AlarmSet());
    EXPECT_EQ(DateValue::FromTime(8, 15), saved->DueTime());
}

TEST_F(frmEventTest, ANewEventIsOfferedWhatSuitsTheDay) {
    const auto saved = Edit({}, [](FakeWindow& window) {
        EXPECT_EQ(20U, window.Items(IDC_cmbLayers).size());
        EXPECT_EQ("March", window.Text(IDC_lstMonthNames));
        EXPECT_EQ("15", window.Text(IDC_txtDayOfMonth));
        EXPECT_EQ("3rd", window.Text(IDC_lstDayNumber));
        EXPECT_EQ("Wednesday", window.Text(IDC_lstDayName));
        EXPECT_EQ("10:00", window.Text(IDC_txtTime));
        EXPECT_EQ("Next date:  Wed 15/03/2023", window.Text(IDC_lblPreview));
        for (const int control : {IDC_txtTime, IDC_cmdPickFile, IDC_txtFrequency, IDC_chkShared})
            EXPECT_FALSE(window.Enabled(control));
    });
    ASSERT_TRUE(saved);
    EXPECT_EQ(8, saved->WeekDays());
    EXPECT_EQ(1, saved->Layer());
    EXPECT_EQ("Smith", saved->Owner());
    EXPECT_FALSE(saved->Recurring() || saved->AlarmSet() || saved->SharedEvent);
}

TEST_F(frmEventTest, TheDateOfAFrameIsAskedForAndAnUnknownKindIsKept) {
    machine.dialogs.dates = {DateValue(45056), std::nullopt};
    const auto saved = Edit({}, [](FakeWindow& window) {
        window.Choose(IDC_TabStrip1, 5);
        window.Click(IDC_lblDailyStartDate);
        window.Click(IDC_lblDailyStartDate);  // and thinks better of it
        EXPECT_EQ("10/05/2023", window.Text(IDC_lblDailyStartDate));
        window.Type(IDC_txtDailyPeriod, "10");
        window.SetChecked(IDC_optRepeat, true);
        window.Click(IDC_optRepeat);
        EXPECT_EQ("Next dates:  Wed 10/05/2023,  Sat 20/05/2023,  Tue 30/05/2023,  Fri 09/06/2023,  "
                  "Mon 19/06/2023",
                  window.Text(IDC_lblPreview));
    });
    ASSERT_TRUE(saved);
    EXPECT_EQ(RecurEveryNDays, saved->RecurrenceType());
    EXPECT_EQ(DateValue(45056), saved->StartDate());
    EXPECT_EQ(10, saved->Period());
    EXPECT_THAT(machine.dialogs.questions, testing::Each("Enter start date for this event"));
    EXPECT_THAT(machine.dialogs.initialDates, ElementsAre(Today(), DateValue(45056)));

    EXPECT_EQ(9, Edit(OfKind(9), [](FakeWindow&) {})->RecurrenceType());
}

TEST_F(frmEventTest, TicksFillWhatTheyNeed) {
    app.settings.StoreSetting("DefaultEmail", std::string("ann@example.org"));
    machine.dialogs.files = {"D:\\bell.wav", "D:\\list.txt"};
    auto saved = Edit({}, [](FakeWindow& window) {
        window.Toggle(IDC_chkEmailTo);
        window.Toggle(IDC_chkMakeNoise);
        EXPECT_EQ("C:\\KAZ\\alarm.wav", window.Text(IDC_lblWavFile));
        window.Toggle(IDC_chkMakeNoise);
        EXPECT_EQ("", window.Text(IDC_lblWavFile));
        window.Click(IDC_cmdPickWav);
        window.Toggle(IDC_chkRunFile);
        EXPECT_NE("", window.Text(IDC_lblPreviewWarning));  // a file is run by the alarm only
        window.Click(IDC_cmdPickFile);
    });
    ASSERT_TRUE(saved);
    EXPECT_EQ("ann@example.org", saved->Email);
    EXPECT_EQ("D:\\bell.wav", saved->WavFile);
    EXPECT_TRUE(saved->PlayWav && saved->ExecFile);
    EXPECT_EQ("D:\\list.txt", saved->Filename);

    saved->IDCode = "000001";
    saved = Edit(*saved, [](FakeWindow& window) {
        window.Type(IDC_txtEmailAlert, "bob@example.org");
        window.Toggle(IDC_chkRunFile);
    });
    EXPECT_EQ("bob@example.org", app.settings.TextOr("DefaultEmail", ""));
    EXPECT_EQ("", saved->Filename);
}

TEST_F(frmEventTest, TheCloseBoxAndTheEndOfTheProgramGiveUp) {
    clsEvent event = OfKind(RecurWeekdays);
    machine.windows.OnModal([](FakeWindow& window) {
        window.Type(IDC_txtDesc, "other");
        window.CloseBox();
    });
    EXPECT_FALSE(EventEditorDialog(app).Edit(event, EditMode::Whole));
    machine.windows.OnModal([this](FakeWindow&) { app.EndProgram(); });
    EXPECT_FALSE(EventEditorDialog(app).Edit(event, EditMode::Whole));
    EXPECT_EQ(0U, app.openWindows.Count());
    EXPECT_EQ(FileOf({OfKind(RecurWeekdays)}), FileOf({event}));
    EXPECT_EQ(nullptr, machine.windows.Newest(IDD_EVENT));
}

}  // namespace
}  // namespace kaz
