#include "fakes/FakeWindow.h"

#include "base/RuntimeError.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <utility>

namespace kaz {

FakeWindow::FakeWindow(int dialog, std::shared_ptr<FakeDesktop> desktop)
    : dialog_(dialog),
      desktop_(std::move(desktop)) {
    desktop_->windows.push_back(this);
}

FakeWindow::~FakeWindow() { std::erase(desktop_->windows, this); }

void FakeWindow::Show(Activation activation) {
    visible_ = true;
    work_ = activation == Activation::TakeFocus;
    acts.push_back(activation == Activation::TakeFocus ? "Show activated" : "Show");
}

void FakeWindow::Hide() {
    visible_ = false;
    acts.push_back("Hide");
}

void FakeWindow::BringToFront() {
    ++broughtToFront;
    acts.push_back("BringToFront");
}

int FakeWindow::ShowModal() {
    acts.push_back("ShowModal");
    if (desktop_->modalScripts.empty())
        throw RuntimeError(ErrorNumber::InternalError, "A modal window without a script");
    const ModalScript script = std::move(desktop_->modalScripts.front());
    desktop_->modalScripts.pop_front();
    modalResult_.reset();
    visible_ = true;
    // The windows that the user works in wait meanwhile; reminders do not.
    std::vector<FakeWindow*> waiting;
    for (FakeWindow* other : desktop_->windows)
        if (other != this && other->visible_ && other->work_ && other->Enabled(0)) waiting.push_back(other);
    for (FakeWindow* other : waiting)
        other->SetEnabled(0, false);
    script(*this);
    for (FakeWindow* other : waiting)
        if (std::ranges::find(desktop_->windows, other) != desktop_->windows.end())
            other->SetEnabled(0, true);
    visible_ = false;
    if (!modalResult_)
        throw RuntimeError(ErrorNumber::InternalError, "The script left the modal window open");
    return *modalResult_;
}

void FakeWindow::StartTimer(int timer, int milliseconds) {
    const int interval = std::max(milliseconds, 1);
    timers_[timer] = {interval, interval};
}

std::string FakeWindow::Text(int control) const {
    const ControlState& at = At(control);
    return at.text.empty() && at.selection.size() == 1 && !at.items.empty()
               ? at.items[static_cast<std::size_t>(at.selection.front())]
               : at.text;
}

void FakeWindow::SetText(int control, const std::string& text) { controls_[control].text = text; }

void FakeWindow::SetItems(int control, const std::vector<std::string>& items) {
    ControlState& at = controls_[control];
    at.items = items;
    at.selection.clear();
}

std::vector<std::string> FakeWindow::Items(int control) const {
    const auto report = reports_.find(control);
    return report == reports_.end() ? At(control).items : report->second.Column(0);
}

int FakeWindow::Selected(int control) const {
    const ControlState& at = At(control);
    return at.selection.empty() ? -1 : at.selection.front();
}

void FakeWindow::Select(int control, int position) {
    SetSelection(control, position < 0 ? std::vector<int>{} : std::vector<int>{position});
}

void FakeWindow::SetSelection(int control, const std::vector<int>& positions) {
    ControlState& at = controls_[control];
    at.selection.clear();
    for (const int position : positions)
        if (position >= 0 && std::cmp_less(position, at.items.size())) at.selection.push_back(position);
}

void FakeWindow::ShowTrayIcon(const std::string& tip, int icon) {
    if (trayRefuses) throw RuntimeError(ErrorNumber::InternalError, "The tray takes no icon");
    if (!trayTip) windowsBeforeTray = desktop_->windows.size();
    trayTip = tip;
    trayIcon = icon;
}

void FakeWindow::Raise(int control, Raised what, int detail) {
    if (listener_) listener_->OnRaised(control, what, detail);
}

void FakeWindow::Click(int control) {
    if (At(control).enabled && At(control).visible) Raise(control, Raised::Click);
}

void FakeWindow::Type(int control, const std::string& text) {
    const auto limit = static_cast<std::size_t>(At(control).limit.value_or(INT_MAX));
    SetText(control, text.substr(0, limit));
    Raise(control, Raised::Change);
}

void FakeWindow::ClickInto(int control) {
    textSelected_ = false;
    const int before = std::exchange(focus, control);
    if (before == control) return;
    Raise(before, Raised::Leave);
    Raise(control, Raised::Focus);
}

void FakeWindow::TypeAtCaret(char letter) {
    const std::string rest = std::exchange(textSelected_, false) ? std::string() : Text(focus);
    Type(focus, letter + rest);
}

bool FakeWindow::Count(int by) {
    const auto& range = At(focus).range;
    if (!range) return false;
    const int number = std::atoi(Text(focus).c_str()) + by;
    Type(focus, std::to_string(std::clamp(number, range->first, range->second)));
    return true;
}

void FakeWindow::Toggle(int control) {
    if (!At(control).enabled || !At(control).visible) return;
    SetChecked(control, !Checked(control));
    Raise(control, Raised::Click);
}

void FakeWindow::Pick(int control, const std::vector<int>& group) {
    if (!At(control).enabled || !At(control).visible) return;
    for (const int option : group)
        SetChecked(option, option == control);
    Raise(control, Raised::Click);
}

void FakeWindow::Choose(int control, int position) {
    Select(control, position);
    Raise(control, Raised::Select);
}

bool FakeWindow::Tick(int timer, int times) {
    for (; times > 0; --times) {
        const auto running = timers_.find(timer);
        if (running == timers_.end()) return false;
        running->second.left = running->second.interval;
        Raise(timer, Raised::Timer);
    }
    return true;
}

int FakeWindow::Interval(int timer) const {
    const auto running = timers_.find(timer);
    return running == timers_.end() ? 0 : running->second.interval;
}

const FakeWindow::ControlState& FakeWindow::At(int control) const {
    static const ControlState kUntouched;
    const auto found = controls_.find(control);
    return found == controls_.end() ? kUntouched : found->second;
}

}  // namespace kaz
