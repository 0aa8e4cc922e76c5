#include "core/ClockGuard.h"
#include "platform/Clock.h"
#include "ui/main/frmMain.h"

#include <utility>

namespace kaz {

namespace {
constexpr int kRefreshInterval = 30000;  // milliseconds
constexpr int kAtOnce = 1;
}  // namespace

// By the timer rather than at once: the window is painted first, and the tick never runs inside the host's
// call or inside itself.
void frmMain::TickSoon() {
    if (!ticking_ && !unloaded_ && pauses_ == 0) TimerRefresh.Start(kAtOnce);
}

void frmMain::TimerRefresh_Timer() {
    TimerRefresh.Stop();
    ticking_ = true;
    ErrorTrap trap(errors(), "TimerRefresh_Timer", Name());
    // A step can let messages through, and with them the end of the program.
    for (const auto step : {&frmMain::ReloadChangedFiles, &frmMain::ShowNewDay, &frmMain::ShowAlarms})
        if (!unloaded_) trap([&] { (this->*step)(); });
    ticking_ = false;
    // The window has been painted and the reminders are up: while the user logs on, the shell can take
    // seconds to answer.
    if (!unloaded_ && trayTip_.empty()) ShowProgramInTray();
    if (!unloaded_ && pauses_ == 0) TimerRefresh.Start(kRefreshInterval);
}

// Comes first: what another program has saved must be in memory before a new day makes this one save.
void frmMain::ReloadChangedFiles() {
    bool changed = std::exchange(app_.mainListIsStale, false);
    for (clsDbXml* database : {app_.events.get(), app_.expired.get()}) {
        if (!database) continue;
        const bool isNew = database->DatabaseChanged();
        // Also when it has not: a change counts as saved once a look has found it.
        database->LoadDBIfChanged(database->DBFilename());
        // A file that could not be read still counts as changed: it is tried again on the next tick.
        changed = changed || (isNew && !database->DatabaseChanged());
    }
    if (app_.LoadShared()) changed = true;
    if (changed) Refill(std::nullopt);
}

void frmMain::ShowNewDay() {
    app_.clockGuard->Look();
    // Kept on purpose: only the day of the month is compared.
    const int day = app_.platform.clock.Today().Civil().day;
    if (day == lastDay_) return;
    const bool isFirst = std::exchange(lastDay_, day) == 0;
    ErrorTrap trap(errors(), "TimerRefresh_Timer", Name());
    // What a late tick has not seen of the day before rings before its events move on.
    if (lastAlarms_) trap([&] { RingAlarms(); });
    trap([&] { app_.MakeReminder().DisplayReminders(); });
    if (unloaded_) return;
    FillEvents(Category());
    // The host makes its first lists when it wants them.
    if (!isFirst) owner_.fMain_Rescan();
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
