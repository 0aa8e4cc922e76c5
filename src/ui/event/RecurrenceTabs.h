#pragma once

#include "ui/event/RecurrenceFrames.h"

#include <array>

namespace kaz {

// The tab strip of the event editor, one tab for each kind of recurrence in the order of their numbers, and
// the frames under it.
class RecurrenceTabs {
public:
    RecurrenceTabs(Window& window, const DateStyle& style);

    void ShowNew(DateValue today);
    // An event of an unknown kind has no tab, and keeps its kind until the user chooses one.
    void Show(const clsEvent& event);
    // Copies the kind and its fields into the event; throws FieldFault.
    void Take(clsEvent& event) const;
    // Shows the frame of the chosen tab and hides the others.
    void ShowFrame();

    IntervalFrame months;
    IntervalFrame weeks;
    IntervalFrame days;

private:
    RecurrenceFrame* FrameOf(std::int32_t type) const;

    ListControl TabStrip1;
    WeekdaysFrame weekdays_;
    MonthlyFrame monthly_;
    DayXFrame dayX_;
    std::array<RecurrenceFrame*, 6> fraEvent_;
};

}  // namespace kaz
