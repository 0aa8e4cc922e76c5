#pragma once

#include "ui/event/RecurrenceFrame.h"

namespace kaz {

// "Day X of Month": a weekday counted within the month, in one month or in every month.
class DayXFrame : public RecurrenceFrame {
public:
    explicit DayXFrame(Window& window) : RecurrenceFrame(window, RecurNthWeekday) {}

    void ShowNew(DateValue today) override;
    void Show(const clsEvent& event) override;
    void Take(clsEvent& event) const override;

private:
    ListControl lstDayNumber{window(), IDC_lstDayNumber};
    ListControl lstDayName{window(), IDC_lstDayName};
    ListControl lstMonths{window(), IDC_lstMonths};
};

}  // namespace kaz
