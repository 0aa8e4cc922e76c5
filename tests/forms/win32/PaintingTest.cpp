#include "../FormTest.h"
#include "Picture.h"
#include "RealWindow.h"
#include "ui/month/ShowMonth.h"

#include <windows.h>
#include <commctrl.h>

#include <algorithm>

namespace kaz {
namespace {

constexpr Colour kBlack = Colour::Rgb(0, 0, 0), kRed = Colour::Rgb(255, 0, 0),
                 kGreen = Colour::Rgb(0, 128, 0);

Colour SystemColour(int index) {
    const COLORREF colour = GetSysColor(index);
    return Colour::Rgb(GetRValue(colour), GetGValue(colour), GetBValue(colour));
}

// What can only be seen on the screen.
class PaintingTest : public FormTest {
protected:
    ~PaintingTest() override { app.openWindows.UnloadAll(); }

    // An event of each type, in the order of the days left: expired, of the day,
    // own, shared, of somebody else.
    void OpenMainWithAllTypes() {
        app.settings.StoreSetting("Networked", true);
        ShareAsAnn({Of("Ann", OneOff("1", "Release of the spring catalogue", kToday.PlusDays(12)))});
        Add(*app.expired, "Renew the passport", -8);
        Add(*app.events, "Put the bins out", 0).Recurring(true);
        Add(*app.events, "Dentist, bring the insurance card", 3);
        Add(*app.events, "Team lunch at the Café Central", 5, 2).SharedEvent = true;
        OpenMain();
        main->ShowWindow();
        Click(IDC_chkExpired);
        Paint();
    }
    HWND At(int control) { return ControlOf(*window, control); }
    void Paint() {
        RedrawWindow(HandleOf(*window), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
        stage->Pump().ProcessPending();
    }
    int InCell(int row, int column, Colour colour) {
        RECT cell{};
        ListView_GetSubItemRect(At(IDC_ListEvents), row, column, LVIR_LABEL, &cell);
        return Picture(At(IDC_ListEvents)).Count(cell, colour);
    }
    RECT Place(int control) {
        RECT place{};
        GetWindowRect(At(control), &place);
        MapWindowPoints(nullptr, HandleOf(*window), reinterpret_cast<POINT*>(&place), 2);
        return place;
    }
};

TEST_F(PaintingTest, TheDescriptionAloneIsInTheColourOfItsTypeAndTheFrameInThatOfTheWindow) {
    OpenMainWithAllTypes();
    List().ClearSelection();  // a selected row is in the colours of the system
    Paint();
    const struct {
        int row, column;
        Colour colour;
        int least;  // of the pixels; 0: none at all
    } cases[] = {{0, kEventColumn, kRed, 20},   {0, kLeftColumn, kRed, 0},
                 {2, kEventColumn, kRed, 0},    {2, kEventColumn, kBlack, 20},
                 {3, kEventColumn, kGreen, 20}, {3, kLayerColumn, kGreen, 0},
                 {3, kLayerColumn, kBlack, 5},  {4, kEventColumn, Colour::Rgb(0, 0, 255), 20}};
    for (const auto& each : cases) {
        const int pixels = InCell(each.row, each.column, each.colour);
        EXPECT_TRUE(each.least > 0 ? pixels > each.least : pixels == 0) << each.row << ", " << each.column;
    }
    const RECT frame = Place(IDC_fraFilter);
    EXPECT_GT(Picture(HandleOf(*window)).Count(frame, SystemColour(COLOR_3DFACE)),
              (frame.right - frame.left) * (frame.bottom - frame.top) / 2);
}

TEST_F(PaintingTest, TheBarTakesItsRoomFromTheListAtEverySize) {
    OpenMainWithAllTypes();
    const LONG before = Place(IDC_ListEvents).top;
    app.health.Tell({"saved",
                     Health::Weight::Alarm,
                     "Your latest changes (\"Dentist\" and 2 more) are not saved: the disk D: is full. "
                     "KAZ tries again every half minute.",
                     {{"Try again", {}}, {"Save a copy elsewhere...", {}}}});
    app.health.Tell({"backup", Health::Weight::Warning, "The folder of the backups is not there.", {}});
    for (const WindowSize size : {WindowSize{1, 1}, {760, 420}, {1200, 500}}) {
        window->SetSize(size);
        Paint();
        const RECT text = Place(IDC_lblHealth);
        const RECT list = Place(IDC_ListEvents);
        EXPECT_LT(Place(IDC_fraFilter).bottom, text.top);
        EXPECT_LT(std::max(text.bottom, Place(IDC_cmdHealthNext).bottom), list.top);
        EXPECT_GT(list.bottom, list.top);
        EXPECT_GT(Picture(At(IDC_lblHealth)).Count({0, 0, 60, 20}, Colour::Rgb(253, 231, 233)), 400);
    }
    Click(IDC_cmdHealthNext);
    EXPECT_EQ("The folder of the backups is not there.", Text(IDC_lblHealth));
    for (const char* key : {"saved", "backup"})
        app.health.Clear(key);
    EXPECT_EQ(before, Place(IDC_ListEvents).top);
}

TEST_F(PaintingTest, TodayIsMarkedInTheMonthAndItsEventsAreWritten) {
    Changing(*app.events) = {OneOff("1", "Dentist, bring the insurance card", kToday),
                             Daily("2", "Water the plants", kToday.PlusDays(-12), 7)};
    for (int i = 0; i < 12; ++i)
        Changing(*app.events).push_back(OneOff("7", "Meeting " + std::to_string(i + 1), kToday.PlusDays(8)));
    app.events->SaveDB();
    ShowMonth(app, 3, 2023);
    TurnTo(IDD_MONTH);
    Paint();
    const Picture picture(At(IDC_Calbox));
    const LONG width = picture.Whole().right / DayBoxes::kColumns;
    const auto marked = [&](int column) {
        const RECT place{column * width + 4, 0, (column + 1) * width - 4, picture.Whole().bottom};
        return picture.Count(place, SystemColour(COLOR_HIGHLIGHT));
    };
    EXPECT_GT(marked(3), width * 10);
    EXPECT_EQ(0, marked(2));
    EXPECT_GT(picture.Count(picture.Whole(), SystemColour(COLOR_WINDOWTEXT)), 300);
}

}  // namespace
}  // namespace kaz
