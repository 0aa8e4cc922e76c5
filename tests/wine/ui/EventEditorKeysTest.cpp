#include "fakes/FakePlatform.h"
#include "fakes/Sample.h"
#include "forms/win32/Win32WindowFactory.h"
#include "platform/win32/Win32MessagePump.h"
#include "ui/event/frmEvent.h"

#include <windows.h>
#include <gtest/gtest.h>

namespace kaz {
namespace {

TEST(EventEditorKeys, EnterSavesButForADescriptionAndTheAccessKeyPressesItsButton) {
    FakePlatform machine;
    Application app{machine.Services()};
    Win32MessagePump pump;
    auto window = Win32WindowFactory(GetModuleHandleW(nullptr)).Create(IDD_EVENT);
    Window& dialog = *window;
    frmEvent form(std::move(window), app, Daily("000001", "Rent", machine.clock.Today()), EditMode::Whole);
    form.OnRaised(0, Raised::Load, 0);
    dialog.Show(Activation::TakeFocus);
    dialog.SetFocus(IDC_txtDesc);
    const HWND handle = FindWindowW(nullptr, L"KAZ - Add/Edit event");
    const auto press = [&](int field, UINT message, WPARAM key, LPARAM detail) {
        PostMessageW(GetDlgItem(handle, field), message, key, detail);
        pump.ProcessPending();
    };
    constexpr LPARAM kWithAlt = 1 << 29;

    press(IDC_txtDesc, WM_KEYDOWN, VK_RETURN, 1);
    EXPECT_EQ("Single", form.Event().Owner());
    press(IDC_txtDaysWarning, WM_KEYDOWN, VK_RETURN, 1);
    EXPECT_EQ("Not Set", form.Event().Owner());
    EXPECT_EQ("\r\nRent", form.Event().Desc());
    dialog.SetText(IDC_txtDesc, "Saved");
    press(IDC_txtDaysWarning, WM_SYSCHAR, 's', kWithAlt);
    EXPECT_EQ("Saved", form.Event().Desc());
}

}  // namespace
}  // namespace kaz
