#include "ui/event/AlarmControls.h"

#include "base/DateText.h"
#include "base/Numbers.h"
#include "base/Text.h"
#include "model/AlarmTime.h"
#include "ui/fields/FieldFault.h"
#include "ui/fields/FieldReading.h"

#include <string>

namespace kaz {

namespace {
constexpr const char* kTimeMessage = "Please specify a time in the range of 00:00 to 23:59";
constexpr const char* kMaximumMessage = "Maximum warning is 60 minutes";
constexpr const char* kMinutesMessage = "Please enter the minutes of warning as a whole number from 0 to 60";
}  // namespace

void AlarmControls::ShowNew(DateValue now) {
    const int hour = (now.MinuteOfDay() / 60 + 1) % 24;
    chkTimed.Checked(false);
    txtTime.Text(FormatDate(DateValue::FromTime(hour, 0), "HH:MM", locale_));
    txtMinutesWarning.Text("0");
}

void AlarmControls::Show(const clsEvent& event, DateValue now) {
    ShowNew(now);
    chkTimed.Checked(event.AlarmSet());
    if (event.AlarmSet() || event.DueTime().SecondOfDay() != 0)
        txtTime.Text(FormatDate(event.DueTime(), "HH:MM", locale_));
    txtMinutesWarning.Text(std::to_string(event.MinutesWarning()));
}

DateValue AlarmControls::Time() const {
    if (const auto time = TypedTime(TypedText(txtTime))) return *time;
    throw FieldFault(txtTime.Id(), kTimeMessage);
}

std::int16_t AlarmControls::Minutes() const {
    const std::string text = TypedText(txtMinutesWarning);
    if (Trim(text).empty()) return 0;
    if (LeadingNumber(text) > kMostMinutesWarning) throw FieldFault(txtMinutesWarning.Id(), kMaximumMessage);
    return TypedNumber(txtMinutesWarning, 0, kMostMinutesWarning, {kMinutesMessage, kMinutesMessage});
}

void AlarmControls::Take(clsEvent& event) const {
    event.AlarmSet(chkTimed.Checked());
    if (!chkTimed.Checked()) return;
    const DateValue time = Time();
    const std::int16_t minutes = Minutes();
    event.DueTime(time);
    event.MinutesWarning(minutes);
    event.AlarmTime(AlarmBefore(time, minutes).time);
}

void AlarmControls::FollowTick() {
    const bool ticked = chkTimed.Checked();
    for (Control* control : {&lblTime, &txtTime, &lblMinutesWarning, &txtMinutesWarning, &lblMinutesUnit})
        control->Enabled(ticked);
}

void AlarmControls::ShowAdvice() {
    std::string advice;
    try {
        if (chkTimed.Checked()) {
            const DateValue moment = AlarmBefore(Time(), Minutes()).time;
            advice = "(Alarm will sound at " + FormatDate(moment, "H:MMam/pm", locale_) + ")";
        }
    } catch (const FieldFault&) {
        advice.clear();  // the user is still typing
    }
    lblAlarmAdvice.Text(advice);
}

void AlarmControls::CompleteTime() {
    try {
        if (const auto time = TimeInShort(TypedText(txtTime)))
            txtTime.Text(FormatDate(*time, "HH:MM", locale_));
    } catch (const FieldFault&) {
        // Saving will tell.
    }
}

void AlarmControls::FillEmpty() {
    if (Trim(TypedText(txtMinutesWarning)).empty()) txtMinutesWarning.Text("0");
}

}  // namespace kaz
