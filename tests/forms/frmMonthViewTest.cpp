#include "ui/month/frmMonthView.h"

#include "FormTest.h"
#include "platform/Files.h"
#include "ui/month/ShowMonth.h"

namespace kaz {
namespace {

class frmMonthViewTest : public FormTest {
protected:
    void Save(const std::vector<clsEvent>& events) {
        Changing(*app.events) = events;
        ASSERT_TRUE(app.events->SaveDB());
    }
    void Open(int month = 3, int year = 2023) {
        ShowMonth(app, month, year);
        TurnTo(IDD_MONTH);
    }
    DayGrid& Grid() { return window->Grid(IDC_Calbox); }
    // The selected day with all that is on it.
    std::string Day() { return stage->Day(*window, IDC_Calbox); }
    void Press(std::initializer_list<DayKey> keys) {
        for (const DayKey key : keys)
            stage->Press(*window, IDC_Calbox, key);
    }
};

TEST_F(frmMonthViewTest, IsWalkedThroughByKeysWheelAndButtons) {
    Save(
        {OneOff("000001", "Dentist", kToday), Daily("000002", "Rent", DateValue::FromCivil(2023, 4, 1), 28)});
    Open();
    EXPECT_TRUE(window->IsVisible());
    EXPECT_EQ("KAZ Monthly View (All Categories)", Text(0));
    EXPECT_EQ("March 2023", Text(IDC_lblDate));
    EXPECT_EQ(17, Grid().Selected());
    Grid().Select(2);  // no day
    EXPECT_EQ(17, Grid().Selected());
    EXPECT_TRUE(window->Enabled(IDC_cmd_nextyear));

    Press({DayKey::Left, DayKey::Down});
    EXPECT_EQ(23, Grid().Selected());
    Press({DayKey::Down, DayKey::Down});
    EXPECT_EQ("April 2023", Text(IDC_lblDate));
    EXPECT_EQ(9, Grid().Selected());  // the 4th
    Press({DayKey::First});
    InModal(IDD_DAYEVENTS, [&] {
        EXPECT_EQ("Saturday, April 1, 2023", Text(0));
        EXPECT_THAT(window->Items(IDC_lstDayEvents), ElementsAre("Rent"));
        Click(IDC_cmdCloseDay);
    });
    stage->Open(*window, IDC_Calbox);
    EXPECT_EQ(nullptr, stage->Find(IDD_DAYEVENTS));

    stage->TurnWheel(*window, IDC_Calbox, -1);
    EXPECT_EQ("May 2023", Text(IDC_lblDate));
    stage->TurnWheel(*window, IDC_Calbox, 2);
    Click(IDC_cmd_prevyear);
    EXPECT_EQ("March 2022", Text(IDC_lblDate));
    Choose(IDC_cmbMonthLayers, 3);
    EXPECT_EQ("KAZ Monthly View (Layer 3)", Text(0));

    // The ends of the calendar; one that is open comes forward.
    ShowMonth(app, 12, 9999);
    for (const int button : {IDC_cmd_nextmonth, IDC_cmd_nextyear})
        Click(button);
    Press({DayKey::Last, DayKey::Right});
    EXPECT_EQ("December 9999", Text(IDC_lblDate));
    ShowMonth(app, 3, 2023);
    EXPECT_EQ(1U, stage->All(IDD_MONTH).size());
    EXPECT_EQ("March 2023", Text(IDC_lblDate));
    EXPECT_EQ(33, Grid().Selected());  // the 31st
    Click(IDC_cmd_exit);
    stage->Wait(50);
    EXPECT_EQ(nullptr, stage->Find(IDD_MONTH));
}

TEST_F(frmMonthViewTest, ShowsTheMonthOfEachStepAndNothingElseChanges) {
    clsEvent rent = Daily("000003", "Rent", DateValue::FromCivil(2023, 1, 31));
    rent.RecurrenceType(RecurDayOfMonth);
    rent.DayOfMonth(31);
    rent.MonthNumber(kEveryMonthByDay);
    Save({Daily("000001", "Tea", kToday), OneOff("000002", "DentistFirstFloor", kToday), rent});
    const std::string before = Saved(kEventFile);
    Open();
    EXPECT_EQ("Wednesday, March 15, 2023 (today)\r\nTea\r\nDentistFirstFloor", Day());
    if (fakes) {
        EXPECT_THAT(Fake().Grid(IDC_Calbox).Lines(17), ElementsAre("Tea", "DentistFirst"));
    }
    for (int step = 0; step < 24; ++step)
        Click(IDC_cmd_nextmonth);
    EXPECT_EQ("Saturday, March 15, 2025\r\nTea", Day());
    for (int step = 0; step < 12; ++step)
        Click(IDC_cmd_prevmonth);
    Click(IDC_cmd_prevyear);
    EXPECT_EQ("March 2023", Text(IDC_lblDate));
    if (fakes) {
        EXPECT_EQ(1 + 24 + 12 + 1, Fake().timesDisabled);
    }
    EXPECT_TRUE(window->Enabled(IDC_cmd_exit));
    Click(IDC_cmd_print);
    Click(IDC_cmdPrintCal);
    EXPECT_THAT(machine.printer.asked, ElementsAre(HasSubstr("MonthView"), HasSubstr("Calendar")));

    ASSERT_TRUE(app.events->SaveDB());
    EXPECT_EQ(before, Saved(kEventFile));
    Changing(*app.events)[1].Desc("DentistLater");
    ASSERT_TRUE(app.events->SaveDB());
    EXPECT_EQ(ReplaceAll(before, "DentistFirstFloor", "DentistLater"), Saved(kEventFile));
    stage->Tell(*window, Raised::Activated);
    EXPECT_THAT(Day(), HasSubstr("DentistLater"));
}

TEST_F(frmMonthViewTest, FollowsTheFilesTheFilterAndTheDay) {
    clsEvent work = Of("Smith", OneOff("000001", "Report", kToday));
    work.Layer(4);
    Save({work, Of("Smith", OneOff("000002", "Dentist", kToday))});
    app.settings.StoreSetting("Networked", true);
    ShareAsAnn({Of("Ann", OneOff("000003", "Café", kToday))});
    app.layers.Layer(4, " Work ");
    Open(2, 2023);
    EXPECT_EQ(17, Grid().Selected());  // the day of the month stays
    Click(IDC_cmdNow);
    EXPECT_EQ("Wednesday, March 15, 2023 (today)\r\nReport [Smith]\r\nDentist [Smith]\r\nCafé [Ann]", Day());

    SaveElsewhere(Of("Smith", OneOff("", "Train", kToday)));
    app.mainListIsStale = false;
    Click(IDM_REFRESH);
    EXPECT_THAT(Day(), HasSubstr("Train"));
    EXPECT_TRUE(app.mainListIsStale);
    Choose(IDC_cmbMonthLayers, 4);
    EXPECT_EQ("Wednesday, March 15, 2023 (today)\r\nReport [Smith]", Day());
    app.layers.Layer(4, "Office");
    stage->Tell(*window, Raised::Activated);
    EXPECT_EQ("Office", window->Items(IDC_cmbMonthLayers).at(4));
    EXPECT_EQ("KAZ Monthly View (Office)", Text(0));
    machine.clock.Set(2023, 3, 16, 0, 0);
    stage->Tick(*window, IDT_TimerToday);
    EXPECT_THAT(Day(), Not(HasSubstr("today")));
    Press({DayKey::Right});
    EXPECT_THAT(Day(), HasSubstr("March 16, 2023 (today)"));
}

TEST_F(frmMonthViewTest, ADayIsSkippedOrMovedFromItsList) {
    Save({Daily("000001", "Tea", kToday), OneOff("000002", "Dentist", kToday.PlusDays(1))});
    Open();
    Press({DayKey::Right});
    const auto onDay = [&](int row, int button) {
        InModal(IDD_DAYEVENTS, [&] {
            EXPECT_EQ("&Skip Thu Mar 16", Text(IDC_cmdSkipDay));
            Choose(IDC_lstDayEvents, row);
            Click(button);
            if (!machine.dialogs.messages.empty()) Click(IDC_cmdCloseDay);
        });
        stage->Open(*window, IDC_Calbox);
        return app.mainListIsStale;
    };
    app.mainListIsStale = false;
    EXPECT_FALSE(onDay(1, IDC_cmdSkipDay));
    EXPECT_THAT(Told(), ElementsAre(HasSubstr("This event is shown once.")));
    EXPECT_TRUE(onDay(0, IDC_cmdSkipDay));
    EXPECT_EQ("Thursday, March 16, 2023\r\nDentist", Day());
    machine.dialogs.dates = {kToday.PlusDays(2)};
    Press({DayKey::Left});
    InModal(IDD_DAYEVENTS, [&] {
        EXPECT_EQ("&Move Wed Mar 15 to...", Text(IDC_cmdMoveDay));
        Click(IDC_cmdMoveDay);
    });
    stage->Open(*window, IDC_Calbox);
    EXPECT_EQ("Wednesday, March 15, 2023 (today)\r\nNo events", Day());
    Press({DayKey::Right, DayKey::Right});
    EXPECT_EQ("Friday, March 17, 2023\r\nTea\r\nTea", Day());
}

TEST_F(frmMonthViewTest, ADoubleClickEditsTheEventUnderItOrAddsOneOnTheDay) {
    Save({WithAlarm(OneOff("000001", "Late", kToday), 18, 0),
          WithAlarm(OneOff("000002", "Early", kToday), 8, 0), OneOff("000003", "All day", kToday)});
    Open();
    EXPECT_EQ("Wednesday, March 15, 2023 (today)\r\nAll day\r\n08:00  Early\r\n18:00  Late", Day());
    const auto type = [&](const char* text) {
        return [this, text] {
            Type(IDC_txtDesc, text);
            Click(IDC_cmdSave);
        };
    };
    InModal(IDD_DAYEVENTS, [&] {
        EXPECT_THAT(window->Items(IDC_lstDayEvents), ElementsAre("All day", "08:00  Early", "18:00  Late"));
        Choose(IDC_lstDayEvents, 1);
        InModal(IDD_EVENT, type("Dawn"));
        Click(IDC_cmdEditDay);
    });
    stage->Open(*window, IDC_Calbox);
    EXPECT_THAT(Day(), HasSubstr("08:00  Dawn"));
    if (!fakes) return;
    Press({DayKey::Right});
    for (const int line : {DayGrid::kNoLine, 0}) {
        Fake().Grid(IDC_Calbox).openedLine = line;
        InModal(IDD_EVENT, type(line == 0 ? "Dinner" : "Lunch"));
        stage->Open(*window, IDC_Calbox);
        EXPECT_EQ(line == 0 ? "Thursday, March 16, 2023\r\nDinner" : "Thursday, March 16, 2023\r\nLunch",
                  Day());
    }
    EXPECT_TRUE(app.mainListIsStale);
}

TEST_F(frmMonthViewTest, TheListIsWrittenAsATextFileAndOpened) {
    constexpr char kFile[] = "C:\\Temp\\KazTempFile.txt";
    Save({OneOff("000001", "Dentist, second floor", kToday)});
    Open();
    Click(IDC_cmdViewEvents);
    EXPECT_THAT(machine.shell.opened, ElementsAre(kFile));
    EXPECT_EQ("Events for March 2023\r\nWed\t15\tDentist, second floor\r\n", Saved(kFile));
    machine.files.At(kFile).locked = true;
    Click(IDC_cmdViewEvents);
    EXPECT_THAT(Told(), ElementsAre(HasSubstr("could not be written to C:\\Temp")));
    EXPECT_EQ(1U, machine.shell.opened.size());
}

}  // namespace
}  // namespace kaz
