#pragma once

#include "base/LocaleData.h"
#include "platform/Dialogs.h"
#include "ui/event/RecurrenceFrame.h"

#include <optional>
#include <string>

namespace kaz {

// How start dates are shown, by the setting "DateStyle".
struct DateStyle {
    std::string pattern;
    const LocaleData& locale;
};

// "Every X Months", "Weekly" and "Every X days": a number of them from a starting date.
class IntervalFrame : public RecurrenceFrame {
public:
    // `period` and `startDate` are the controls of the two fields.
    IntervalFrame(Window& window, int type, int period, int startDate, DateStyle style);

    void ShowNew(DateValue today) override;
    void Show(const clsEvent& event) override;
    void Take(clsEvent& event) const override;
    // Asks for another starting date, beginning at the one that is there, or else at `today`.
    void PickStartDate(Dialogs& dialogs, DateValue today);

private:
    void ShowStartDate();

    TextBox txtPeriod;
    Label lblStartDate;
    DateStyle style_;
    std::int16_t mostPeriod_;
    std::optional<DateValue> startDate_;  // nothing while the label shows the pattern
};

}  // namespace kaz
