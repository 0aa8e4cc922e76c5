#include "reminders/frmSleeping.h"

#include "base/DateText.h"
#include "base/Text.h"
#include "platform/Clock.h"
#include "platform/Locale.h"

#include <algorithm>
#include <string>
#include <utility>

namespace kaz {

namespace {

std::string DayAndTime(DateValue moment, bool isTimed, const LocaleData& locale) {
    return FormatDate(moment, isTimed ? "DDD D MMM YYYY HH:NN" : "DDD D MMM YYYY", locale);
}

}  // namespace

frmSleeping::frmSleeping(std::unique_ptr<Window> window, const ReminderServices& services,
                         ReminderRequests& requests)
    : Form(std::move(window), services.errors, "frmSleeping"),
      services_(services),
      requests_(requests),
      rows_(this->window().Report(IDC_lstSleeping)) {
    On(IDC_lstSleeping, Raised::Select, "lstSleeping_Click", &frmSleeping::lstSleeping_Click);
    On(IDC_lstSleeping, Raised::DoubleClick, "lstSleeping_DblClick", &frmSleeping::lstSleeping_DblClick);
    On(IDC_cmdSleepingEdit, Raised::Click, "lstSleeping_DblClick", &frmSleeping::lstSleeping_DblClick);
    On(IDC_cmdSleepingWake, Raised::Click, "cmdWake_Click", &frmSleeping::cmdWake_Click);
    On(IDC_cmdSleepingDone, Raised::Click, "cmdEnd_Click", &frmSleeping::cmdEnd_Click);
    On(IDC_cmdSleepingClose, Raised::Click, "cmdClose_Click", &frmSleeping::Close);
    On(0, Raised::CloseBox, "cmdClose_Click", &frmSleeping::Close);
    this->window()
        .Report(IDC_lstSleeping)
        .SetColumns({{"Event", 160, true}, {"Due", 150}, {"Comes again", 150}});
}

bool frmSleeping::Fill() {
    const LocaleData& locale = services_.platform.locale.Data();
    std::vector<Outcomes::Asleep> asleep = services_.outcomes.AllAsleep();
    // What was deleted does not come again, and what has come is shown elsewhere.
    std::erase_if(asleep, [&](const Outcomes::Asleep& one) {
        return one.until <= services_.platform.clock.Now() || !requests_.eventOf(one.occurrence);
    });
    std::ranges::stable_sort(asleep, {}, &Outcomes::Asleep::until);
    std::vector<TextRows::Row> rows;
    std::vector<OccurrenceRef> names;
    for (const Outcomes::Asleep& one : asleep) {
        const clsEvent& event = *requests_.eventOf(one.occurrence);
        names.push_back(one.occurrence);
        const DateValue due(one.occurrence.day.Day(), event.AlarmSet() ? event.DueTime().SecondOfDay() : 0);
        rows.push_back({{OneLine(event.DescShown()), DayAndTime(due, event.AlarmSet(), locale),
                         DayAndTime(one.until, true, locale)}});
    }
    rows_.Fill(std::move(names), std::move(rows));
    ShowButtons();
    return !asleep.empty();
}

void frmSleeping::Appear() {
    window().Show(Activation::TakeFocus);
    window().BringToFront();
}

void frmSleeping::Form_Unload() {
    closed_ = true;
    window().Hide();
}

void frmSleeping::Close() { services_.openWindows.Unload(*this); }

void frmSleeping::ShowButtons() {
    const std::size_t count = rows_.Selected().size();
    cmdWake.Enabled(count > 0);
    cmdEnd.Enabled(count > 0);
    cmdEdit.Enabled(count == 1);
}

void frmSleeping::Changed() {
    requests_.answered();
    if (!closed_ && !Fill()) Close();
}

void frmSleeping::lstSleeping_DblClick() {
    const std::vector<OccurrenceRef> selected = rows_.Selected();
    if (selected.size() != 1) return;
    requests_.edit(selected.front());
    Changed();
}

void frmSleeping::cmdWake_Click() {
    services_.outcomes.Sleep(rows_.Selected(), services_.platform.clock.Now().ToMinute());
    Changed();
}

void frmSleeping::cmdEnd_Click() {
    services_.outcomes.Answer(rows_.Selected());
    Changed();
}

}  // namespace kaz
