#include "model/Occurrences.h"

#include "base/RuntimeError.h"

namespace kaz {

Occurrences::Occurrences(const clsEvent& event, DateValue from, DateValue last, DateValue today)
    : rule_(event.Rule()),
      extras_(event.Extras()),
      day_(from),
      last_(last),
      today_(today),
      repeats_(event.Recurring()) {}

Occurrences::Occurrences(const clsEvent& event, DaySpan span, DateValue today)
    : Occurrences(event, event.DueDate(), span.last, today) {
    // In one step, however far it is: the rules give the same days from wherever one sets out.
    if (day_ < span.first && repeats_)
        MoveTo(span.first.Day());
    else
        ended_ = day_ < span.first || day_ > last_ || (repeats_ && IsLeftOut(day_));
    // A due date that is skipped itself, as another program may have left it.
    if (ended_ && repeats_ && day_ >= span.first && day_ <= last_) MoveTo(day_.Day() + 1);
}

Occurrences Occurrences::OfRule(const clsEvent& event, DaySpan span, DateValue today) {
    Occurrences days(event, DateValue(span.first.Day() - 1), span.last, today);
    days.MoveTo(span.first.Day());
    return days;
}

bool Occurrences::IsLeftOut(DateValue day) const { return extras_.Skips(day) || extras_.EndsBefore(day); }

void Occurrences::Step() {
    if (repeats_)
        MoveTo(day_.Day() + 1);
    else
        ended_ = true;
}

void Occurrences::MoveTo(std::int32_t reference) {
    ended_ = true;
    if (reference > last_.Day()) return;
    try {
        const auto next = NextOccurrence(rule_, extras_, DateValue(reference), today_);
        if (!next || next->dueDate <= day_ || next->dueDate > last_) return;
        day_ = next->dueDate;
        rule_.startDate = next->startDate;
        ended_ = false;
    } catch (const RuntimeError&) {
        // The days before are right.
    }
}

}  // namespace kaz
