#pragma once

#include "ui/event/RecurrenceFrames.h"

namespace kaz {

// "Once, on a date": a single day. The files know it as every day from that one on, shown once.
class OnceFrame : public RecurrenceFrame {
public:
    static constexpr int kPage = 6;
    static bool Fits(const clsEvent& event);

    OnceFrame(Window& window, DateStyle style) : RecurrenceFrame(window, kPage), style_(std::move(style)) {}

    void ShowNew(DateValue today) override;
    void Show(const clsEvent& event) override;
    void Take(clsEvent& event) const override;
    // Asks for the day, beginning at the one that is typed, or else at today.
    void PickDay(Dialogs& dialogs);
    // Writes out a day that is typed in short; what is none stays as it is.
    void CompleteDay();

private:
    std::optional<DateValue> Day() const;
    void ShowDay(DateValue day);

    TextBox txtOnceDate{window(), IDC_txtOnceDate};
    DateStyle style_;
    DateValue today_;
};

}  // namespace kaz
