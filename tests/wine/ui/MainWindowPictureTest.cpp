#include "Picture.h"
#include "core/Application.h"
#include "core/MainWindow.h"
#include "fakes/FakePlatform.h"
#include "fakes/Sample.h"
#include "forms/win32/Win32WindowFactory.h"
#include "platform/win32/Win32MessagePump.h"
#include "resources/resource.h"
#include "ui/FormFactory.h"
#include "ui/list/EventRows.h"

#include <commctrl.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <tuple>

namespace kaz {
namespace {

// The pictures are left in the folder of the test results.
class MainWindowPicture : public testing::Test, public MainWindowEvents {
protected:
    MainWindowPicture() {
        app.settings.StoreSetting("Owner", std::string("Smith"));
        app.settings.StoreSetting("Networked", true);
        app.layers.LoadLayers();
        app.layers.Layer(1, "Home");
        app.layers.Layer(2, "Work");
        app.events = std::make_unique<clsDbXml>(app.Storage());
        app.shared = std::make_unique<clsDbXml>(app.Storage());
        app.expired = std::make_unique<clsDbXml>(app.Storage());
        app.events->LoadDB("C:\\KAZ\\Events.xml");
        app.expired->LoadDB("C:\\KAZ\\Expired.xml");

        Add(*app.events, "Put the bins out", 0).Recurring(true);
        Add(*app.events, "Dentist, bring the insurance card", 3);
        Add(*app.events, "Team lunch at the Caf\xE9 Central", 5, 2).SharedEvent = true;
        clsDbXml anns(app.Storage());
        Add(anns, "Release of the spring catalogue", 12, 2).Owner("Ann");
        anns.SetDBFilename("C:\\Share\\Shared_Ann.xml");
        machine.files.Put("C:\\Share\\KAZShared.ini", "Ann\r\n");
        anns.SaveDB();
        app.settings.StoreSetting("SharedDataPath", std::string("C:\\Share"));
        Add(*app.expired, "Renew the passport", -8);
    }
    ~MainWindowPicture() override {
        if (main) main->Unload();
    }

    Platform Services() {
        machine.UseWindows(windows);
        machine.pump.waiting = [this] { pump.ProcessPending(); };
        return machine.Services();
    }
    clsEvent& Add(clsDbXml& database, const std::string& description, int days, int category = 1) {
        clsEvent event = OneOff(std::to_string(100000 + database.RecordCount()), description,
                                machine.clock.Today().PlusDays(days));
        event.Owner("Smith");
        event.Layer(static_cast<std::int16_t>(category));
        return database.AllEvents().emplace_back(event);
    }
    void Open() {
        main = MakeMainWindow(app, *this);
        main->ShowWindow();
        window = FindWindowW(nullptr, L"KAZ");
        ASSERT_NE(nullptr, window);
        SendMessageW(GetDlgItem(window, IDC_chkExpired), BM_CLICK, 0, 0);
        list = GetDlgItem(window, IDC_ListEvents);
        Paint();
    }
    void Paint() {
        pump.ProcessPending();
        UpdateWindow(window);
        UpdateWindow(list);
        pump.ProcessPending();
    }
    RECT Cell(int row, int column) const {
        RECT place{};
        ListView_GetSubItemRect(list, row, column, LVIR_LABEL, &place);
        return place;
    }
    static int Pixels(const Picture& picture, const RECT& cell, int red, int green, int blue) {
        return picture.Count(cell,
                             Colour::Rgb(static_cast<std::uint8_t>(red), static_cast<std::uint8_t>(green),
                                         static_cast<std::uint8_t>(blue)));
    }

    void fMain_ShutDownKAZ() override {}
    void fMain_Rescan() override {}
    void fMain_WindowClosed() override {}

