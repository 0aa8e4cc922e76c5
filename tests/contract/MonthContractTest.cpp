#include "DialogStage.h"
#include "fakes/Sample.h"
#include "resources/resource.h"
#include "ui/month/ShowMonth.h"

#include <gmock/gmock.h>

namespace kaz {
namespace {

using testing::ElementsAre;

TEST_F(DialogContract, TheMonthIsWalkedThroughByKeysWheelAndButtons) {
    machine.clock.Set(2023, 3, 15, 9, 0);
    app.layers.LoadLayers();
    app.events = std::make_unique<clsDbXml>(app.Storage());
    app.events->SetDBFilename("C:\\KAZ\\Events.xml");
    app.events->AllEvents() = {OneOff("000001", "Dentist", DateValue::FromCivil(2023, 3, 15)),
                               Daily("000002", "Rent", DateValue::FromCivil(2023, 4, 1), 28)};
    app.events->SaveDB();
    ShowMonth(app, 3, 2023);
    Window& window = *stage->Find(IDD_MONTH);
    DayGrid& grid = window.Grid(IDC_Calbox);
    const auto shown = [&] { return window.Text(IDC_lblDate); };
    EXPECT_TRUE(window.IsVisible());
    EXPECT_EQ("KAZ Monthly View (All Categories)", window.Text(0));
    EXPECT_EQ("March 2023", shown());
    EXPECT_EQ(17, grid.Selected());
    grid.Select(2);  // no day
    EXPECT_EQ(17, grid.Selected());
    EXPECT_TRUE(window.Enabled(IDC_cmd_nextyear));

    stage->Press(window, IDC_Calbox, DayKey::Left);
    stage->Press(window, IDC_Calbox, DayKey::Down);
    EXPECT_EQ(23, grid.Selected());
    stage->Press(window, IDC_Calbox, DayKey::Down);
    stage->Press(window, IDC_Calbox, DayKey::Down);
    EXPECT_EQ("April 2023", shown());
    EXPECT_EQ(9, grid.Selected());  // the 4th
    stage->Press(window, IDC_Calbox, DayKey::First);
    stage->OnModal(IDD_DAYEVENTS, [&](Window& day) {
        EXPECT_EQ("Saturday, April 1, 2023", day.Text(0));
        EXPECT_THAT(day.Items(IDC_lstDayEvents), ElementsAre("Rent"));
        stage->Click(day, IDC_cmdCloseDay);
    });
    stage->PressEnter(window, IDC_Calbox);
    EXPECT_EQ(nullptr, stage->Find(IDD_DAYEVENTS));

    stage->TurnWheel(window, IDC_Calbox, -1);
    EXPECT_EQ("May 2023", shown());
    stage->TurnWheel(window, IDC_Calbox, 2);
    EXPECT_EQ("March 2023", shown());
    stage->Click(window, IDC_cmd_prevyear);
    EXPECT_EQ("March 2022", shown());
    stage->Choose(window, IDC_cmbMonthLayers, 3);
    EXPECT_EQ("KAZ Monthly View (Layer 3)", window.Text(0));
    stage->Click(window, IDC_cmd_exit);
    stage->Wait(50);
    EXPECT_EQ(nullptr, stage->Find(IDD_MONTH));
}

}  // namespace
}  // namespace kaz
