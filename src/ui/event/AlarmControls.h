#pragma once

#include "base/LocaleData.h"
#include "forms/Controls.h"
#include "model/clsEvent.h"
#include "resources/resource.h"

#include <string>

namespace kaz {

// The part of the event editor that asks whether and when an alarm sounds.
class AlarmControls {
public:
    AlarmControls(Window& window, const LocaleData& locale) : window_(window), locale_(locale) {}

    // What a new event is offered: no alarm, and the next full hour should one be wanted.
    void ShowNew(DateValue now);
    // One that has no alarm and no time is offered what a new one is.
    void Show(const clsEvent& event, DateValue now);
    // Copies the fields into the event; throws FieldFault.
    void Take(clsEvent& event) const;

    bool Ticked() const { return chkTimed.Checked(); }
    std::string TimeText() const { return txtTime.Text(); }
    // Enables what depends on the tick.
    void FollowTick();
    // Says when the alarm will sound, as far as time and minutes are typed.
    void ShowAdvice();
    void FillEmpty();
    // Writes out a time in a short form; what is none stays as it is typed.
    void CompleteTime();

private:
    // Throws FieldFault.
    DateValue Time() const;
    std::int16_t Minutes() const;

    Window& window_;
    const LocaleData& locale_;
    CheckBox chkTimed{window_, IDC_chkTimed};
    Label lblTime{window_, IDC_lblTime};
    TextBox txtTime{window_, IDC_txtTime};
    Label lblMinutesWarning{window_, IDC_lblMinutesWarning};
    TextBox txtMinutesWarning{window_, IDC_txtMinutesWarning};
    Label lblMinutesUnit{window_, IDC_lblMinutesUnit};
    Label lblAlarmAdvice{window_, IDC_lblAlarmAdvice};
};

}  // namespace kaz
