#pragma once

#include "base/DateValue.h"
#include "support/cSHAREDSettings.h"

#include <optional>
#include <string>

namespace kaz {

class Application;

// Watches for a clock that cannot be right: far ahead of the last tick, as after a dead battery, or before
// it. Every recurring event would move there for good and all single ones expire. Nothing waits for an
// answer: the event files are kept as they were, the program works with the date that it has, and when the
// date is right again, or the user says that it was wrong, the events are put back.
class ClockGuard {
public:
    explicit ClockGuard(Application& application) : app_(application) {}

    // Looks at the clock; to be called before any event is moved on because of its date. True when a doubt
    // has ended just now: the events may have been put back.
    bool Look() noexcept;
    // The end of a tick: remembers the time, on the disk when something was shown and else once an hour.
    void NoteTick() noexcept;

    // Whether the program has run on these settings before.
    static bool HasEverTicked(const cSHAREDSettings& settings);
    bool IsInDoubt() const { return doubt_.has_value(); }

    // The user's two answers.
    void DateWasWrong() noexcept;
    void DateIsRight() noexcept;

private:
    // A clock that was found far from the last good tick: its first time and its last.
    struct Doubt {
        DateValue since;
        DateValue last;
    };

    void Load();
    void Judge(DateValue now);
    bool IsRightAgain(DateValue now) const;
    void BeginDoubt(DateValue now);
    void EndDoubt(DateValue now);
    void PutBack(bool forGood);
    void KeepFiles();
    std::string KeptTime() const;
    void Tell();
    void Store();
    void Write();

    Application& app_;
    bool loaded_ = false;
    std::optional<DateValue> lastGood_;  // tick; none at a first start
    std::optional<Doubt> doubt_;
    DateValue written_;
    int shownWhenWritten_ = 0;
};

}  // namespace kaz
