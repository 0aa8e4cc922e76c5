#pragma once

#include "ui/event/OnceFrame.h"
#include "ui/event/RecurrenceFrames.h"

#include <array>

namespace kaz {

// The tab strip of the event editor and the frames under it: one tab for each kind of recurrence, in the
// order of their numbers, and behind them one for what happens once.
class RecurrenceTabs {
public:
    static constexpr int kPages = 7;

    RecurrenceTabs(Window& window, const DateStyle& style);

    void ShowNew(DateValue today);
    // An event of an unknown kind has no tab, and keeps its kind until the user chooses one.
    void Show(const clsEvent& event);
    // Copies the kind and its fields into the event; throws FieldFault.
    void Take(clsEvent& event) const;
    // Shows the frame of the chosen tab and hides the others.
    void ShowFrame();

    bool IsOnce() const { return TabStrip1.Selected() == OnceFrame::kPage; }
    // Chooses another tab, counted from 0.
    void TurnTo(int page) { TabStrip1.Select(page); }
    // The next one, or with -1 the one before, round and round.
    void TurnBy(int step);
    // To the first field of the chosen tab.
    void SetFocus();
    // The field of its day; 0 for a tab without one.
    int DayField() const;

    IntervalFrame months;
    IntervalFrame weeks;
    IntervalFrame days;
    OnceFrame once;

private:
    RecurrenceFrame* FrameOf(int page) const;

    kaz::Window& window_;
    ListControl TabStrip1;
    WeekdaysFrame weekdays_;
    MonthlyFrame monthly_;
    DayXFrame dayX_;
    std::array<RecurrenceFrame*, kPages> fraEvent_;
};

}  // namespace kaz
