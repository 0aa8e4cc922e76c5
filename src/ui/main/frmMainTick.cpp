#include "core/AwaitedFolder.h"
#include "core/ClockGuard.h"
#include "core/DataWatch.h"
#include "platform/Clock.h"
#include "ui/main/frmMain.h"

#include <algorithm>
#include <utility>

namespace kaz {

namespace {
constexpr int kRefreshInterval = 30000;  // milliseconds
constexpr int kAtOnce = 1;
constexpr int kSecond = 1000;
}  // namespace

// By the timer rather than at once: the window is painted first, and the tick never runs inside the host's
// call or inside itself.
void frmMain::TickSoon() {
    if (!ticking_ && !unloaded_) (pauses_ == 0 ? TimerRefresh : TimerAlarms).Start(kAtOnce);
}

// After a sleep of the computer, or when somebody has set the clock, the day of the month says nothing: it
// may be that of another month.
void frmMain::ClockMoved() {
    lastDay_ = 0;
    TickSoon();
}

void frmMain::DoSteps(std::initializer_list<void (frmMain::*)()> steps) {
    const bool outer = std::exchange(ticking_, true);
    ErrorTrap trap(errors(), "TimerRefresh_Timer", Name());
    // A step can let messages through, and with them a dialog that stays open, or the end of the program.
    trap([&] { WaitForAlarms(); });
    for (const auto step : steps)
        if (!unloaded_) trap([&] { (this->*step)(); });
    ticking_ = outer;
    if (!unloaded_) trap([&] { WaitForAlarms(); });
}

void frmMain::TimerRefresh_Timer() {
    TimerRefresh.Stop();
    DoSteps({&frmMain::ReloadChangedFiles, &frmMain::ShowNewDay, &frmMain::SaveAgain, &frmMain::ShowAlarms});
    // The window has been painted and the reminders are up: while the user logs on, the shell can take
    // seconds to answer.
    if (!unloaded_ && trayTip_.empty()) ShowProgramInTray();
    if (!unloaded_ && pauses_ == 0) TimerRefresh.Start(kRefreshInterval);
}

// Between two ticks of the other timer, and under an open dialog.
void frmMain::TimerAlarms_Timer() {
    if (IsNewDay())
        DoSteps({&frmMain::ReloadChangedFiles, &frmMain::ShowNewDay, &frmMain::ShowAlarms});
    else
        DoSteps({&frmMain::ShowAlarms});
}

// An alarm's minute and midnight, behind which there may be an alarm of the new day, are met at their first
// second. Looked for anew with each tick, so that a clock that is set never leaves the timer behind.
void frmMain::WaitForAlarms() {
    const DateValue now = app_.platform.clock.Now();
    DateValue next = now.DateOnly().PlusDays(1);
    const clsReminder reminder = app_.MakeReminder();
    const auto look = [&](const clsDbXml* database) {
        if (const auto alarm = database ? reminder.NextAlarm(*database) : std::nullopt)
            next = std::min(next, *alarm);
    };
    look(app_.events.get());
    if (app_.Networked()) look(app_.shared.get());

    const int seconds =
        (next.Day() - now.Day()) * DateValue::kSecondsPerDay + next.SecondOfDay() - now.SecondOfDay();
    if (seconds * kSecond < kRefreshInterval)
        TimerAlarms.Start(seconds * kSecond);
    else if (pauses_ > 0 || ticking_)
        TimerAlarms.Start(kRefreshInterval);
    else
        TimerAlarms.Stop();
}

// Comes first: what another program has saved must be in memory before a new day makes this one save.
void frmMain::ReloadChangedFiles() {
    if (app_.awaitedFolder->Look()) {
        app_.mainListIsStale = true;
        lastDay_ = 0;  // its events have not had their day yet
    }
    // Not CatchUp: a change of this program counts as saved once a look has found it.
    for (clsDbXml* database : {app_.events.get(), app_.expired.get()})
        if (database) database->LoadDBIfChanged(database->DBFilename());
    app_.conflictCopies.Look();
    app_.LoadShared();
    if (app_.mainListIsStale) RefillKeepingSelection();
}

// Kept on purpose: only the day of the month is compared.
bool frmMain::IsNewDay() const { return app_.platform.clock.Today().Civil().day != lastDay_; }

void frmMain::ShowNewDay() {
    if (app_.clockGuard->Look()) lastDay_ = 0;
    if (!IsNewDay()) return;
    lastDay_ = app_.platform.clock.Today().Civil().day;
    ErrorTrap trap(errors(), "TimerRefresh_Timer", Name());
    // What a late tick has not seen of the day before rings before its events move on.
    if (lastAlarms_) trap([&] { RingAlarms(); });
    trap([&] { app_.MoveSharedOn(); });
    trap([&] { app_.MakeReminder().DisplayReminders(); });
    if (unloaded_) return;
    expiryWaits_ = app_.expired && app_.expired->HasUnsaved();
    // The host makes its first lists when it wants them.
    if (lastAlarms_ || pauses_ > 0)
        RefillKeepingSelection();
    else
        FillEvents(Category());
}

void frmMain::SaveAgain() {
    app_.dataWatch->TryAgain();
    // While the expired events could not be saved, those of the day before stayed with the others.
    if (!expiryWaits_ || !app_.expired || app_.expired->HasUnsaved()) return;
    expiryWaits_ = false;
    lastDay_ = 0;
}

void frmMain::ShowAlarms() {
    const DateValue now = app_.platform.clock.Now();
    RingAlarms();
    lastAlarms_ = now;
    app_.clockGuard->NoteTick();
}

void frmMain::RingAlarms() {
    clsReminder reminder = app_.MakeReminder();
    if (app_.events) reminder.DisplayAlarms(*app_.events, lastAlarms_);
    if (app_.shared && app_.Networked()) reminder.DisplayAlarms(*app_.shared, lastAlarms_);
}

}  // namespace kaz
