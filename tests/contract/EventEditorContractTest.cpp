#include "DialogStage.h"
#include "fakes/Sample.h"
#include "resources/resource.h"
#include "ui/event/EventEditorDialog.h"

#include <gmock/gmock.h>

#include <functional>

namespace kaz {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class EventEditorContract : public DialogContract {
protected:
    EventEditorContract() {
        app.settings.StoreSetting("Owner", std::string("Smith"));
        app.settings.StoreSetting("Networked", true);
        app.settings.StoreSetting("SharedDataPath", std::string("C:\\Share"));
        machine.files.Put("C:\\Share\\KAZShared.ini", "Ann\r\nBob\r\n");
        app.layers.LoadLayers();
    }
    // The user works, presses Save and, should the dialog still be open, Abort.
    bool Edit(clsEvent& event, const std::function<void(Window&)>& user, EditMode mode = EditMode::Whole) {
        stage->OnModal(IDD_EVENT, [&](Window& window) {
            user(window);
            stage->Click(window, IDC_cmdSave);
            if (stage->Find(IDD_EVENT)) stage->Click(window, IDC_cmdAbort);
        });
        return EventEditorDialog(app).Edit(event, mode);
    }
};

TEST_F(EventEditorContract, AnEventOfEachKindIsOpenedChangedAndSaved) {
    constexpr int kFields[] = {IDC_chkDay,          IDC_txtDayOfMonth, IDC_txtMonthlyPeriod,
                               IDC_txtWeeklyPeriod, IDC_lstDayName,    IDC_txtDailyPeriod};
    for (std::int32_t type = RecurWeekdays; type <= RecurEveryNDays; ++type) {
        clsEvent event = Daily("000001", "Caf\xE9\r\nand cake", machine.clock.Today(), 2);
        event.RecurrenceType(type);
        event.Owner("Smith");
        event.WeekDays(128);
        event.DayOfMonth(31);
        event.MonthNumber(12);
        event.Daynumber(5);
        event.DayOfWeek(7);
        event.DaysWarning(5);
        event.Layer(3);
        event.PlayWav = event.ExecFile = event.SharedEvent = event.ShareWithSpecific = true;
        event.WavFile = "C:\\Sounds\\bell.wav";
        event.Filename = "C:\\list.txt";
        event.Email = "ann@example.org;bob@example.org";
        event.ShareNames = "Ann\r\nCid\r\n";  // one of whom is not in the list of the folder
        clsEvent expected = event;
        EXPECT_TRUE(Edit(event, [](Window&) {}));
        EXPECT_EQ(FileOf({expected}), FileOf({event})) << type << " untouched";
        EXPECT_TRUE(Edit(event, [&](Window& window) {
            EXPECT_EQ(type, window.Selected(IDC_TabStrip1));
            for (int tab = 0; tab < 6; ++tab)
                EXPECT_EQ(tab == type, window.ControlVisible(kFields[tab])) << tab;
            EXPECT_NE("", window.Text(IDC_lblPreview));
            EXPECT_FALSE(window.Enabled(IDC_txtTime));
            stage->Click(window, IDC_chkTimed);
            stage->Type(window, IDC_txtTime, "08;15");
            stage->Type(window, IDC_txtMinutesWarning, "20");
            EXPECT_EQ("(Alarm will sound at 7:55am)", window.Text(IDC_lblAlarmAdvice));
            stage->Choose(window, IDC_cmbLayers, 4);
        }));
        expected.AlarmSet(true);
        expected.DueTime(DateValue::FromTime(8, 15));
        expected.MinutesWarning(20);
        expected.AlarmTime(DateValue::FromTime(7, 55));
        expected.Layer(4);
        EXPECT_EQ(FileOf({expected}), FileOf({event})) << type;
    }
    EXPECT_THAT(machine.dialogs.messages, IsEmpty());
}

TEST_F(EventEditorContract, ATabShowsItsFrameAndWhatIsWrongKeepsTheDialogOpen) {
    clsEvent event;
    machine.dialogs.dates = {DateValue(45056)};
    EXPECT_FALSE(Edit(event, [&](Window& window) {
        EXPECT_TRUE(window.ControlVisible(IDC_chkDay));
        stage->Choose(window, IDC_TabStrip1, RecurEveryNDays);
        EXPECT_FALSE(window.ControlVisible(IDC_chkDay));
        EXPECT_EQ("", window.Text(IDC_lblPreview));
        stage->Click(window, IDC_cmdSave);
        stage->Click(window, IDC_lblDailyStartDate);
        EXPECT_EQ("05/10/2023", window.Text(IDC_lblDailyStartDate));
        EXPECT_EQ("Next date:  Wed 05/10/2023", window.Text(IDC_lblPreview));
        stage->Type(window, IDC_txtDailyPeriod, "x");
        EXPECT_EQ("", window.Text(IDC_lblPreview));
    }));
    EXPECT_THAT(machine.dialogs.messages,
                ElementsAre("Please enter a valid starting date", "Please enter a number in the repeat box"));
    EXPECT_EQ(RecurWeekdays, event.RecurrenceType());
}

TEST_F(EventEditorContract, NoDescriptionIsCutOrChangedByBeingShown) {
    std::string bytes;
    for (int byte = 1; byte < 256; ++byte)
        bytes += static_cast<char>(byte);
    std::string lines;
    while (lines.size() < 60000)
        lines += "Bring the photographs, the caf\xE9 has a new wall.\r\n";
    for (const std::string& text : {lines, bytes}) {
        clsEvent event = Daily("000001", text, machine.clock.Today());
        EXPECT_TRUE(Edit(event, [](Window&) {}));
        EXPECT_TRUE(text == event.Desc());
    }
    clsEvent event = Daily("000001", lines, machine.clock.Today());
    EXPECT_TRUE(Edit(event, [&](Window& window) { window.SetText(IDC_txtDesc, lines + "x"); }));
    EXPECT_TRUE(lines + "x" == event.Desc());

    const std::string tooLong = (lines + lines).substr(0, clsEvent::kLongestShown + 1);
    EXPECT_FALSE(Edit(event, [&](Window& window) { window.SetText(IDC_txtDesc, tooLong); }));
    EXPECT_THAT(machine.dialogs.messages, ElementsAre(HasSubstr("can have 100000 characters")));
    EXPECT_TRUE(lines + "x" == event.Desc());
    event.Desc(tooLong);
    EXPECT_TRUE(Edit(event, [&](Window& window) {
        EXPECT_THAT(window.Text(IDC_txtDesc), HasSubstr("it has 100001 characters"));
        EXPECT_FALSE(window.Enabled(IDC_txtDesc));
        stage->Choose(window, IDC_cmbLayers, 4);
    }));
    EXPECT_TRUE(tooLong == event.Desc());
    EXPECT_EQ(4, event.Layer());
}

TEST_F(EventEditorContract, TheSharingModeShowsAndChangesTheSharingOnly) {
    clsEvent event = Daily("000001", "Rent", machine.clock.Today(), -1);  // what is hidden is not checked
    event.ShareNames = "BOB\r\nCid\r\n";
    const auto sharesWithAnnAndCid = [&](Window& window) {
        EXPECT_FALSE(window.ControlVisible(IDC_txtDesc) || window.ControlVisible(IDC_TabStrip1));
        // Of others, one who is not in the list of the folder at the moment.
        EXPECT_THAT(window.Items(IDC_lstUsers), ElementsAre("Ann", "Bob", "Cid"));
        EXPECT_THAT(window.Selection(IDC_lstUsers), ElementsAre(1, 2));
        stage->Click(window, IDC_chkShared);
        EXPECT_FALSE(window.Enabled(IDC_lstUsers));
        stage->Click(window, IDC_chkSpecificShare);
        EXPECT_TRUE(window.Enabled(IDC_lstUsers));
        window.SetSelection(IDC_lstUsers, {0, 2});
    };
    EXPECT_TRUE(Edit(event, sharesWithAnnAndCid, EditMode::SharingOnly));
    EXPECT_TRUE(event.SharedEvent && event.ShareWithSpecific);
    EXPECT_EQ("Ann\r\nCid\r\n", event.ShareNames);
    EXPECT_EQ(-1, event.Period());

    app.settings.StoreSetting("Networked", false);
    EXPECT_TRUE(Edit(
        event, [](Window& window) { EXPECT_FALSE(window.Enabled(IDC_chkShared)); }, EditMode::SharingOnly));
    EXPECT_FALSE(event.SharedEvent || event.ShareWithSpecific);
}

}  // namespace
}  // namespace kaz
