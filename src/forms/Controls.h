#pragma once

#include "base/Numbers.h"
#include "forms/ReportList.h"
#include "forms/Window.h"

namespace kaz {

// Typed names over a window's controls, so that forms read as sentences:
// txtSleep.Text(), chkExpired.Checked().

class Control {
public:
    Control(Window& window, int id) : window_(window), id_(id) {}

    int Id() const { return id_; }
    std::string Text() const { return window_.Text(id_); }
    void Text(const std::string& text) { window_.SetText(id_, text); }
    bool Enabled() const { return window_.Enabled(id_); }
    void Enabled(bool enabled) { window_.SetEnabled(id_, enabled); }
    bool Visible() const { return window_.ControlVisible(id_); }
    void Visible(bool visible) { window_.SetControlVisible(id_, visible); }
    void SetFocus() { window_.SetFocus(id_); }
    // Selects the whole text of a text box that has got the keyboard.
    void HighlightText() { window_.SelectText(id_); }
    // The most characters that the user can type into a text box.
    void MaxLength(int characters) { window_.LimitText(id_, characters); }

protected:
    Window& window_;
    int id_;
};

using Label = Control;
using Button = Control;
using TextBox = Control;

// A check box or an option button.
class CheckBox : public Control {
public:
    using Control::Control;
    bool Checked() const { return window_.Checked(id_); }
    void Checked(bool checked) { window_.SetChecked(id_, checked); }
};

// A list box, a combo box or a tab strip.
class ListControl : public Control {
public:
    using Control::Control;
    std::vector<std::string> Items() const { return window_.Items(id_); }
    void Items(const std::vector<std::string>& items) { window_.SetItems(id_, items); }
    int Selected() const { return window_.Selected(id_); }
    void Select(int position) { window_.Select(id_, position); }
    std::vector<int> Selection() const { return window_.Selection(id_); }
    void Selection(const std::vector<int>& positions) { window_.SetSelection(id_, positions); }
};

class TimerControl {
public:
    TimerControl(Window& window, int id) : window_(window), id_(id) {}
    void Start(int milliseconds) { window_.StartTimer(id_, milliseconds); }
    void Stop() { window_.StopTimer(id_); }

private:
    Window& window_;
    int id_;
};

}  // namespace kaz
