#include "ui/event/OnceFrame.h"

#include "base/DateText.h"
#include "base/DayInShort.h"
#include "ui/fields/FieldFault.h"
#include "ui/fields/FieldReading.h"

#include <algorithm>

namespace kaz {

bool OnceFrame::Fits(const clsEvent& event) {
    return event.RecurrenceType() == RecurEveryNDays && event.Period() == 1 && !event.Recurring();
}

void OnceFrame::ShowNew(DateValue today) {
    today_ = today;
    ShowDay(today);
}

// One that was put off has its due date behind the day on which it started.
void OnceFrame::Show(const clsEvent& event) { ShowDay(std::max(event.StartDate(), event.DueDate())); }

void OnceFrame::ShowDay(DateValue day) { txtOnceDate.Text(FormatDate(day, style_.pattern, style_.locale)); }

std::optional<DateValue> OnceFrame::Day() const {
    return DayInShort(TypedText(txtOnceDate), style_.pattern, style_.locale, today_);
}

void OnceFrame::Take(clsEvent& event) const {
    const auto day = Day();
    if (!day)
        throw FieldFault(txtOnceDate.Id(), "Please enter the day as a date, such as " +
                                               FormatDate(today_, style_.pattern, style_.locale));
    event.RecurrenceType(RecurEveryNDays);
    event.Period(1);
    event.StartDate(*day);
}

void OnceFrame::PickDay(Dialogs& dialogs) {
    CompleteDay();
    std::optional<DateValue> typed;
    try {
        typed = Day();
    } catch (const FieldFault&) {
        // Another day takes its place.
    }
    if (const auto chosen = dialogs.PickDate("Enter the day of this event", typed.value_or(today_)))
        ShowDay(chosen->DateOnly());
}

void OnceFrame::CompleteDay() {
    try {
        if (const auto day = Day()) ShowDay(*day);
    } catch (const FieldFault&) {
        // Saving will tell.
    }
}

}  // namespace kaz
