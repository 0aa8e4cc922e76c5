#include "ui/event/MonthlyFrame.h"

#include "base/DateText.h"
#include "ui/fields/FieldFault.h"
#include "ui/fields/FieldReading.h"

#include <string>
#include <vector>

namespace kaz {

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

}  // namespace kaz
