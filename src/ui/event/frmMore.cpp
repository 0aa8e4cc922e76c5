#include "ui/event/frmMore.h"

#include "base/DateText.h"
#include "base/RuntimeError.h"
#include "platform/Clock.h"
#include "platform/Dialogs.h"
#include "platform/Locale.h"
#include "ui/event/ExtrasText.h"
#include "ui/fields/FieldFault.h"
#include "ui/fields/FieldReading.h"

#include <cstdint>
#include <string>
#include <utility>

namespace kaz {

namespace {
constexpr std::int16_t kMostTimes = 10'000;
}

frmMore::frmMore(std::unique_ptr<kaz::Window> window, Application& application, clsEvent event)
    : ModalForm(std::move(window), application.errors, "frmMore"),
      app_(application),
      event_(std::move(event)),
      style_{application.DatePattern(), application.platform.locale.Data()},
      warnings_{WarningControls(this->window(), style_.locale, 0),
                WarningControls(this->window(), style_.locale, 1),
                WarningControls(this->window(), style_.locale, 2)} {
    On(0, Raised::Load, "Form_Load", &frmMore::Form_Load);
    On(0, Raised::CloseBox, "cmdCancel_Click", [this] { Leave(); });
    On(IDC_cmdMoreOK, Raised::Click, "cmdOK_Click", &frmMore::cmdOK_Click);
    On(IDC_cmdMoreCancel, Raised::Click, "cmdCancel_Click", [this] { Leave(); });
    On(IDC_cmdLastDay, Raised::Click, "cmdLastDay_Click", &frmMore::cmdLastDay_Click);
    On(IDC_cmdPutBack, Raised::Click, "cmdPutBack_Click", &frmMore::cmdPutBack_Click);
    On(IDC_lstSkipped, Raised::DoubleClick, "cmdPutBack_Click", &frmMore::cmdPutBack_Click);
    On(IDC_cmdPutAllBack, Raised::Click, "cmdPutAllBack_Click", &frmMore::cmdPutAllBack_Click);
    // Whoever types a number means it.
    On(IDC_txtTimes, Raised::Change, "txtTimes_Change", [this] {
        optNoEnd.Checked(false);
        optLastDay.Checked(false);
        optTimes.Checked(true);
    });
    const auto prepareNumber = [this](int number, int least, int most) {
        On(number, Raised::Focus, "txtNumber_GotFocus",
           [this, number] { TextBox(this->window(), number).HighlightText(); });
        this->window().SetNumberRange(number, least, most);
    };
    prepareNumber(IDC_txtTimes, 1, kMostTimes);
    for (int row = 0; row < WarningControls::kRows; ++row) {
        prepareNumber(IDC_txtWarningNumber + row, 0, INT16_MAX);
        WarningControls& warning = warnings_[static_cast<std::size_t>(row)];
        On(IDC_cmbWarningKind + row, Raised::Select, "cmbWarningKind_Click",
           [&warning] { warning.FollowKind(); });
        On(IDC_txtWarningTime + row, Raised::Leave, "txtWarningTime_LostFocus",
           [&warning] { warning.CompleteTime(); });
    }
}

void frmMore::Form_Load() {
    const EventExtras& extras = event_.Extras();
    skipped_ = extras.skipped;
    lastDay_ = extras.times > 0 ? std::nullopt : extras.lastDay;
    if (extras.times > 0) txtTimes.Text(std::to_string(extras.times));
    optNoEnd.Checked(!extras.lastDay);
    optLastDay.Checked(lastDay_.has_value());
    optTimes.Checked(extras.times > 0);
    ShowLastDay();
    ShowSkipped();
    for (std::size_t row = 0; row < warnings_.size(); ++row)
        warnings_[row].Show(row < extras.warnings.size() ? std::optional(extras.warnings[row])
                                                         : std::nullopt);
    chkAlways.Checked(extras.always);
    if (event_.Recurring()) {
        window().SetFocus(extras.times > 0 ? IDC_optTimes : lastDay_ ? IDC_optLastDay : IDC_optNoEnd);
        return;
    }
    // What is shown once has no series.
    for (const int control : {IDC_optNoEnd, IDC_optLastDay, IDC_cmdLastDay, IDC_lblLastDay, IDC_optTimes,
                              IDC_txtTimes, IDC_lblTimes, IDC_lstSkipped})
        window().SetEnabled(control, false);
    window().SetFocus(IDC_cmbWarningKind);
}

void frmMore::ShowLastDay() {
    cmdLastDay.Text(lastDay_ ? FormatDate(*lastDay_, style_.pattern, style_.locale) : style_.pattern);
}

void frmMore::ShowSkipped() {
    std::vector<std::string> days;
    for (const std::int32_t day : skipped_)
        days.push_back(DayInWords(DateValue(day), style_));
    lstSkipped.Items(days);
    if (!days.empty()) lstSkipped.Select(0);
    for (const int button : {IDC_cmdPutBack, IDC_cmdPutAllBack})
        window().SetEnabled(button, event_.Recurring() && !days.empty());
}

void frmMore::cmdLastDay_Click() {
    const auto chosen = app_.platform.dialogs.PickDate("Enter the last day of the series",
                                                       lastDay_.value_or(app_.platform.clock.Today()));
    if (!chosen) return;
    lastDay_ = chosen->DateOnly();
    ShowLastDay();
    optNoEnd.Checked(false);
    optTimes.Checked(false);
    optLastDay.Checked(true);
}

void frmMore::cmdPutBack_Click() {
    const int row = lstSkipped.Selected();
    if (row < 0) return;
    skipped_.erase(skipped_.begin() + row);
    ShowSkipped();
    window().SetFocus(skipped_.empty() ? IDC_cmdMoreOK : IDC_lstSkipped);
}

void frmMore::cmdPutAllBack_Click() {
    skipped_.clear();
    ShowSkipped();
    window().SetFocus(IDC_cmdMoreOK);
}

void frmMore::cmdOK_Click() {
    try {
        clsEvent event = event_;
        event.Extras(Typed());
        CheckAll(event);
        event_ = std::move(event);
        Accept();
    } catch (const FieldFault& fault) {
        app_.platform.dialogs.Message(fault.Description());
        window().SetFocus(fault.Control());
    }
}

EventExtras frmMore::Typed() const {
    EventExtras extras = event_.Extras();
    if (event_.Recurring()) {
        extras.skipped = skipped_;
        TakeEnd(extras);
    }
    // Those that have no row stay.
    std::vector<SecondWarning> warnings;
    for (const WarningControls& row : warnings_)
        if (const auto warning = row.Take()) warnings.push_back(*warning);
    for (std::size_t at = warnings_.size(); at < extras.warnings.size(); ++at)
        warnings.push_back(extras.warnings[at]);
    extras.warnings = std::move(warnings);
    extras.always = chkAlways.Checked();
    return extras;
}

void frmMore::TakeEnd(EventExtras& extras) const {
    const std::int32_t before = std::exchange(extras.times, 0);
    if (optLastDay.Checked()) {
        if (!lastDay_) throw FieldFault(IDC_cmdLastDay, "Please choose the last day of the series");
        extras.lastDay = lastDay_;
    } else if (optTimes.Checked()) {
        const std::string range =
            "Please enter a whole number from 1 to " + std::to_string(kMostTimes) + " for the times";
        extras.times = TypedNumber(txtTimes, 1, kMostTimes, {range, range});
        // The same number counts from where it was counted before.
        if (extras.times != before || !extras.lastDay)
            extras = UnderRule(std::move(extras), event_.Rule(), app_.platform.clock.Today());
    } else {
        extras.lastDay.reset();
    }
    if (extras.times > 0 && !extras.lastDay)
        throw FieldFault(IDC_txtTimes, "The rule does not name so many dates");
}

void frmMore::CheckAll(const clsEvent& event) const {
    const std::string fault = ExtrasFault(event, style_, app_.platform.clock.Today());
    if (fault.empty()) return;
    clsEvent withoutWarnings = event;
    EventExtras extras = event.Extras();
    extras.warnings.clear();
    withoutWarnings.Extras(extras);
    const bool isEnd = !ExtrasFault(withoutWarnings, style_, app_.platform.clock.Today()).empty();
    const int end = optTimes.Checked() ? IDC_txtTimes : IDC_cmdLastDay;
    throw FieldFault(isEnd ? end : IDC_cmbWarningKind, fault);
}

}  // namespace kaz
