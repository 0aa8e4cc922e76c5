#include "ui/event/RecurrenceFrames.h"

#include "base/DateText.h"
#include "ui/fields/FieldFault.h"
#include "ui/fields/FieldReading.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace kaz {

namespace {

constexpr int kLast = 5;

std::int16_t PositionIn(const ListControl& list, const char* message) {
    const int position = list.Selected();
    if (position < 0) throw FieldFault(list.Id(), message);
    return static_cast<std::int16_t>(position);
}

// The bit of a weekday counted from Monday = 0; the lowest bit of the mask is not in use.
constexpr int BitOf(int day) { return 2 << day; }

}  // namespace

void DayXFrame::ShowNew(DateValue today) {
    lstDayNumber.Items({"1st", "2nd", "3rd", "4th", "Last"});
    lstDayName.Items({"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"});
    lstMonths.Items({"Every Month", "January", "February", "March", "April", "May", "June", "July", "August",
                     "September", "October", "November", "December"});
    // A fifth such weekday is the month's last.
    lstDayNumber.Select((today.Civil().day - 1) / 7);
    lstDayName.Select(today.WeekdayFromSunday().number - 1);
    lstMonths.Select(kEveryMonthByWeekday);
}

void DayXFrame::Show(const clsEvent& event) {
    lstDayNumber.Select(std::min<int>(event.Daynumber(), kLast) - 1);
    lstDayName.Select(event.DayOfWeek() - 1);
    lstMonths.Select(event.MonthNumber());
}

void DayXFrame::Take(clsEvent& event) const {
    event.Daynumber(static_cast<std::int16_t>(PositionIn(lstDayNumber, "Please choose a day number") + 1));
    event.DayOfWeek(static_cast<std::int16_t>(PositionIn(lstDayName, "Please choose a weekday") + 1));
    event.MonthNumber(PositionIn(lstMonths, "Please choose a month"));
}

void MonthlyFrame::ShowNew(DateValue today) {
    const CivilDate civil = today.Civil();
    std::vector<std::string> names;
    for (int month = 1; month <= 12; ++month)
        names.push_back(FormatDate(DateValue::FromCivil(civil.year, month, 1), "MMMM", locale_));
    names.emplace_back("Every Month");
    lstMonthNames.Items(names);
    lstMonthNames.Select(civil.month - 1);
    txtDayOfMonth.Text(std::to_string(civil.day));
}

void MonthlyFrame::Show(const clsEvent& event) {
    txtDayOfMonth.Text(std::to_string(event.DayOfMonth()));
    lstMonthNames.Select(event.MonthNumber() - 1);
}

void MonthlyFrame::Take(clsEvent& event) const {
    const std::string message = "Please enter a valid day of the month";
    event.DayOfMonth(TypedNumber(txtDayOfMonth, 1, 31, {message, message}));
    const int position = lstMonthNames.Selected();
    if (position < 0) throw FieldFault(lstMonthNames.Id(), "Please choose a month");
    event.MonthNumber(static_cast<std::int16_t>(position + 1));
}

void WeekdaysFrame::ShowNew(DateValue today) { ShowMask(BitOf(today.WeekdayFromMonday().number - 1)); }

void WeekdaysFrame::Show(const clsEvent& event) { ShowMask(event.WeekDays()); }

void WeekdaysFrame::ShowMask(int weekDays) {
    for (int day = 0; day < 7; ++day)
        window().SetChecked(IDC_chkDay + day, (weekDays & BitOf(day)) != 0);
}

void WeekdaysFrame::Take(clsEvent& event) const {
    int weekDays = 0;
    for (int day = 0; day < 7; ++day)
        if (window().Checked(IDC_chkDay + day)) weekDays |= BitOf(day);
    if (weekDays == 0) throw FieldFault(IDC_chkDay, "Please select at least one day of the week");
    event.WeekDays(static_cast<std::int16_t>(weekDays));
}

IntervalFrame::IntervalFrame(Window& window, int type, int period, int startDate, DateStyle style)
    : RecurrenceFrame(window, type),
      txtPeriod(window, period),
      lblStartDate(window, startDate),
      style_(std::move(style)),
      // The days of the weeks have to fit 16 bits as well.
      mostPeriod_(type == RecurEveryNWeeks ? INT16_MAX / 7 : INT16_MAX) {}

void IntervalFrame::ShowNew(DateValue) {
    txtPeriod.Text("1");
    startDate_.reset();
    ShowStartDate();
}

void IntervalFrame::Show(const clsEvent& event) {
    txtPeriod.Text(std::to_string(event.Period()));
    startDate_ = event.StartDate();
    ShowStartDate();
}

void IntervalFrame::ShowStartDate() {
    lblStartDate.Text(startDate_ ? FormatDate(*startDate_, style_.pattern, style_.locale) : style_.pattern);
}

void IntervalFrame::Take(clsEvent& event) const {
    if (!startDate_) throw FieldFault(lblStartDate.Id(), "Please enter a valid starting date");
    const std::string range =
        "Please enter a whole number from 1 to " + std::to_string(mostPeriod_) + " in the repeat box";
    event.Period(TypedNumber(txtPeriod, 1, mostPeriod_, {"Please enter a number in the repeat box", range}));
    event.StartDate(*startDate_);
}

void IntervalFrame::PickStartDate(Dialogs& dialogs, DateValue today) {
    const auto chosen = dialogs.PickDate("Enter start date for this event", startDate_.value_or(today));
    if (!chosen) return;
    startDate_ = chosen->DateOnly();
    ShowStartDate();
}

}  // namespace kaz
