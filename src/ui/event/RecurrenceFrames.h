#pragma once

#include "base/LocaleData.h"
#include "forms/Controls.h"
#include "model/clsEvent.h"
#include "platform/Dialogs.h"
#include "resources/resource.h"

#include <optional>
#include <string>

namespace kaz {

// What stands under one tab of the event editor: the fields of one kind of recurrence.
class RecurrenceFrame {
public:
    // `page` counts from 0; for the six kinds of the files it is their number.
    RecurrenceFrame(Window& window, int page)
        : window_(window),
          first_(IDC_fraEvent + FRAME_CONTROLS * page) {}
    virtual ~RecurrenceFrame() = default;
    RecurrenceFrame(const RecurrenceFrame&) = delete;
    RecurrenceFrame& operator=(const RecurrenceFrame&) = delete;

    // Fills the lists and offers what suits `today`.
    virtual void ShowNew(DateValue today) = 0;
    virtual void Show(const clsEvent& event) = 0;
    // Copies the fields of this kind into the event; throws FieldFault.
    virtual void Take(clsEvent& event) const = 0;

    void Visible(bool visible) {
        for (int control = first_; control < first_ + FRAME_CONTROLS; ++control)
            window_.SetControlVisible(control, visible);
    }

protected:
    kaz::Window& window() const { return window_; }

private:
    Window& window_;
    int first_;
};

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
    // Of months, weeks or days.
    int MostPeriod() const { return mostPeriod_; }

private:
    void ShowStartDate();

    TextBox txtPeriod;
    Label lblStartDate;
    DateStyle style_;
    std::int16_t mostPeriod_;
    std::optional<DateValue> startDate_;  // nothing while the label shows the pattern
};

}  // namespace kaz
