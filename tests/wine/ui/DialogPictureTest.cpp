#include "Picture.h"
#include "fakes/FakePlatform.h"
#include "platform/win32/StockControls.h"
#include "platform/win32/Win32MessagePump.h"
#include "platform/win32/Win32WindowFactory.h"
#include "resources/resource.h"
#include "ui/frmAbout.h"
#include "ui/frmEditLayers.h"
#include "ui/options/frmOptions.h"

#include <gtest/gtest.h>

#include <vector>

namespace kaz {
namespace {

// The pictures are left in the folder of the test results.
class DialogPicture : public testing::Test {
protected:
    void Look(const std::string& name, const wchar_t* caption) {
        const HWND window = FindWindowW(nullptr, caption);
        ASSERT_NE(window, nullptr);
        ShowWindow(window, SW_SHOW);
        SetForegroundWindow(window);
        pump.ProcessPending();
        RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
        Picture::OfWhole(window).Save(name + "-" + std::to_string(GetDpiForWindow(window)) + ".bmp");

        RECT client{};
        GetClientRect(window, &client);
        std::vector<RECT> seen;
        for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
            const bool isFrame = KindOf(child) == ControlKind::Button &&
                                 (GetWindowLongPtrW(child, GWL_STYLE) & BS_TYPEMASK) == BS_GROUPBOX;
            if (!IsWindowVisible(child) || isFrame) continue;
            RECT place{}, common{};
            GetWindowRect(child, &place);
            MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&place), 2);
            const int id = GetDlgCtrlID(child);
            EXPECT_TRUE(IntersectRect(&common, &client, &place) && EqualRect(&common, &place)) << id;
            for (const RECT& other : seen)
                EXPECT_FALSE(IntersectRect(&common, &other, &place)) << id;
            seen.push_back(place);
            ExpectRoomForText(child, place);
        }
    }
    static void ExpectRoomForText(HWND control, const RECT& place) {
        const ControlKind kind = KindOf(control);
        if (kind != ControlKind::Static && kind != ControlKind::Button) return;
        wchar_t text[256]{};
        GetWindowTextW(control, text, 256);
        RECT needed{0, 0, place.right - place.left, 0};
        const HDC device = GetDC(control);
        SelectObject(device, reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)));
        DrawTextW(device, text, -1, &needed, DT_CALCRECT | DT_WORDBREAK);
        ReleaseDC(control, device);
        EXPECT_LE(needed.bottom, place.bottom - place.top) << GetDlgCtrlID(control);
    }

    FakePlatform machine;
    Win32WindowFactory windows{GetModuleHandleW(nullptr)};
    Win32MessagePump pump;
    Platform services = (machine.UseWindows(windows), machine.Services());
    Application app{services};
};

TEST_F(DialogPicture, NothingIsCutOffAndNothingOverlaps) {
    app.settings.StoreSetting("Networked", true);
    app.settings.StoreSetting("Owner", std::string("Fred"));
    app.settings.StoreSetting("SharedDataPath", std::string("C:\\Share"));
    machine.files.Put("C:\\Share\\KAZShared.ini", "Ann\r\nBob\r\nFred\r\n");
    app.layers.Layer(1, "Birthdays");

    frmOptions options(windows.Create(IDD_OPTIONS), app);
    options.OnRaised(0, Raised::Load, 0);
    Look("options", L"Reminder Options");
    frmEditLayers layers(windows.Create(IDD_LAYERS), app);
    layers.OnRaised(0, Raised::Load, 0);
    Look("categories", L"Category Names");
    frmAbout about(windows.Create(IDD_ABOUT), app.errors, services);
    about.OnRaised(0, Raised::Load, 0);
    Look("about", L"About KAZ");
    app.log.OverrideLogFilename("C:\\KAZ\\Log_KAZ.txt");
    app.log.LogEvent("KAZ Startup", true);
    app.errors.ShowErrObj({6, "Overflow"}, "cmdRemindMe_Click", "frmReminder");
    Look("error-report", L"KAZ - Error Report");
}

}  // namespace
}  // namespace kaz
