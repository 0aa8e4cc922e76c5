#pragma once

#include "ui/event/RecurrenceFrame.h"

namespace kaz {

// "Day of week": a tick for each weekday, Monday first.
class WeekdaysFrame : public RecurrenceFrame {
public:
    explicit WeekdaysFrame(Window& window) : RecurrenceFrame(window, RecurWeekdays) {}

    void ShowNew(DateValue today) override;
    void Show(const clsEvent& event) override;
    void Take(clsEvent& event) const override;

private:
    void ShowMask(int weekDays);
};

}  // namespace kaz
