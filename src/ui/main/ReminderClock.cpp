#include "ui/main/ReminderClock.h"

#include "core/AwaitedFolder.h"
#include "core/ClockGuard.h"
#include "core/DataWatch.h"
#include "platform/Clock.h"

#include <algorithm>
#include <utility>

namespace kaz {

namespace {
constexpr int kRefreshInterval = 30000;  // milliseconds
constexpr int kAtOnce = 1;
constexpr int kSecond = 1000;
}  // namespace

ReminderClock::Pause::Pause(ReminderClock& clock) : clock_(clock) {
    ++clock_.pauses_;
    clock_.refresh_.Stop();
    clock_.WaitForAlarms();
}

ReminderClock::Pause::~Pause() {
    if (--clock_.pauses_ > 0) return;
    clock_.alarms_.Stop();
    clock_.TickSoon();
}

void ReminderClock::Stop() {
    stopped_ = true;
    refresh_.Stop();
    alarms_.Stop();
}

// By the timer rather than at once: the window is painted first, and the tick never runs inside the host's
// call or inside itself.
void ReminderClock::TickSoon() {
    if (!ticking_ && !stopped_) (pauses_ == 0 ? refresh_ : alarms_).Start(kAtOnce);
}

// After a sleep of the computer, or when somebody has set the clock, the day of the month says nothing: it
// may be that of another month.
void ReminderClock::ClockMoved() {
    lastDay_ = 0;
    TickSoon();
}

void ReminderClock::DoSteps(std::initializer_list<void (ReminderClock::*)()> steps) {
    const bool outer = std::exchange(ticking_, true);
    ErrorTrap trap(app_.errors, "TimerRefresh_Timer", "frmMain");
    // A step can let messages through, and with them a dialog that stays open, or the end of the program.
    trap([&] { WaitForAlarms(); });
    for (const auto step : steps)
        if (!stopped_) trap([&] { (this->*step)(); });
    ticking_ = outer;
    if (!stopped_) trap([&] { WaitForAlarms(); });
}

void ReminderClock::Tick() {
    refresh_.Stop();
    DoSteps({&ReminderClock::ReloadChangedFiles, &ReminderClock::ShowNewDay, &ReminderClock::SaveAgain,
             &ReminderClock::LookAtQuiet, &ReminderClock::ShowAlarms, &ReminderClock::ShowMissed,
             &ReminderClock::LookAfterReminders});
    // The window has been painted and the reminders are up: while the user logs on, the shell can take
    // seconds to answer.
    if (!stopped_) ErrorTrap(app_.errors, "TimerRefresh_Timer", "frmMain")(face_.ticked);
    if (!stopped_ && pauses_ == 0) refresh_.Start(kRefreshInterval);
}

// Between two ticks of the other timer, and under an open dialog.
void ReminderClock::TickForAlarms() {
    if (IsNewDay())
        DoSteps({&ReminderClock::ReloadChangedFiles, &ReminderClock::ShowNewDay, &ReminderClock::LookAtQuiet,
                 &ReminderClock::ShowAlarms, &ReminderClock::ShowMissed});
    else
        DoSteps({&ReminderClock::LookAtQuiet, &ReminderClock::ShowAlarms, &ReminderClock::ShowMissed});
}

// What a late tick would do first comes first: before events move on, their alarms ring.
bool ReminderClock::ShowAgain() {
    DoSteps({&ReminderClock::ReloadChangedFiles, &ReminderClock::ShowNewDay});
    return stopped_ || app_.MakeReminder().ShowAgain();
}

// An alarm's minute, the end of a quiet and midnight, behind which there may be an alarm of the new day, are
// met at their first second. Looked for anew with each tick, so that a clock that is set never leaves the
// timer behind.
void ReminderClock::WaitForAlarms() {
    const DateValue now = app_.platform.clock.Now();
    DateValue next = now.DateOnly().PlusDays(1);
    const clsReminder reminder = app_.MakeReminder();
    const auto look = [&](const clsDbXml* database) {
        if (const auto alarm = database ? reminder.NextAlarm(*database) : std::nullopt)
            next = std::min(next, *alarm);
    };
    look(app_.events.get());
    if (app_.Networked()) look(app_.shared.get());
    if (const Quiet::State quiet = app_.quiet.Look(); quiet.isOn) next = std::min(next, quiet.until);

    const int seconds =
        (next.Day() - now.Day()) * DateValue::kSecondsPerDay + next.SecondOfDay() - now.SecondOfDay();
    if (seconds * kSecond < kRefreshInterval)
        alarms_.Start(seconds * kSecond);
    else if (pauses_ > 0 || ticking_)
        alarms_.Start(kRefreshInterval);
    else
        alarms_.Stop();
}

// Comes first: what another program has saved must be in memory before a new day makes this one save.
void ReminderClock::ReloadChangedFiles() {
    if (app_.awaitedFolder->Look()) {
        app_.mainListIsStale = true;
        lastDay_ = 0;  // its events have not had their day yet
    }
    app_.sideFile.Refresh();
    // Not CatchUp: a change of this program counts as saved once a look has found it.
    for (clsDbXml* database : {app_.events.get(), app_.expired.get()})
        if (database) database->LoadDBIfChanged(database->DBFilename());
    app_.CatchUpExtras();
    app_.conflictCopies.Look();
    app_.LoadShared();
    if (!app_.mainListIsStale) return;
    app_.DropLeftOut();
    face_.refill();
}

// Kept on purpose: only the day of the month is compared.
bool ReminderClock::IsNewDay() const { return app_.platform.clock.Today().Civil().day != lastDay_; }

void ReminderClock::ShowNewDay() {
    if (app_.clockGuard->Look()) lastDay_ = 0;
    if (!IsNewDay()) return;
    lastDay_ = app_.platform.clock.Today().Civil().day;
    ErrorTrap trap(app_.errors, "TimerRefresh_Timer", "frmMain");
    // What a late tick has not seen of the day before rings before its events move on.
    if (lastAlarms_) trap([&] { RingAlarms(); });
    trap([&] { app_.MoveSharedOn(); });
    trap([&] { app_.MakeReminder().DisplayReminders(); });
    trap([&] { app_.TidyOutcomes(); });
    if (stopped_) return;
    expiryWaits_ = app_.expired && app_.expired->HasUnsaved();
    // The host makes its first lists when it wants them.
    if (lastAlarms_ || pauses_ > 0)
        face_.refill();
    else
        face_.fill();
}

void ReminderClock::SaveAgain() {
    app_.dataWatch->TryAgain();
    // While the expired events could not be saved, those of the day before stayed with the others.
    if (!expiryWaits_ || !app_.expired || app_.expired->HasUnsaved()) return;
    expiryWaits_ = false;
    lastDay_ = 0;
}

void ReminderClock::ShowAlarms() {
    const DateValue now = app_.platform.clock.Now();
    RingAlarms();
    lastAlarms_ = now;
    app_.clockGuard->NoteTick();
}

void ReminderClock::LookAtQuiet() { app_.reminderWatch.LookAtQuiet(); }

void ReminderClock::LookAfterReminders() { app_.reminderWatch.Look(); }

void ReminderClock::RingAlarms() {
    clsReminder reminder = app_.MakeReminder();
    if (app_.events) reminder.DisplayAlarms(*app_.events, lastAlarms_);
    if (app_.shared && app_.Networked()) reminder.DisplayAlarms(*app_.shared, lastAlarms_);
    reminder.DisplayWoken(app_.Missed());
}

// Behind the alarms: what has just begun to ring is not missed.
void ReminderClock::ShowMissed() {
    app_.reminderWindows.ShowMissed(
        app_.Missed().List(app_.platform.clock.Now(), app_.reminderWindows.Ringing()));
}

}  // namespace kaz
