#include "ui/event/frmEvent.h"

#include "FormTest.h"
#include "base/CodePage.h"
#include "base/Utf8.h"
#include "ui/event/EditEvent.h"
#include "ui/event/OnceFrame.h"

#include <algorithm>

namespace kaz {
namespace {

using User = std::function<void()>;

class frmEventTest : public FormTest {
protected:
    frmEventTest() {
        app.settings.StoreSetting("DateStyle", std::int16_t{1});
        app.settings.StoreSetting("SharedDataPath", std::string("C:\\Share"));
        machine.files.Put("C:\\Share\\KAZShared.ini", "Ann\r\nBob\r\n");
    }
    // The user works, presses Save and, should the dialog still be open, Abort, and throws away what he has
    // entered.
    bool Edit(clsEvent& event, const User& user, EditMode mode = EditMode::Whole) {
        InModal(IDD_EVENT, [&] {
            if (event.Desc().empty()) Type(IDC_txtDesc, "Tea");
            user();
            Click(IDC_cmdSave);
            machine.dialogs.yesNo = {true};
            Click(IDC_cmdAbort);
        });
        const bool saved = EditEvent(app, event, mode);
        machine.dialogs.yesNo.clear();
        return saved;
    }
};

clsEvent OfKind(std::int32_t type) {
    clsEvent event = Daily("000007", "Café\r\nand cake", DateValue(45010), 3);
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

TEST_F(frmEventTest, AnEventOfEachKindIsOpenedChangedAndSaved) {
    app.settings.StoreSetting("Networked", true);
    constexpr int kFields[] = {IDC_chkDay,          IDC_txtDayOfMonth, IDC_txtMonthlyPeriod,
                               IDC_txtWeeklyPeriod, IDC_lstDayName,    IDC_txtDailyPeriod};
    for (std::int32_t type = RecurWeekdays; type <= RecurEveryNDays; ++type) {
        // One of those it is shared with is not in the list of the folder.
        clsEvent event = SharedBy("Smith", OfKind(type), "Ann\r\nCid\r\n");
        event =
            Mailed(Running(Loud(event, "C:\\bell.wav"), "C:\\list.txt"), "ann@example.org;bob@example.org");
        clsEvent expected = event;
        EXPECT_TRUE(Edit(event, [] {}));
        EXPECT_EQ(FileOf({expected}), FileOf({event})) << type << " untouched";
        EXPECT_TRUE(Edit(event, [&] {
            EXPECT_EQ(type, window->Selected(IDC_TabStrip1));
            for (int tab = 0; tab < 6; ++tab)
                EXPECT_EQ(tab == type, window->ControlVisible(kFields[tab])) << tab;
            EXPECT_NE("", Text(IDC_lblPreview));
            EXPECT_FALSE(window->Enabled(IDC_txtTime));
            Click(IDC_chkTimed);
            Type(IDC_txtTime, "08;15");
            Type(IDC_txtMinutesWarning, "20");
            EXPECT_EQ("(Alarm will sound at 7:55am)", Text(IDC_lblAlarmAdvice));
            Choose(IDC_cmbLayers, 4);
        }));
        expected.AlarmSet(true);
        expected.DueTime(DateValue::FromTime(8, 15));
        expected.MinutesWarning(20);
        expected.AlarmTime(DateValue::FromTime(7, 55));
        expected.Layer(4);
        EXPECT_EQ(FileOf({expected}), FileOf({event})) << type;
    }
    clsEvent unknown = OfKind(9);
    EXPECT_TRUE(Edit(unknown, [] {}));
    EXPECT_EQ(9, unknown.RecurrenceType());
    EXPECT_THAT(Told(), IsEmpty());
}

TEST_F(frmEventTest, SaysWhatIsWrongAtTheFieldInFaultAndLosesNothing) {
    const std::string tag = ", which has a meaning in the event file.";
    const struct {
        std::int32_t type;
        int control;
        std::vector<std::string> texts;
        std::string message;
    } cases[] = {
        {0,
         IDC_txtTime,
         {"7:30", "7:3", "24:00", "12:60", "+1:30", ""},
         "Please specify a time in the range of 00:00 to 23:59"},
        {0, IDC_txtMinutesWarning, {"61", "99999"}, "Maximum warning is 60 minutes"},
        {0,
         IDC_txtMinutesWarning,
         {"-1", "1.5", "x"},
         "Please enter the minutes of warning as a whole number from 0 to 60"},
        {0,
         IDC_txtDaysWarning,
         {"x", "-1", "32768"},
         "Please enter the days of warning as a whole number from 0 to 32767"},
        {0, IDC_txtEmailAlert, {"a\r\nb"}, "The e-mail address must be a single line."},
        {0, IDC_txtEmailAlert, {"<a</eMail>"}, "The e-mail address must not contain \"</eMail>\"" + tag},
        {0, IDC_lblWavFile, {"a<Event>"}, "The name of the sound file must not contain \"<Event>\"" + tag},
        {1, IDC_txtDayOfMonth, {"", "x", "0", "32"}, "Please enter a valid day of the month"},
        {2, IDC_txtMonthlyPeriod, {"x", ""}, "Please enter a number in the repeat box"},
        {3, IDC_txtWeeklyPeriod, {"4682"}, "Please enter a whole number from 1 to 4681 in the repeat box"},
        {5,
         IDC_txtDailyPeriod,
         {"0", "-1", "1.5", "99999"},
         "Please enter a whole number from 1 to 32767 in the repeat box"},
    };
    const auto expectRefused = [this](int control, const std::string& message, const std::string& text) {
        Told();
        Click(IDC_cmdSave);
        EXPECT_THAT(Told(), ElementsAre(HasSubstr(message))) << text;
        EXPECT_EQ(control, stage->Focus(*window)) << text;
    };
    for (const auto& bad : cases) {
        clsEvent event = OfKind(bad.type);
        event.AlarmSet(true);
        const std::string before = FileOf({event});
        EXPECT_FALSE(Edit(event, [&] {
            for (const std::string& text : bad.texts) {
                window->SetText(bad.control, text);
                expectRefused(bad.control, bad.message, text);
            }
        }));
        EXPECT_EQ(before, FileOf({event}));
    }
    clsEvent event = OfKind(RecurWeekdays);
    machine.dialogs.files = {"C:\\KAZ"};
    EXPECT_FALSE(Edit(event, [&] {
        Click(IDC_cmdPickWav);
        expectRefused(IDC_cmdPickWav, "\"C:\\KAZ\" is a folder. Please choose a sound file.", "");
        window->SetText(IDC_lblWavFile, "");
        Click(IDC_chkRunFile);
        expectRefused(IDC_cmdPickFile, "Please choose the file to run", "");
        Click(IDC_chkRunFile);
        Click(IDC_chkDay);
        Click(IDC_chkDay + 6);
        expectRefused(IDC_chkDay, "Please select at least one day of the week", "");
        Choose(IDC_TabStrip1, RecurEveryNDays);
        window->SetText(IDC_lblDailyStartDate, "");
        expectRefused(IDC_lblDailyStartDate, "Please enter a valid starting date", "");
    }));
}

TEST_F(frmEventTest, TakesTimesAndNumbersInEveryFormThatIsMeant) {
    clsEvent event = OfKind(RecurEveryNWeeks);
    EXPECT_TRUE(Edit(event, [&] {
        Click(IDC_chkTimed);
        Type(IDC_txtTime, "0");
        EXPECT_EQ("", Text(IDC_lblAlarmAdvice));
        Type(IDC_txtTime, "00:30");
        Type(IDC_txtMinutesWarning, "60");
        EXPECT_EQ("(Alarm will sound at 11:30pm)", Text(IDC_lblAlarmAdvice));
        EXPECT_NE("", Text(IDC_lblPreviewWarning));
        Type(IDC_txtTime, " 08;15 ");
        EXPECT_EQ("", Text(IDC_lblPreviewWarning));
        Type(IDC_txtWeeklyPeriod, " 4681 ");
        Type(IDC_txtDaysWarning, "");
    }));
    EXPECT_EQ(DateValue::FromTime(8, 15), event.DueTime());
    EXPECT_EQ(DateValue::FromTime(7, 15), event.AlarmTime());
    EXPECT_EQ(4681, event.Period());
    EXPECT_EQ(0, event.DaysWarning());
    // Without the alarm nothing of it is looked at.
    EXPECT_TRUE(Edit(event, [&] {
        Click(IDC_chkTimed);
        EXPECT_EQ("", Text(IDC_lblAlarmAdvice));
        window->SetText(IDC_txtTime, "x");
        window->SetText(IDC_txtMinutesWarning, "");
    }));
    EXPECT_FALSE(event.AlarmSet());
    EXPECT_EQ(DateValue::FromTime(8, 15), event.DueTime());
}

TEST_F(frmEventTest, WhatIsTypedIntoANumberTakesItsPlaceUnlessTheCaretIsPutIntoIt) {
    clsEvent event = OfKind(RecurWeekdays);
    EXPECT_TRUE(Edit(event, [&] {
        Click(IDC_chkTimed);
        for (const auto& [tab, number] : {std::pair{RecurWeekdays, IDC_txtDaysWarning},
                                          {RecurWeekdays, IDC_txtMinutesWarning},
                                          {RecurDayOfMonth, IDC_txtDayOfMonth},
                                          {RecurEveryNMonths, IDC_txtMonthlyPeriod},
                                          {RecurEveryNWeeks, IDC_txtWeeklyPeriod},
                                          {RecurEveryNDays, IDC_txtDailyPeriod}}) {
            Choose(IDC_TabStrip1, tab);
            stage->ClickInto(*window, number);
            stage->TypeAtCaret(*window, '7');
            EXPECT_EQ("7", Text(number)) << number;
            stage->ClickInto(*window, number);
            stage->TypeAtCaret(*window, '1');
            EXPECT_EQ("17", Text(number)) << number;
            stage->Press(*window, number, DayKey::Up);
            EXPECT_EQ("18", Text(number)) << number;
        }
        Choose(IDC_TabStrip1, RecurWeekdays);
    }));
    EXPECT_EQ(18, event.DaysWarning());
    EXPECT_EQ(18, event.MinutesWarning());
}

TEST_F(frmEventTest, ATimeInShortIsWrittenOutWhenItsBoxIsLeft) {
    clsEvent event = OfKind(RecurWeekdays);
    EXPECT_TRUE(Edit(event, [&] {
        Click(IDC_chkTimed);
        for (const auto& [typed, left] : {std::pair{"7:3", "7:3"}, {"late", "late"}, {"3:15 pm", "15:15"}}) {
            stage->ClickInto(*window, IDC_txtTime);
            Type(IDC_txtTime, typed);
            EXPECT_EQ(typed, Text(IDC_txtTime));
            stage->ClickInto(*window, IDC_txtMinutesWarning);
            EXPECT_EQ(left, Text(IDC_txtTime));
        }
        EXPECT_EQ("(Alarm will sound at 3:15pm)", Text(IDC_lblAlarmAdvice));
    }));
    EXPECT_EQ(DateValue::FromTime(15, 15), event.DueTime());
}

TEST_F(frmEventTest, ANewEventIsOfferedWhatSuitsTheDay) {
    clsEvent event;
    EXPECT_TRUE(Edit(event, [&] {
        EXPECT_EQ(20U, window->Items(IDC_cmbLayers).size());
        EXPECT_EQ(OnceFrame::kPage, window->Selected(IDC_TabStrip1));
        EXPECT_EQ("15/03/2023", Text(IDC_txtOnceDate));
        EXPECT_TRUE(window->Checked(IDC_chkDay + 2));
        EXPECT_EQ("March", Text(IDC_lstMonthNames));
        EXPECT_EQ("15", Text(IDC_txtDayOfMonth));
        EXPECT_EQ("3rd", Text(IDC_lstDayNumber));
        EXPECT_EQ("Wednesday", Text(IDC_lstDayName));
        EXPECT_EQ("10:00", Text(IDC_txtTime));
        EXPECT_EQ("Next date:  Wed 15/03/2023", Text(IDC_lblPreview));
        for (const int control :
             {IDC_txtTime, IDC_cmdPickFile, IDC_txtFrequency, IDC_chkShared, IDC_chkSpecificShare})
            EXPECT_FALSE(window->Enabled(control));
        EXPECT_FALSE(window->ControlVisible(IDC_FrameShared) || window->Enabled(IDC_optRepeat));
    }));
    EXPECT_TRUE(OnceFrame::Fits(event));
    EXPECT_EQ(kToday, event.StartDate());
    EXPECT_EQ(1, event.Layer());
    EXPECT_EQ("Smith", event.Owner());
    EXPECT_FALSE(event.Recurring() || event.AlarmSet() || event.SharedEvent);
}

TEST_F(frmEventTest, TheDateOfAFrameIsAskedFor) {
    machine.dialogs.dates = {DateValue(45056), std::nullopt};
    clsEvent event;
    EXPECT_TRUE(Edit(event, [&] {
        Choose(IDC_TabStrip1, RecurEveryNDays);
        EXPECT_EQ("Pick a start date", Text(IDC_lblPreview));
        Click(IDC_lblDailyStartDate);
        Click(IDC_lblDailyStartDate);  // and thinks better of it
        EXPECT_EQ("10/05/2023", Text(IDC_lblDailyStartDate));
        Type(IDC_txtDailyPeriod, "x");
        EXPECT_EQ("", Text(IDC_lblPreview));
        Type(IDC_txtDailyPeriod, "10");
        EXPECT_EQ("Next dates:  Wed 10/05/2023,  Sat 20/05/2023,  Tue 30/05/2023,  Fri 09/06/2023,  "
                  "Mon 19/06/2023",
                  Text(IDC_lblPreview));
    }));
    EXPECT_EQ(RecurEveryNDays, event.RecurrenceType());
    EXPECT_EQ(DateValue(45056), event.StartDate());
    EXPECT_EQ(10, event.Period());
    EXPECT_EQ(2, std::ranges::count(machine.dialogs.questions, "Enter start date for this event"));
    EXPECT_THAT(machine.dialogs.initialDates, ElementsAre(kToday, DateValue(45056)));
}

TEST_F(frmEventTest, WhatHappensOnceHasATabWithItsDay) {
    const auto onDay = [this](const std::string& text) {
        return [this, text] {
            EXPECT_EQ(OnceFrame::kPage, window->Selected(IDC_TabStrip1));
            stage->ClickInto(*window, IDC_txtOnceDate);
            Type(IDC_txtOnceDate, text);
        };
    };
    clsEvent event = OneOff("000001", "Dentist", kToday.PlusDays(2));
    event.DueDate(kToday.PlusDays(3));  // put off by a day
    EXPECT_TRUE(Edit(event, [&] {
        EXPECT_EQ("18/03/2023", Text(IDC_txtOnceDate));
        EXPECT_EQ("10:00", Text(IDC_txtTime));
        onDay("3/12")();
        EXPECT_EQ("Next date:  Sun 03/12/2023", Text(IDC_lblPreview));
        stage->ClickInto(*window, IDC_txtDaysWarning);
        EXPECT_EQ("03/12/2023", Text(IDC_txtOnceDate));
        machine.dialogs.dates = {DateValue(45264)};
        Click(IDC_cmdOnceDate);
    }));
    EXPECT_EQ(45264, event.StartDate().Day());
    EXPECT_TRUE(OnceFrame::Fits(event));

    EXPECT_FALSE(Edit(event, onDay("31/2")));
    EXPECT_THAT(Told(), ElementsAre("Please enter the day as a date, such as 15/03/2023"));
    // One that has passed is not moved without a word.
    EXPECT_FALSE(Edit(event, onDay("14/03/2023")));
    EXPECT_TRUE(Edit(event, [&] {
        onDay("14/03/2023")();
        EXPECT_THAT(Text(IDC_lblPreviewWarning), HasSubstr("has passed"));
        machine.dialogs.yesNo = {true};
    }));
    EXPECT_THAT(machine.dialogs.questions,
                Contains("Tue 14/03/2023 has passed. Save the event for Wed 15/03/2023 instead?"));
    // Under the other tabs it repeats, unless that is taken away.
    event.StartDate(kToday);
    EXPECT_TRUE(Edit(event, [&] {
        Choose(IDC_TabStrip1, RecurDayOfMonth);
        EXPECT_TRUE(window->Checked(IDC_optRepeat));
        Click(IDC_optShowOnce);
        Choose(IDC_TabStrip1, OnceFrame::kPage);
        Choose(IDC_TabStrip1, RecurWeekdays);
    }));
    EXPECT_FALSE(event.Recurring());
    EXPECT_EQ(RecurWeekdays, event.RecurrenceType());
}

TEST_F(frmEventTest, ADescriptionBeginsWithItsFirstLineAndItsLackIsAskedAbout) {
    clsEvent event;
    EXPECT_TRUE(Edit(event, [&] { window->SetText(IDC_txtDesc, " \r\n\r\n  Tea\r\n\r\n"); }));
    EXPECT_EQ("  Tea\r\n\r\n", event.Desc());
    const auto empty = [&] { window->SetText(IDC_txtDesc, "\r\n"); };
    EXPECT_FALSE(Edit(event, empty));
    EXPECT_TRUE(Edit(event, [&] {
        empty();
        machine.dialogs.yesNo = {true};
    }));
    EXPECT_EQ("", event.Desc());
}

TEST_F(frmEventTest, TicksFillWhatTheyNeed) {
    app.settings.StoreSetting("DefaultEmail", std::string("ann@example.org"));
    machine.dialogs.files = {"D:\\bell.wav", "D:\\list.txt"};
    clsEvent event;
    EXPECT_TRUE(Edit(event, [&] {
        Click(IDC_chkEmailTo);
        Click(IDC_chkMakeNoise);
        EXPECT_EQ("C:\\KAZ\\alarm.wav", Text(IDC_lblWavFile));
        Click(IDC_chkMakeNoise);
        EXPECT_EQ("", Text(IDC_lblWavFile));
        Click(IDC_cmdPickWav);
        Click(IDC_chkRunFile);
        EXPECT_NE("", Text(IDC_lblPreviewWarning));  // a file is run by the alarm only
        Click(IDC_cmdPickFile);
    }));
    EXPECT_EQ("ann@example.org", event.Email);
    EXPECT_EQ("D:\\bell.wav", event.WavFile);
    EXPECT_TRUE(event.PlayWav && event.ExecFile);
    EXPECT_EQ("D:\\list.txt", event.Filename);

    event.IDCode = "000001";
    EXPECT_TRUE(Edit(event, [&] {
        Type(IDC_txtEmailAlert, "bob@example.org");
        Click(IDC_chkRunFile);
    }));
    EXPECT_EQ("bob@example.org", app.settings.TextOr("DefaultEmail", ""));
    EXPECT_EQ("", event.Filename);
}

TEST_F(frmEventTest, NoDescriptionIsCutOrChangedByBeingShown) {
    std::string bytes;
    for (int byte = 1; byte < 256; ++byte)
        bytes += static_cast<char>(byte);
    std::string lines;
    while (lines.size() < 60000)
        lines += "Bring the photographs, the café has a new wall.\r\n";
    bytes = CodePage::Western().Decode(bytes);
    clsEvent event = Daily("000001", bytes, kToday);
    EXPECT_TRUE(Edit(event, [] {}));
    EXPECT_TRUE(bytes == event.Desc());
    event.Desc(lines);
    EXPECT_TRUE(Edit(event, [&] {
        EXPECT_TRUE(lines == Text(IDC_txtDesc));
        window->SetText(IDC_txtDesc, lines + "x");
    }));
    EXPECT_TRUE(lines + "x" == event.Desc());

    const std::string twice = lines + lines;
    const std::string tooLong = twice.substr(0, BytesOfUtf16(twice, clsEvent::kLongestShown + 1));
    EXPECT_FALSE(Edit(event, [&] { window->SetText(IDC_txtDesc, tooLong); }));
    EXPECT_THAT(Told(), ElementsAre(HasSubstr("can have 100000 characters")));
    EXPECT_TRUE(lines + "x" == event.Desc());
    event.Desc(tooLong);
    EXPECT_TRUE(Edit(event, [&] {
        EXPECT_THAT(Text(IDC_txtDesc), HasSubstr("it has 100001 characters"));
        EXPECT_FALSE(window->Enabled(IDC_txtDesc));
        Choose(IDC_cmbLayers, 4);
    }));
    EXPECT_TRUE(tooLong == event.Desc());
    EXPECT_EQ(4, event.Layer());
}

TEST_F(frmEventTest, TheSharingModeShowsAndChangesTheSharingOnly) {
    app.settings.StoreSetting("Networked", true);
    clsEvent event = Daily("000001", "Rent", kToday, -1);  // what is hidden is not checked
    event.ShareNames = "BOB\r\nCid\r\n";
    const auto sharesWithAnnAndCid = [&] {
        EXPECT_FALSE(window->ControlVisible(IDC_txtDesc) || window->ControlVisible(IDC_TabStrip1));
        // Of others, one who is not in the list of the folder at the moment.
        EXPECT_THAT(window->Items(IDC_lstUsers), ElementsAre("Ann", "Bob", "Cid"));
        EXPECT_THAT(window->Selection(IDC_lstUsers), ElementsAre(1, 2));
        Click(IDC_chkShared);
        EXPECT_FALSE(window->Enabled(IDC_lstUsers));
        Click(IDC_chkSpecificShare);
        EXPECT_TRUE(window->Enabled(IDC_lstUsers));
        window->SetSelection(IDC_lstUsers, {0, 2});
    };
    EXPECT_TRUE(Edit(event, sharesWithAnnAndCid, EditMode::SharingOnly));
    EXPECT_TRUE(event.SharedEvent && event.ShareWithSpecific);
    EXPECT_EQ("Ann\r\nCid\r\n", event.ShareNames);
    EXPECT_EQ(-1, event.Period());

    app.settings.StoreSetting("Networked", false);
    EXPECT_TRUE(Edit(
        event, [&] { EXPECT_FALSE(window->Enabled(IDC_chkShared)); }, EditMode::SharingOnly));
    EXPECT_FALSE(event.SharedEvent || event.ShareWithSpecific);
}

TEST_F(frmEventTest, TheCloseBoxAsksBeforeWhatIsEnteredIsLostAndTheEndOfTheProgramDoesNot) {
    clsEvent event = OfKind(RecurWeekdays);
    const auto close = [&] { stage->CloseBox(*window); };
    const struct {
        User user;
        std::size_t questions;
    } cases[] = {{[&] {
                      Type(IDC_txtDesc, "other");
                      close();
                      EXPECT_EQ("other", Text(IDC_txtDesc));  // and is still there
                      machine.dialogs.yesNo = {true};
                      close();
                  },
                  2},
                 {[&] {
                      Choose(IDC_TabStrip1, RecurDayOfMonth);  // only looks
                      close();
                  },
                  0},
                 {[&] {
                      Type(IDC_txtDesc, "other");
                      app.EndProgram();
                  },
                  0}};
    for (const auto& one : cases) {
        machine.dialogs.questions.clear();
        InModal(IDD_EVENT, one.user);
        EXPECT_FALSE(EditEvent(app, event, EditMode::Whole));
        EXPECT_EQ(one.questions, machine.dialogs.questions.size());
        EXPECT_EQ(FileOf({OfKind(RecurWeekdays)}), FileOf({event}));
        EXPECT_EQ(nullptr, stage->Find(IDD_EVENT));
    }
    EXPECT_EQ(0U, app.openWindows.Count());
}

// What stands beside the rule: its end, what is skipped, more warnings, and quiet hours.
TEST_F(frmEventTest, MoreIsChosenCheckedAndFollowsTheRule) {
    const auto more = [&](const User& user) {
        InModal(IDD_MORE, [&] {
            user();
            Click(IDC_cmdMoreOK);
            if (!machine.dialogs.messages.empty()) Click(IDC_cmdMoreCancel);
        });
        Click(IDC_cmdMore);
    };
    const auto inDays = [&](int days) { machine.dialogs.dates = {kToday.PlusDays(days)}; };
    const auto until = [&](int days) {
        inDays(days);
        Click(IDC_cmdLastDay);
    };
    const auto warn = [&](int row, int kind, const std::string& number, const std::string& time = "") {
        Choose(IDC_cmbWarningKind + row, kind);
        Type(IDC_txtWarningNumber + row, number);
        if (!time.empty()) Type(IDC_txtWarningTime + row, time);
    };
    // Of an event on each Wednesday from today on: "the last day, the times; what is skipped; the warnings".
    const auto inShort = [](const EventExtras& extras) {
        std::string text = extras.lastDay ? "+" + std::to_string(extras.lastDay->Day() - kToday.Day()) : "";
        if (extras.times > 0) text += " x" + std::to_string(extras.times);
        for (const std::int32_t day : extras.skipped)
            text += " -" + std::to_string(day - kToday.Day());
        for (const SecondWarning& warning : extras.warnings)
            text += warning.time ? " " + std::to_string(warning.daysBefore) + "@" +
                                       std::to_string(warning.time->MinuteOfDay())
                                 : " " + std::to_string(warning.minutes);
        return text + (extras.always ? " !" : "");
    };
    const struct {
        const char* what;
        User user;
        const char* extras;
        const char* told;
        const char* shown;  // in the line of the dates, and in the one beside the button
    } cases[] = {
        {"nothing", [&] { more([] {}); }, " -7", "", "Not on: Wed 22/03/2023."},
        {"until a day", [&] { more([&] { until(15); }); }, "+15 -7", "",
         "Wed 29/03/2023.  Last date:  Wed 29/03/2023"},
        {"so many times", [&] { more([&] { Type(IDC_txtTimes, "3"); }); }, "+14 x3 -7", "",
         "Last date:  Wed 29/03/2023"},
        {"never again",
         [&] {
             more([&] { until(15); });
             more([&] { Click(IDC_optNoEnd); });
         },
         " -7", "", "05/04/2023"},
        {"before the first date", [&] { more([&] { until(-1); }); }, " -7",
         "The series would end on Tue 14/03/2023, before its first date.", ""},
        {"no times", [&] { more([&] { Type(IDC_txtTimes, "0"); }); }, " -7",
         "Please enter a whole number from 1 to 10000", ""},
        {"no last day", [&] { more([&] { Click(IDC_optLastDay); }); }, " -7", "Please choose the last day",
         ""},
        {"put back", [&] { more([&] { Click(IDC_cmdPutBack); }); }, "", "", "Wed 22/03/2023"},
        {"warnings",
         [&] {
             more([&] {
                 warn(0, 2, "2");
                 warn(2, 4, "1", "1800");
                 Click(IDC_chkAlways);
             });
         },
         " -7 120 1@1080 !", "", "2 more warnings.  Also in quiet hours."},
        {"a warning at no time", [&] { more([&] { warn(0, 4, "1", "25:00"); }); }, " -7",
         "Please specify a time in the range of 00:00 to 23:59", ""},
        {"a warning behind the event", [&] { more([&] { warn(1, 4, "0", "10:00"); }); }, " -7",
         "The second warning would come when the event has begun", ""},
        {"a warning before no time",
         [&] {
             Click(IDC_chkTimed);
             more([&] { warn(1, 1, "90"); });
             Click(IDC_chkTimed);
         },
         " -7", "A warning some time before the event needs its time", ""},
        {"an alarm taken away",
         [&] {
             more([&] { warn(0, 3, "2"); });
             Click(IDC_chkTimed);
             Click(IDC_cmdSave);
             Click(IDC_chkTimed);
         },
         " -7 2880", "A warning some time before the event needs its time", ""},
        {"another rule",
         [&] {
             more([&] { Type(IDC_txtTimes, "4"); });
             Type(IDC_txtDailyPeriod, "14");
         },
         "+42 x4", "", "Last date:  Wed 26/04/2023"},
        {"shown once",
         [&] {
             more([&] {
                 until(15);
                 warn(0, 2, "2");
             });
             Click(IDC_optShowOnce);
         },
         " 120", "", "Next date:  Wed 15/03/2023"},
        {"an end, and then a later start",
         [&] {
             more([&] { until(15); });
             inDays(20);
             Click(IDC_lblDailyStartDate);
             Click(IDC_cmdSave);
             inDays(0);
             Click(IDC_lblDailyStartDate);
         },
         "+15 -7", "before its first date. Please choose Tue 04/04/2023", "Last date:  Wed 29/03/2023"},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(one.what);
        clsEvent event = WithAlarm(Daily("000007", "Tea", kToday, 7), 9, 30);
        EventExtras extras;
        extras.Skip(kToday.PlusDays(7));
        event.Extras(extras);
        std::string shown;
        EXPECT_TRUE(Edit(event, [&] {
            one.user();
            shown = Text(IDC_lblPreview) + "|" + Text(IDC_lblMore);
        }));
        EXPECT_EQ(one.extras, inShort(event.Extras()));
        const auto told = Told();
        EXPECT_THAT(told.empty() ? "" : told.front(), HasSubstr(one.told));
        EXPECT_EQ(*one.told != '\0', !told.empty());
        EXPECT_THAT(shown, HasSubstr(one.shown));
    }
}

}  // namespace
}  // namespace kaz
