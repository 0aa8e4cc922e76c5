#include "../FormTest.h"
#include "RealWindow.h"
#include "base/Text.h"
#include "ui/event/frmEvent.h"

#include <windows.h>
#include <commctrl.h>

#include <algorithm>
#include <array>
#include <cwchar>
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
    // Key by key: "Ctrl+7 3 / 1 2 Alt+R Tab".
    void PressKeys(const std::string& keys) {
        static constexpr std::pair<std::string_view, int> kNames[] = {
            {"Tab", VK_TAB}, {"Enter", VK_RETURN}, {"End", VK_END}, {"Space", VK_SPACE}};
        for (std::string_view key : Split(keys, " ")) {
            const bool ctrl = key.starts_with("Ctrl+");
            const bool alt = key.starts_with("Alt+");
            if (ctrl || alt) key.remove_prefix(key.find('+') + 1);
            const auto named = std::ranges::find(kNames, key, [](const auto& name) { return name.first; });
            const int code = named == std::end(kNames) ? key.front() : named->second;
            if (ctrl)
                PressWithCtrl(code);
            else if (alt)
                Press(WM_SYSCHAR, {code}, kWithAlt);
            else
                Press(named == std::end(kNames) ? WM_CHAR : WM_KEYDOWN, {code});
            if (code == VK_SPACE) Press(WM_KEYUP, {code});
        }
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
    EXPECT_EQ("Rent", form.Event().Desc());
    window->SetText(IDC_txtDesc, "Saved");
    Press(WM_SYSCHAR, {'s'}, kWithAlt);
    EXPECT_EQ("Saved", form.Event().Desc());
}

TEST_F(KeysTest, AnEventIsEnteredInAFewKeysAfterItsText) {
    app.settings.StoreSetting("DateStyle", std::int16_t{1});
    const struct {
        const char* keys;
        const char* dates;
        int warning = 0;
    } cases[] = {{"Ctrl+2 5 Tab M Ctrl+Enter", "Next dates:  Fri 05/05/2023,  Sun 05/05/2024"},
                 {"Ctrl+5 L Tab F Ctrl+Enter", "Next dates:  Fri 31/03/2023,  Fri 28/04/2023"},
                 {"Ctrl+4 2 Tab Space Ctrl+Enter", "Next dates:  Wed 15/03/2023,  Wed 29/03/2023"},
                 {"Tab Tab Tab Tab 3 / 1 2 Alt+R Tab 1 5 Tab 3 0 Enter", "Next date:  Sun 03/12/2023", 30},
                 {"Ctrl+2 3 1 Tab End Ctrl+Enter", "Next dates:  Fri 31/03/2023,  Sun 30/04/2023"},
                 {"Ctrl+Tab Ctrl+Tab Alt+Y 9 Alt+R Alt+T 1 1 Enter", "Next dates:  Sat 09/03/2024"}};
    for (const auto& one : cases) {
        frmEvent form(stage->Windows().Create(IDD_EVENT), app, clsEvent(), EditMode::Whole);
        machine.dialogs.dates = {kToday};
        Open(form);
        Press(WM_CHAR, {'T', 'e', 'a'});
        PressKeys(one.keys);
        EXPECT_EQ("Tea", form.Event().Desc()) << one.keys;
        EXPECT_THAT(Text(IDC_lblPreview), StartsWith(one.dates));
        EXPECT_EQ(one.warning, form.Event().MinutesWarning()) << one.keys;
        EXPECT_THAT(Told(), IsEmpty());
    }
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

TEST_F(KeysTest, CtrlCCopiesTheSelectedRowsAndAButtonThatDoesNotFitThemIsGrey) {
    Add(*app.events, "caf\xC3\xA9", 1);
    OpenMainAndTick();
    main->ShowWindow();
    stage->Pump().ProcessPending();
    window->SetFocus(IDC_ListEvents);
    PressWithCtrl('C');
    ASSERT_TRUE(OpenClipboard(nullptr));
    const auto text = static_cast<const wchar_t*>(GlobalLock(GetClipboardData(CF_UNICODETEXT)));
    EXPECT_NE(nullptr, text ? std::wcsstr(text, L"\tcaf\xE9\t") : nullptr);
    CloseClipboard();
    const HWND toolbar = ControlOf(*window, IDC_Toolbar1);
    EXPECT_FALSE(SendMessageW(toolbar, TB_ISBUTTONENABLED, IDM_SKIP, 0));
    EXPECT_TRUE(SendMessageW(toolbar, TB_ISBUTTONENABLED, IDM_PUSH, 0));
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
