#include "ui/event/IntervalFrame.h"

#include "base/DateText.h"
#include "ui/fields/FieldFault.h"
#include "ui/fields/FieldReading.h"

#include <cstdint>
#include <utility>

namespace kaz {

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
