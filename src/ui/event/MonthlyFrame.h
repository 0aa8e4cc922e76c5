#pragma once

#include "base/LocaleData.h"
#include "ui/event/RecurrenceFrame.h"

namespace kaz {

// "Monthly": a day of the month, in one month or in every month.
class MonthlyFrame : public RecurrenceFrame {
public:
    MonthlyFrame(Window& window, const LocaleData& locale)
        : RecurrenceFrame(window, RecurDayOfMonth),
          locale_(locale) {}

    void ShowNew(DateValue today) override;
    void Show(const clsEvent& event) override;
    void Take(clsEvent& event) const override;

private:
    const LocaleData& locale_;
    TextBox txtDayOfMonth{window(), IDC_txtDayOfMonth};
    ListControl lstMonthNames{window(), IDC_lstMonthNames};
};

}  // namespace kaz
