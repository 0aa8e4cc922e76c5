#include "../FormTest.h"
#include "RealWindow.h"
#include "ui/event/frmEvent.h"

#include <windows.h>

#include <array>
#include <optional>

namespace kaz {
namespace {

constexpr LPARAM kWithAlt = 1 << 29;

// What a form leaves to the keyboard of the system.
class KeysTest : public FormTest {
protected:
    ~KeysTest() override { app.openWindows.UnloadAll(); }

    void Open(frmEvent& form) {
        form.OnRaised(0, Raised::Load, 0);
        TurnTo(IDD_EVENT);
        window->Show(Activation::TakeFocus);
        window->SetFocus(IDC_txtDesc);
    }
    void Press(UINT message, std::initializer_list<int> keys, LPARAM detail = 1) {
        for (const int key : keys) {
            PostMessageW(GetFocus(), message, static_cast<WPARAM>(key), detail);
            stage->Pump().ProcessPending();
        }
    }
    void PressWithCtrl(int key) {
        std::array<BYTE, 256> before{};
        GetKeyboardState(before.data());
        std::array<BYTE, 256> held = before;
        held[VK_CONTROL] = 0x80;
        SetKeyboardState(held.data());
        Press(WM_KEYDOWN, {key});
        SetKeyboardState(before.data());
    }
    void PressEverything() {
        Press(WM_CHAR, {'y', 'n', ' '});
        Press(WM_KEYDOWN, {VK_RETURN, VK_ESCAPE});
        Press(WM_SYSCHAR, {'y', 'n'}, kWithAlt);
        Press(WM_SYSKEYDOWN, {VK_F4}, kWithAlt);
    }
    void BringForward(Window& front) {
        SetForegroundWindow(HandleOf(front));
        stage->Pump().ProcessPending();
        ASSERT_EQ(GetForegroundWindow(), HandleOf(front));
    }
    void Ask(const std::string& file) {
        answer.reset();
        app.reminderWindows.Ask({"Bob", "Run me", file, [this](bool yes) { answer = yes; }});
        stage->Pump().ProcessPending();
        ASSERT_TRUE(TurnTo(IDD_RUNFILE));
    }
    std::optional<bool> answer;
};

TEST_F(KeysTest, EnterSavesAnEventButForItsDescriptionAndTheAccessKeyPressesItsButton) {
    frmEvent form(stage->Windows().Create(IDD_EVENT), app, Daily("000001", "Rent", kToday), EditMode::Whole);
    Open(form);
    Press(WM_KEYDOWN, {VK_RETURN});
    EXPECT_EQ("Single", form.Event().Owner());
    window->SetFocus(IDC_txtDaysWarning);
    Press(WM_KEYDOWN, {VK_RETURN});
    EXPECT_EQ("Smith", form.Event().Owner());
    EXPECT_EQ("\r\nRent", form.Event().Desc());
    window->SetText(IDC_txtDesc, "Saved");
    Press(WM_SYSCHAR, {'s'}, kWithAlt);
    EXPECT_EQ("Saved", form.Event().Desc());
}

TEST_F(KeysTest, CtrlEnterSavesAnEventFromEveryControl) {
    frmEvent form(stage->Windows().Create(IDD_EVENT), app, Daily("000001", "Rent", kToday), EditMode::Whole);
    Open(form);
    const HWND first = GetFocus();
    HWND control = first;
    do {
        const std::string text = "Saved in " + std::to_string(GetDlgCtrlID(control));
        window->SetText(IDC_txtDesc, text);
        PressWithCtrl(VK_RETURN);
        EXPECT_EQ(text, form.Event().Desc());
        Press(WM_KEYDOWN, {VK_TAB});
        EXPECT_NE(control, GetFocus());
        control = GetFocus();
    } while (control != first && !HasFailure());
}

TEST_F(KeysTest, AWindowThatComesByItselfLeavesTheKeyboardWhereItIs) {
    OpenMain();
    main->ShowWindow();
    const HWND focus = GetFocus();
    app.errors.ShowErr("Error 61 - Disk full in SaveDB of clsDbXml", "C:\\KAZ\\Events.xml");
    stage->Pump().ProcessPending();
    ASSERT_TRUE(TurnTo(IDD_ERRORREPORT));
    EXPECT_TRUE(window->IsVisible());
    EXPECT_EQ(focus, GetFocus());
}

TEST_F(KeysTest, AQuestionThatComesByItselfTakesNoKeyForAnAnswer) {
    const auto typing = stage->Windows().Create(IDD_INPUTBOX);
    typing->Show(Activation::TakeFocus);
    stage->Pump().ProcessPending();
    const std::string file = "\\\\server\\share\\" + std::string(1000, 'x') + ".bat";
    Ask(file);
    const HWND handle = HandleOf(*window);
    EXPECT_EQ(GetForegroundWindow(), HandleOf(*typing));
    EXPECT_EQ(LOWORD(SendMessageW(handle, DM_GETDEFID, 0, 0)), IDC_cmdNo);
    EXPECT_TRUE(IsAbove(handle, HandleOf(*typing)));

    // The whole path, broken into lines, of which all are to be seen.
    RECT frame{}, work{}, lines{};
    GetWindowRect(handle, &frame);
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    EXPECT_TRUE(frame.top >= work.top && frame.bottom <= work.bottom);
    const HWND box = ControlOf(*window, IDC_txtFile);
    SendMessageW(box, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&lines));
    const LRESULT end = SendMessageW(box, EM_POSFROMCHAR, file.size() - 1, 0);
    EXPECT_LT(HIWORD(end), lines.bottom);
    EXPECT_LT(LOWORD(end), lines.right);

    BringForward(*window);
    PressEverything();
    // Time that it has stood behind another window is none for who comes to it by a key.
    BringForward(*typing);
    stage->Wait(1200);
    BringForward(*window);
    PressEverything();
    EXPECT_EQ(answer, std::nullopt);
    stage->Wait(1200);
    Press(WM_CHAR, {'y', 'n', ' '});
    EXPECT_EQ(answer, std::nullopt);
    Press(WM_KEYDOWN, {VK_RETURN});
    EXPECT_EQ(answer, false);
    Ask("C:\\report.exe");
    BringForward(*window);
    stage->Wait(1200);
    Press(WM_SYSCHAR, {'y'}, kWithAlt);
    EXPECT_EQ(answer, true);
}

}  // namespace
}  // namespace kaz
