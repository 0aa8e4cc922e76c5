#include "ui/event/WeekdaysFrame.h"

#include "ui/fields/FieldFault.h"

namespace kaz {

namespace {
// The bit of a weekday counted from Monday = 0; the lowest bit of the mask is not in use.
constexpr int BitOf(int day) { return 2 << day; }
}  // namespace

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

}  // namespace kaz
