#pragma once

#include "core/Application.h"
#include "forms/Controls.h"

#include <functional>
#include <initializer_list>
#include <optional>

namespace kaz {

// The clock-work of the program: looks on each tick for files that another program has changed, for a new
// day, for what could not be saved, and for alarms. A second timer meets the minutes that cannot wait for the
// next tick, and goes on under an open dialog. A tick that comes late, or twice, does no harm.
class ReminderClock {
public:
    // What the window does in it.
    struct Face {
        std::function<void()> fill;    // the list, before the host has asked for its own
        std::function<void()> refill;  // the events have changed by themselves
        std::function<void()> ticked;  // a whole tick is over
    };
    ReminderClock(Application& application, TimerControl refresh, TimerControl alarms, Face face)
        : app_(application),
          refresh_(refresh),
          alarms_(alarms),
          face_(std::move(face)) {}

    // While it lives, the refresh timer stands still: no list is filled behind the dialog. Alarms have their
    // one minute and ring in it all the same, and so does a new day begin. The tick that was due comes at
    // once when the dialog is closed.
    class Pause {
    public:
        explicit Pause(ReminderClock& clock);
        ~Pause();
        Pause(const Pause&) = delete;
        Pause& operator=(const Pause&) = delete;

    private:
        ReminderClock& clock_;
    };
    bool IsPaused() const { return pauses_ > 0; }

    void TickSoon();
    // Looks anew for the next alarm, after the events have changed.
    void WaitForAlarms();
    void Stop();
    // Shows today's reminders again, closed or not. False when there are none.
    bool ShowAgain();

    // The handlers of the timers, and of a clock that was set.
    void Tick();
    void TickForAlarms();
    void ClockMoved();

private:
    void DoSteps(std::initializer_list<void (ReminderClock::*)()> steps);
    bool IsNewDay() const;
    void ReloadChangedFiles();
    void ShowNewDay();
    void SaveAgain();
    void ShowAlarms();
    void LookAtQuiet();
    void LookAfterReminders();
    void RingAlarms();
    void ShowMissed();

    Application& app_;
    TimerControl refresh_;
    TimerControl alarms_;  // for what cannot wait for the other one
    Face face_;
    bool ticking_ = false;
    bool stopped_ = false;
    int pauses_ = 0;                       // dialogs during which the refresh timer stands still
    std::optional<DateValue> lastAlarms_;  // when alarms were last looked for
    int lastDay_ = 0;  // day of the month of the last day change; 0 when the next tick is to be a new day's
    bool expiryWaits_ = false;  // events of the day before could not be moved to the expired ones
};

}  // namespace kaz
