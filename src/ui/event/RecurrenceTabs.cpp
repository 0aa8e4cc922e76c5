#include "ui/event/RecurrenceTabs.h"

#include <algorithm>

namespace kaz {

RecurrenceTabs::RecurrenceTabs(Window& window, const DateStyle& style)
    : months(window, RecurEveryNMonths, IDC_txtMonthlyPeriod, IDC_lblMonthlyStartDate, style),
      weeks(window, RecurEveryNWeeks, IDC_txtWeeklyPeriod, IDC_lblWeeklyStartDate, style),
      days(window, RecurEveryNDays, IDC_txtDailyPeriod, IDC_lblDailyStartDate, style),
      once(window, style),
      window_(window),
      TabStrip1(window, IDC_TabStrip1),
      weekdays_(window),
      monthly_(window, style.locale),
      dayX_(window),
      fraEvent_{&weekdays_, &monthly_, &months, &weeks, &dayX_, &days, &once} {}

void RecurrenceTabs::ShowNew(DateValue today) {
    TabStrip1.Items({"Day of week", "Monthly", "Every X Months", "Weekly", "Day X of Month", "Every X days",
                     "Once, on a date"});
    TurnTo(OnceFrame::kPage);
    for (RecurrenceFrame* frame : fraEvent_)
        frame->ShowNew(today);
}

void RecurrenceTabs::Show(const clsEvent& event) {
    const int page = OnceFrame::Fits(event)                      ? OnceFrame::kPage
                     : event.RecurrenceType() < OnceFrame::kPage ? event.RecurrenceType()
                                                                 : -1;
    RecurrenceFrame* frame = FrameOf(page);
    TabStrip1.Select(frame ? page : -1);
    if (frame) frame->Show(event);
}

void RecurrenceTabs::Take(clsEvent& event) const {
    const RecurrenceFrame* frame = FrameOf(TabStrip1.Selected());
    if (!frame) return;
    if (!IsOnce()) event.RecurrenceType(TabStrip1.Selected());
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

void RecurrenceTabs::TurnBy(int step) {
    TurnTo((std::max(TabStrip1.Selected(), 0) + step + kPages) % kPages);
}

void RecurrenceTabs::SetFocus() {
    static constexpr std::array<int, kPages> kFirst{
        IDC_chkDay,       IDC_txtDayOfMonth,  IDC_txtMonthlyPeriod, IDC_txtWeeklyPeriod,
        IDC_lstDayNumber, IDC_txtDailyPeriod, IDC_txtOnceDate};
    const int page = TabStrip1.Selected();
    if (FrameOf(page)) window_.SetFocus(kFirst[static_cast<std::size_t>(page)]);
}

int RecurrenceTabs::DayField() const {
    switch (TabStrip1.Selected()) {
    case RecurEveryNMonths: return IDC_lblMonthlyStartDate;
    case RecurEveryNWeeks: return IDC_lblWeeklyStartDate;
    case RecurEveryNDays: return IDC_lblDailyStartDate;
    case OnceFrame::kPage: return IDC_txtOnceDate;
    default: return 0;
    }
}

RecurrenceFrame* RecurrenceTabs::FrameOf(int page) const {
    return page >= 0 && page < kPages ? fraEvent_[static_cast<std::size_t>(page)] : nullptr;
}

}  // namespace kaz
