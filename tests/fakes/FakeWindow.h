#pragma once

#include "fakes/FakeDayGrid.h"
#include "fakes/FakeReportList.h"
#include "forms/Window.h"

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace kaz {

class FakeWindow;

// What a user would do in a modal window; it has to end it.
using ModalScript = std::function<void(FakeWindow&)>;

// The windows that are alive, in the order of their making, and what waits for them.
struct FakeDesktop {
    std::vector<FakeWindow*> windows;
    std::deque<ModalScript> modalScripts;
};

// A window without a screen: it keeps what it was told and plays the user's part. Setters raise nothing; only
// what the user does is raised.
class FakeWindow : public Window {
public:
    static constexpr int kLetterWidth = 6;

    explicit FakeWindow(int dialog = 0,
                        std::shared_ptr<FakeDesktop> desktop = std::make_shared<FakeDesktop>());
    ~FakeWindow() override;
    FakeWindow(const FakeWindow&) = delete;
    FakeWindow& operator=(const FakeWindow&) = delete;

    void SetListener(WindowListener* listener) override { listener_ = listener; }
    void Show(Activation activation) override;
    void Hide() override;
    bool IsVisible() const override { return visible_; }
    void BringToFront() override;
    void SetTopMost(bool value) override { topMost = value; }
    WindowState State() const override { return state; }
    void SetState(WindowState value) override { state = value; }
    WindowSize Size() const override { return size; }
    void SetSize(WindowSize value) override { size = value; }
    void SetInnerSize(WindowSize value) override { size = value; }
    WindowSize ScreenSize() const override { return screen; }
    void SayWhySaving(const std::string&) override {}
    // Runs the next modal script. Throws InternalError when there is none or when it leaves the window open.
    int ShowModal() override;
    // The first result counts.
    void EndModal(int result) override {
        if (!modalResult_) modalResult_ = result;
    }

    void StartTimer(int timer, int milliseconds) override;
    void StopTimer(int timer) override { timers_.erase(timer); }

    std::string Text(int control) const override;
    void SetText(int control, const std::string& text) override;
    bool Checked(int control) const override { return At(control).checked; }
    void SetChecked(int control, bool checked) override { controls_[control].checked = checked; }
    bool Enabled(int control) const override {
        return (control == 0 || controlsEnabled_) && At(control).enabled;
    }
    void SetEnabled(int control, bool enabled) override { controls_[control].enabled = enabled; }
    bool ControlVisible(int control) const override { return At(control).visible; }
    void SetControlVisible(int control, bool visible) override { controls_[control].visible = visible; }
    ControlPlace Place(int control) const override { return At(control).place; }
    void SetPlace(int control, const ControlPlace& place) override { controls_[control].place = place; }
    int IdealWidth(int control) const override {
        return static_cast<int>((At(control).text.size() + 4) * kLetterWidth);
    }
    void SetRoomAbove(int control, int height) override { roomAbove[control] = height; }
    void SetNotice(int control, const std::string& text, Tone tone) override {
        SetText(control, text);
        noticeTone = tone;
    }
    void SetControlsEnabled(bool enabled) override {
        controlsEnabled_ = enabled;
        if (!enabled) ++timesDisabled;
    }
    void SetFocus(int control) override { focus = control; }
    int Focused() const override { return focus; }
    bool SetHotKey(const std::string& keys) override {
        hotKey = keys == takenHotKey ? "" : keys;
        return keys != takenHotKey || keys.empty();
    }
    void SelectText(int control) override { textSelected_ = control == focus; }
    void LimitText(int control, int characters) override { controls_[control].limit = characters; }
    void SetNumberRange(int control, int least, int most) override {
        controls_[control].range = {least, most};
    }

    void SetItems(int control, const std::vector<std::string>& items) override;
    std::vector<std::string> Items(int control) const override;
    int Selected(int control) const override;
    void Select(int control, int position) override;
    std::vector<int> Selection(int control) const override { return At(control).selection; }
    void SetSelection(int control, const std::vector<int>& positions) override;

    FakeReportList& Report(int control) override { return reports_[control]; }
    FakeDayGrid& Grid(int control) override { return grids_[control]; }
    void ShowMenu(int menu) override { menus.push_back(menu); }
    void SetCommand(int command, const std::string& text, bool enabled) override {
        commands[command] = enabled ? text : "(" + text + ")";
    }
    void MarkCommand(int command, bool isMarked) override { marked[command] = isMarked; }
    void ShowMenuUnder(int, int, int menu) override { menus.push_back(menu); }
    void SetToolbar(int, const std::vector<ToolButton>& buttons) override { toolbar = buttons; }
    void SetToolButton(int, int command, const std::string& tooltip, bool enabled) override {
        tools[command] = enabled ? tooltip : "(" + tooltip + ")";
    }
    void CopyText(const std::string& text) override { clipboard = text; }
    void ShowTrayIcon(const std::string& tip, int icon) override;
    void HideTrayIcon() override { trayTip.reset(); }
    void ShowBalloon(const std::string&, const std::string& text) override { balloons.push_back(text); }
    void AskForResumes() override { asksForResumes = true; }

    // What the user, the system or a timer does.
    void Raise(int control, Raised what, int detail = 0);
    // Nothing happens on a control that is disabled or hidden.
    void Click(int control);
    void Type(int control, const std::string& text);
    // Puts the caret before the text.
    void ClickInto(int control);
    void TypeAtCaret(char letter);
    // The arrow keys, in the text box that has the keyboard: false when it is no number box.
    bool Count(int by);
    void Toggle(int control);
    // Picks one of a group of option buttons.
    void Pick(int control, const std::vector<int>& group);
    void Choose(int control, int position);
    void CloseBox() { Raise(0, Raised::CloseBox); }
    // False when the timer is not running.
    bool Tick(int timer, int times = 1);

    int Dialog() const { return dialog_; }
    // The interval of a running timer in milliseconds, 0 when it is not running.
    int Interval(int timer) const;

    // What it was told, in order: "Show", "Show activated", "BringToFront", "Hide", "ShowModal".
    std::vector<std::string> acts;
    int broughtToFront = 0;
    bool topMost = false;
    bool asksForResumes = false;
    int focus = 0;
    int timesDisabled = 0;         // by SetControlsEnabled
    std::map<int, int> roomAbove;  // by control
    Tone noticeTone = Tone::Note;
    std::vector<int> menus;
    std::map<int, std::string> commands;  // as the menus name them; in brackets those that cannot be chosen
    std::map<int, bool> marked;
    std::vector<ToolButton> toolbar;
    std::map<int, std::string> tools;  // the tooltips of its buttons; in brackets those that are grey
    std::string clipboard;
    std::optional<std::string> trayTip;  // while the icon is shown
    int trayIcon = 0;
    std::size_t windowsBeforeTray = 0;  // how many there were when the icon was first shown
    std::vector<std::string> balloons;
    bool trayRefuses = false;
    std::string hotKey;
    std::string takenHotKey;  // by another program
    WindowState state = WindowState::Normal;
    WindowSize size{800, 600};
    WindowSize screen{1920, 1080};

private:
    friend class FakeWindowFactory;
    struct ControlState {
        std::string text;
        bool checked = false;
        bool enabled = true;
        bool visible = true;
        ControlPlace place;
        std::vector<std::string> items;
        std::vector<int> selection;
        std::optional<int> limit;
        std::optional<std::pair<int, int>> range;
    };
    struct TimerState {
        int interval = 0;
        int left = 0;
    };
    const ControlState& At(int control) const;

    int dialog_;
    std::shared_ptr<FakeDesktop> desktop_;
    WindowListener* listener_ = nullptr;
    bool visible_ = false;
    bool work_ = false;
    std::optional<int> modalResult_;
    std::map<int, ControlState> controls_;
    std::map<int, FakeReportList> reports_;
    std::map<int, FakeDayGrid> grids_;
    bool controlsEnabled_ = true;
    bool textSelected_ = false;  // of the control that has the keyboard
    std::map<int, TimerState> timers_;
};

}  // namespace kaz
