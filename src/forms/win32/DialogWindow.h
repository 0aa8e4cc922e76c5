#pragma once

#include "forms/Window.h"
#include "forms/win32/DayGridView.h"
#include "forms/win32/DialogLayout.h"
#include "forms/win32/MessageHook.h"
#include "forms/win32/NoticeView.h"
#include "forms/win32/ReportListView.h"
#include "forms/win32/TabStripView.h"
#include "forms/win32/Toolbar.h"
#include "forms/win32/TrayIcon.h"
#include "win32/Handles.h"

#include <map>
#include <optional>

namespace kaz {

class ModalRun;

// A window over any dialog template of the module's resources. Around the template, by the template's id: a
// table of its layout (RCDATA, see DialogLayout) and its accelerators; by IDS_TOOLTIP + control: tooltips. To
// be used on the thread that made it.
class DialogWindow : public Window {
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

    void StartTimer(int timer, int milliseconds) override;
    void StopTimer(int timer) override;

    std::string Text(int control) const override;
    void SetText(int control, const std::string& text) override;
    bool Checked(int control) const override;
    void SetChecked(int control, bool checked) override;
    bool Enabled(int control) const override;
    void SetEnabled(int control, bool enabled) override;
    bool ControlVisible(int control) const override;
    void SetControlVisible(int control, bool visible) override;
    ControlPlace Place(int control) const override;
    void SetPlace(int control, const ControlPlace& place) override;
    int IdealWidth(int control) const override;
    void SetRoomAbove(int control, int height) override;
    void SetNotice(int control, const std::string& text, Tone tone) override;
    void SetControlsEnabled(bool enabled) override;
    void SetFocus(int control) override;
    void SelectText(int control) override;
    void LimitText(int control, int characters) override;
    void AskForResumes() override;

    void SetItems(int control, const std::vector<std::string>& items) override;
    std::vector<std::string> Items(int control) const override;
    int Selected(int control) const override;
    void Select(int control, int position) override;
    std::vector<int> Selection(int control) const override;
    void SetSelection(int control, const std::vector<int>& positions) override;

    ReportList& Report(int control) override;
    DayGrid& Grid(int control) override;
    void ShowMenu(int menu) override;
    void ShowMenuUnder(int toolbar, int command, int menu) override;

    void SetToolbar(int control, const std::vector<ToolButton>& buttons) override;
    void ShowTrayIcon(const std::string& tip, bool warns) override;
    void HideTrayIcon() override { tray_.reset(); }

private:
    static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wide, LPARAM narrow);
    INT_PTR OnMessage(UINT message, WPARAM wide, LPARAM narrow);
    INT_PTR Answer(LRESULT result);
    void OnCommand(int id, unsigned notification, HWND control);
    INT_PTR OnNotify(const NMHDR& header);
    INT_PTR OnControlColour(UINT message, WPARAM wide, LPARAM narrow);
    void OnContextMenu(HWND control, LPARAM point);
    void OnTray(UINT mouseMessage);
    void OnDpiChanged();
    void Raise(int control, Raised what, int detail = 0);

    HWND At(int control) const { return control == 0 ? window_ : GetDlgItem(window_, control); }
    void PrepareControls();
    void EnsureTooltips();
    void MoveFocusFrom(HWND control);
    void OnWheel(int delta);

    HINSTANCE module_;
    MessageHook hook_;
    HWND window_ = nullptr;
    HACCEL accelerators_ = nullptr;
    WindowListener* listener_ = nullptr;
    std::optional<DialogLayout> layout_;
    std::map<int, ReportListView> reports_;
    std::map<int, DayGridView> grids_;
    std::map<int, Toolbar> toolbars_;
    std::map<int, NoticeView> notices_;
    std::optional<TrayIcon> tray_;
    PowerNotification resumes_;
    std::optional<TabStripView> tabs_;
    ModalRun* modal_ = nullptr;
    bool work_ = false;
    bool placed_ = false;
    bool quiet_ = false;  // what the program itself puts into a control is not raised
    bool translating_ = false;
    bool hasTooltips_ = false;
    std::optional<WindowState> stateWhenShown_;
    int focusWhenActive_ = 0;
    std::vector<HWND> resting_;  // disabled while the program works
    HWND focusWhenEnabled_ = nullptr;
    int wheel_ = 0;  // turned, but less than a click
    POINT menuPoint_{};
};

}  // namespace kaz
