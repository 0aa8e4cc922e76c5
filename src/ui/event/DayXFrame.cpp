#include "ui/event/DayXFrame.h"

#include "ui/fields/FieldFault.h"

#include <algorithm>

namespace kaz {

namespace {

constexpr int kLast = 5;

std::int16_t PositionIn(const ListControl& list, const char* message) {
    const int position = list.Selected();
    if (position < 0) throw FieldFault(list.Id(), message);
    return static_cast<std::int16_t>(position);
}

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

}  // namespace kaz
