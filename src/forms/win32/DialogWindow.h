#pragma once

#include "forms/win32/DialogControls.h"
#include "forms/win32/DialogKeys.h"
#include "forms/win32/HotKey.h"
#include "forms/win32/MessageHook.h"
#include "forms/win32/TrayIcon.h"
#include "win32/Handles.h"

#include <map>
#include <optional>
#include <string>
#include <utility>

namespace kaz {

class ModalRun;

// A window over any dialog template of the module's resources. Around the template, by the template's id: a
// table of its layout (RCDATA, see DialogLayout) and its accelerators; by IDS_TOOLTIP + control: tooltips. To
// be used on the thread that made it.
class DialogWindow final : public DialogControls {
public:
    // Throws InternalError when the window cannot be made.
    DialogWindow(HINSTANCE module, int dialog);
    ~DialogWindow() override;
    DialogWindow(const DialogWindow&) = delete;
    DialogWindow& operator=(const DialogWindow&) = delete;

    // The dialog window behind a handle; null when it is none of ours.
    static DialogWindow* Of(HWND window);

    HWND Handle() const { return window_; }
    // Whether the user can turn to it to work in it: it was opened for that, rather than having come up by
    // itself, or waits in the tray.
    bool IsAtHand() const { return tray_ || (work_ && IsVisible()); }
    // Uses up a key message that navigates or is an accelerator.
    bool TranslateKey(MSG& message);

    void SetListener(WindowListener* listener) override { listener_ = listener; }
    void Show(Activation activation) override;
    void Hide() override;
    bool IsVisible() const override;
    void BringToFront() override;
    void SetTopMost(bool topMost) override;
    WindowState State() const override;
    void SetState(WindowState state) override;
    WindowSize Size() const override;
    void SetSize(WindowSize size) override;
    void SetInnerSize(WindowSize size) override;
    WindowSize ScreenSize() const override;
    void SayWhySaving(const std::string& reason) override;
    int ShowModal() override;
    void EndModal(int result) override;
    void SelectText(int control) override;

    void StartTimer(int timer, int milliseconds) override;
    void StopTimer(int timer) override;

    void AskForResumes() override;
    bool SetHotKey(const std::string& keys) override { return hotKey_.Set(window_, keys); }

    void ShowMenu(int menu) override;
    void SetCommand(int command, const std::string& text, bool enabled) override {
        commands_[command] = {text, enabled};
    }
    void MarkCommand(int command, bool marked) override { marked_[command] = marked; }
    void ShowMenuUnder(int control, int command, int menu) override;

    void ShowTrayIcon(const std::string& tip, int icon) override;
    void HideTrayIcon() override { tray_.reset(); }
    void ShowBalloon(const std::string& title, const std::string& text) override;

private:
    static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void OnCommand(int id, unsigned notification, HWND control);
    void OnContextMenu(HWND control, LPARAM point);
    void OnTray(UINT mouseMessage);
    void OnWheel(int delta);
    void EnsureTooltips();
    void Raise(int control, Raised what, int detail = 0) override;

    MessageHook hook_;
    DialogKeys keys_;
    WindowListener* listener_ = nullptr;
    std::optional<TrayIcon> tray_;
    HotKey hotKey_;
    PowerNotification resumes_;
    ModalRun* modal_ = nullptr;
    bool work_ = false;
    bool placed_ = false;
    bool hasTooltips_ = false;
    std::map<int, std::pair<std::string, bool>> commands_;
    std::map<int, bool> marked_;
    std::optional<WindowState> stateWhenShown_;
    int wheel_ = 0;  // turned, but less than a click
    POINT menuPoint_{};
};

}  // namespace kaz
