#include "ui/month/frmMonthView.h"

#include "MainWindowFixture.h"
#include "fakes/Sample.h"
#include "platform/Files.h"
#include "ui/month/ShowMonth.h"

#include <gmock/gmock.h>

namespace kaz {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class MonthView : public MainWindowFixture {
protected:
    void Save(const std::vector<clsEvent>& events) {
        app.events->AllEvents() = events;
        ASSERT_TRUE(app.events->SaveDB());
    }
    void Open(int month = 3, int year = 2023) {
        ShowMonth(app, month, year);
        window = machine.windows.Newest(IDD_MONTH);
    }
    FakeDayGrid& Boxes() { return window->Grid(IDC_Calbox); }
    std::string Shown() { return window->Text(IDC_lblDate); }
};

TEST_F(MonthView, ShowsTheMonthOfEachStepAndNothingElseChanges) {
    clsEvent rent = Daily("000003", "Rent", DateValue::FromCivil(2023, 1, 31));
    rent.RecurrenceType(RecurDayOfMonth);
    rent.DayOfMonth(31);
    rent.MonthNumber(kEveryMonthByDay);
    Save({Daily("000001", "Tea", kToday), OneOff("000002", "DentistFirstFloor", kToday), rent});
    const std::string before = machine.files.Text("C:\\KAZ\\Events.xml");
    Open();
    EXPECT_THAT(Boxes().Lines(17), ElementsAre("Tea", "DentistFirst"));
    EXPECT_THAT(Boxes().Lines(16), IsEmpty());
    EXPECT_TRUE(Boxes().Days().Box(17).today);
    for (int step = 0; step < 24; ++step)
        window->Click(IDC_cmd_nextmonth);
    EXPECT_EQ("March 2025", Shown());
    EXPECT_THAT(Boxes().Lines(6), ElementsAre("Tea"));
    for (int step = 0; step < 12; ++step)
        window->Click(IDC_cmd_prevmonth);
    window->Click(IDC_cmd_prevyear);
    EXPECT_EQ("March 2023", Shown());
    EXPECT_EQ(1 + 24 + 12 + 1, window->timesDisabled);
    EXPECT_TRUE(window->Enabled(IDC_cmd_exit));
    window->Click(IDC_cmd_print);
    window->Click(IDC_cmdPrintCal);
    EXPECT_THAT(machine.printer.asked,
                ElementsAre(testing::HasSubstr("MonthView"), testing::HasSubstr("Calendar")));

    ASSERT_TRUE(app.events->SaveDB());
    EXPECT_EQ(before, machine.files.Text("C:\\KAZ\\Events.xml"));
    app.events->ReadEvent("000002")->Desc("DentistLater");
    ASSERT_TRUE(app.events->SaveDB());
    EXPECT_EQ(ReplaceAll(before, "DentistFirstFloor", "DentistLater"),
              machine.files.Text("C:\\KAZ\\Events.xml"));
    window->Raise(0, Raised::Activated);
    EXPECT_THAT(Boxes().Lines(17), ElementsAre("Tea", "DentistLater"));
}

TEST_F(MonthView, FollowsTheFilesTheFilterAndTheDay) {
    const auto of = [](const char* owner, clsEvent event) {
        event.Owner(owner);
        return event;
    };
    clsEvent work = of("Smith", OneOff("000001", "Report", kToday));
    work.Layer(4);
    Save({work, of("Smith", OneOff("000002", "Dentist", kToday))});
    app.settings.StoreSetting("Networked", true);
    ShareAsAnn({of("Ann", OneOff("000003", "Party", kToday))});
    app.layers.Layer(4, " Work ");
    Open(2, 2023);
    EXPECT_EQ(17, Boxes().Selected());  // the day of the month stays
    window->Click(IDC_cmdNow);
    EXPECT_THAT(Boxes().Lines(17), ElementsAre("Report [Smith]", "Dentist [Smith]", "Party [Ann]"));
    EXPECT_THAT(Boxes().Days().WholeDay(17),
                HasSubstr("Wednesday, March 15, 2023 (today)\r\nReport [Smith]"));

    // Another program saves a further event.
    clsDbXml other(app.Storage());
    other.LoadDB("C:\\KAZ\\Events.xml");
    other.StoreRecord(of("Smith", OneOff("", "Train", kToday)), true);
    ASSERT_TRUE(other.SaveDB());
    app.mainListIsStale = false;
    window->Click(IDM_REFRESH);
    EXPECT_EQ(4U, Boxes().Lines(17).size());
    EXPECT_TRUE(app.mainListIsStale);

    window->Choose(IDC_cmbMonthLayers, 4);
    EXPECT_THAT(Boxes().Lines(17), ElementsAre("Report [Smith]"));
    machine.clock.Set(2023, 3, 16, 0, 0);
    machine.windows.Advance(30000);
    EXPECT_TRUE(Boxes().Days().Box(18).today);
}

TEST_F(MonthView, KeysLeadFromMonthToMonthUpToTheEndsOfTheCalendar) {
    Open(12, 9999);
    window->Click(IDC_cmd_nextmonth);
    window->Click(IDC_cmd_nextyear);
    Boxes().Cursor().Press(DayKey::Last);
    window->Raise(IDC_Calbox, Raised::LeadsOut, 1);
    EXPECT_EQ("December 9999", Shown());
    ShowMonth(app, 3, 2023);
    EXPECT_EQ(1U, machine.windows.All(IDD_MONTH).size());
    EXPECT_EQ("March 2023", Shown());
    EXPECT_EQ(33, Boxes().Selected());  // the 31st
    window->CloseBox();
    machine.windows.Advance(10);
    EXPECT_EQ(nullptr, machine.windows.Newest(IDD_MONTH));
}

TEST_F(MonthView, TheListIsWrittenAsATextFileAndOpened) {
    Save({OneOff("000001", "Dentist, second floor", kToday)});
    Open();
    window->Click(IDC_cmdViewEvents);
    EXPECT_THAT(machine.shell.opened, ElementsAre("C:\\Temp\\KazTempFile.txt"));
    EXPECT_EQ("Events for March 2023\r\nWed\t15\tDentist, second floor\r\n",
              machine.files.Text("C:\\Temp\\KazTempFile.txt"));
    machine.files.At("C:\\Temp\\KazTempFile.txt").locked = true;
    window->Click(IDC_cmdViewEvents);
    EXPECT_THAT(machine.dialogs.messages, ElementsAre(HasSubstr("could not be written to C:\\Temp")));
    EXPECT_EQ(1U, machine.shell.opened.size());
}

}  // namespace
}  // namespace kaz