    FakePlatform machine;
    Win32WindowFactory windows{GetModuleHandleW(nullptr)};
    Win32MessagePump pump;
    Application app{Services()};
    std::shared_ptr<MainWindow> main;
    HWND window = nullptr;
    HWND list = nullptr;
};

TEST_F(MainWindowPicture, TheDescriptionAloneIsPaintedInTheColourOfItsType) {
    Open();
    const Picture picture = Picture::OfClient(list);
    Picture::OfWhole(window).Save("main-window.bmp");

    // In the order of the days left: expired (the selected row is painted in the system's colours, so it is
    // looked at later), today's, the dentist, the user's shared one, then that of somebody else.
    EXPECT_EQ(0, Pixels(picture, Cell(2, kEventColumn), 255, 0, 0));
    EXPECT_GT(Pixels(picture, Cell(2, kEventColumn), 0, 0, 0), 20);
    EXPECT_GT(Pixels(picture, Cell(3, kEventColumn), 0, 128, 0), 20);
    EXPECT_EQ(0, Pixels(picture, Cell(3, kLayerColumn), 0, 128, 0));
    EXPECT_GT(Pixels(picture, Cell(3, kLayerColumn), 0, 0, 0), 5);
    const RECT others = Cell(4, kEventColumn);
    EXPECT_GT(Pixels(picture, others, 0, 0, 255), 20);

    ListView_SetItemState(list, -1, 0, LVIS_SELECTED);
    Paint();
    EXPECT_GT(Pixels(Picture::OfClient(list), Cell(0, kEventColumn), 255, 0, 0), 20);
    EXPECT_EQ(0, Pixels(Picture::OfClient(list), Cell(0, kLeftColumn), 255, 0, 0));
}

TEST_F(MainWindowPicture, TheFrameShowsTheBackgroundOfTheWindow) {
    Open();
    const Picture picture = Picture::OfClient(window);
    RECT frame{};
    GetWindowRect(GetDlgItem(window, IDC_fraFilter), &frame);
    MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&frame), 2);
    const LONG area = (frame.right - frame.left) * (frame.bottom - frame.top);
    const COLORREF face = GetSysColor(COLOR_3DFACE);
    EXPECT_GT(Pixels(picture, frame, GetRValue(face), GetGValue(face), GetBValue(face)), area / 2);
}

TEST_F(MainWindowPicture, TheBarTakesItsRoomFromTheListAtEverySize) {
    Open();
    const auto place = [this](int control) {
        RECT rect{};
        GetWindowRect(GetDlgItem(window, control), &rect);
        return rect;
    };
    const RECT before = place(IDC_ListEvents);
    const int dpi = static_cast<int>(GetDpiForWindow(window));
    app.health.Tell({"saved",
                     Health::Weight::Alarm,
                     "Your latest changes (\"Dentist\" and 2 more) are not saved: the disk D: is full. "
                     "KAZ tries again every half minute.",
                     {{"Try again", {}}, {"Save a copy elsewhere...", {}}}});
    app.health.Tell({"backup", Health::Weight::Warning, "The folder of the backups is not there.", {}});
    for (const auto& [width, height, name] :
         {std::tuple{0, 0, "smallest"}, std::tuple{760, 420, "usual"}, std::tuple{1200, 500, "wide"}}) {
        SetWindowPos(window, nullptr, 0, 0, MulDiv(width, dpi, 96), MulDiv(height, dpi, 96),
                     SWP_NOMOVE | SWP_NOZORDER);
        Paint();
        Picture::OfWhole(window).Save(std::string("health-bar-") + name + ".bmp");
        const RECT text = place(IDC_lblHealth);
        const RECT next = place(IDC_cmdHealthNext);
        EXPECT_LT(place(IDC_fraFilter).bottom, text.top);
        EXPECT_LT(std::max(text.bottom, next.bottom), place(IDC_ListEvents).top);
        EXPECT_GT(place(IDC_ListEvents).bottom, place(IDC_ListEvents).top);
        EXPECT_GT(Pixels(Picture::OfClient(GetDlgItem(window, IDC_lblHealth)), {0, 0, 60, 20}, 253, 231, 233),
                  400);
    }
    SendMessageW(GetDlgItem(window, IDC_cmdHealthNext), BM_CLICK, 0, 0);
    wchar_t said[100] = L"";
    GetDlgItemTextW(window, IDC_lblHealth, said, 100);
    EXPECT_STREQ(L"The folder of the backups is not there.", said);
    Paint();
    Picture::OfWhole(window).Save("health-bar-short.bmp");
    app.health.Clear("saved");
    app.health.Clear("backup");
    EXPECT_EQ(before.top, place(IDC_ListEvents).top);
}

TEST_F(MainWindowPicture, AnErrorReportLeavesTheKeyboardWhereItIs) {
    Open();
    const HWND focus = GetFocus();
    app.errors.ShowErr("Error 61 - Disk full in SaveDB of clsDbXml", "C:\\KAZ\\Events.xml");
    pump.ProcessPending();
    const HWND report = FindWindowW(nullptr, L"KAZ - Error Report");
    ASSERT_NE(nullptr, report);
    EXPECT_TRUE(IsWindowVisible(report));
    EXPECT_EQ(focus, GetFocus());
    Picture::OfWhole(report).Save("error-report.bmp");
}

}  // namespace
}  // namespace kaz
