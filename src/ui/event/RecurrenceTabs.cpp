#include "ui/event/RecurrenceTabs.h"

namespace kaz {

RecurrenceTabs::RecurrenceTabs(Window& window, const DateStyle& style)
    : months(window, RecurEveryNMonths, IDC_txtMonthlyPeriod, IDC_lblMonthlyStartDate, style),
      weeks(window, RecurEveryNWeeks, IDC_txtWeeklyPeriod, IDC_lblWeeklyStartDate, style),
      days(window, RecurEveryNDays, IDC_txtDailyPeriod, IDC_lblDailyStartDate, style),
      TabStrip1(window, IDC_TabStrip1),
      weekdays_(window),
      monthly_(window, style.locale),
      dayX_(window),
      fraEvent_{&weekdays_, &monthly_, &months, &weeks, &dayX_, &days} {}

void RecurrenceTabs::ShowNew(DateValue today) {
    TabStrip1.Items({"Day of week", "Monthly", "Every X Months", "Weekly", "Day X of Month", "Every X days"});
    TabStrip1.Select(RecurWeekdays);
    for (RecurrenceFrame* frame : fraEvent_)
        frame->ShowNew(today);
}

void RecurrenceTabs::Show(const clsEvent& event) {
    RecurrenceFrame* frame = FrameOf(event.RecurrenceType());
    TabStrip1.Select(frame ? event.RecurrenceType() : -1);
    if (frame) frame->Show(event);
}

void RecurrenceTabs::Take(clsEvent& event) const {
    const RecurrenceFrame* frame = FrameOf(TabStrip1.Selected());
    if (!frame) return;
    event.RecurrenceType(TabStrip1.Selected());
    frame->Take(event);
}

void RecurrenceTabs::ShowFrame() {
    const RecurrenceFrame* chosen = FrameOf(TabStrip1.Selected());
    // The old one goes first, so that two of them never stand over each other.
    for (RecurrenceFrame* frame : fraEvent_)
        if (frame != chosen) frame->Visible(false);
    for (RecurrenceFrame* frame : fraEvent_)
        if (frame == chosen) frame->Visible(true);
}

RecurrenceFrame* RecurrenceTabs::FrameOf(std::int32_t type) const {
    return type >= RecurWeekdays && type <= RecurEveryNDays ? fraEvent_[static_cast<std::size_t>(type)]
                                                            : nullptr;
}

}  // namespace kaz
