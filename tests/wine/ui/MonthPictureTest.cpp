#include "Picture.h"
#include "fakes/FakePlatform.h"
#include "fakes/Sample.h"
#include "forms/win32/DialogWindow.h"
#include "forms/win32/Win32WindowFactory.h"
#include "platform/win32/Win32MessagePump.h"
#include "resources/resource.h"
#include "ui/month/ShowMonth.h"

#include <gtest/gtest.h>

namespace kaz {
namespace {

Colour SystemColour(int index) {
    const COLORREF colour = GetSysColor(index);
    return Colour::Rgb(GetRValue(colour), GetGValue(colour), GetBValue(colour));
}

// The picture is left in the folder of the test results.
TEST(MonthPicture, TodayIsMarkedAndItsEventsArePainted) {
    Win32WindowFactory windows{GetModuleHandleW(nullptr)};
    Win32MessagePump pump;
    FakePlatform machine;
    machine.UseWindows(windows);
    machine.clock.Set(2023, 3, 15, 9, 0);
    Application app(machine.Services());
    app.layers.LoadLayers();
    app.events = std::make_unique<clsDbXml>(app.Storage());
    const auto day = [](int number) { return DateValue::FromCivil(2023, 3, number); };
    app.events->AllEvents() = {OneOff("1", "Dentist, bring the insurance card", day(15)),
                               Daily("2", "Water the plants", day(3), 7),
                               OneOff("5", "Team lunch at the Caf\xE9 Central", day(15))};
    for (int i = 0; i < 12; ++i)
        app.events->AllEvents().push_back(OneOff("7", "Meeting " + std::to_string(i + 1), day(23)));
    app.events->SetDBFilename("C:\\KAZ\\Events.xml");
    app.events->SaveDB();
    ShowMonth(app, 3, 2023);
    const HWND window = FindWindowW(nullptr, L"KAZ Monthly View (All Categories)");
    ASSERT_NE(nullptr, window);
    pump.ProcessPending();
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
    Picture::OfWhole(window).Save("month-" + std::to_string(GetDpiForWindow(window)) + ".bmp");

    const HWND grid = GetDlgItem(window, IDC_Calbox);
    const Picture picture = Picture::OfClient(grid);
    const int width = picture.Width() / DayBoxes::kColumns;
    const auto marked = [&](int column) {
        const RECT place{column * width + 4, 0, (column + 1) * width - 4, picture.Height()};
        return picture.Count(place, SystemColour(COLOR_HIGHLIGHT));
    };
    EXPECT_GT(marked(3), width * 10);
    EXPECT_EQ(0, marked(2));
    EXPECT_GT(picture.Count({0, 0, picture.Width(), picture.Height()}, SystemColour(COLOR_WINDOWTEXT)), 300);
    wchar_t text[200]{};
    GetWindowTextW(grid, text, 200);
    EXPECT_EQ(std::wstring(L"Wednesday, March 15, 2023 (today)\r\nDentist, bring the insurance card\r\n"
                           L"Team lunch at the Caf\u00E9 Central"),
              text);
    app.openWindows.UnloadAll();
}

}  // namespace
}  // namespace kaz
