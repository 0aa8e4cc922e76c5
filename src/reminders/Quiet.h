#pragma once

#include "base/DateValue.h"
#include "platform/Platform.h"
#include "support/cSHAREDSettings.h"

#include <optional>
#include <string>

namespace kaz {

// Whether reminders wait just now: as the user has chosen for two hours, by hours of the day, or while
// another program fills the screen. They wait with their sound, hidden, and come when it is over. Each of the
// three ends by itself, also when the user forgets it or the clock is set: a clock that goes back ends the
// first and the last at once. The user's choice outlasts the program.
class Quiet {
public:
    // All of them outlive the object; `settingsFile` is the path of the settings.
    Quiet(const Platform& platform, cSHAREDSettings& settings, const std::string& settingsFile)
        : platform_(platform),
          settings_(settings),
          settingsFile_(settingsFile) {}

    struct State {
        bool isOn = false;
        DateValue until;          // at the latest, as it stands now
        bool isByScreen = false;  // only because of the screen, which can be free sooner
        bool operator==(const State&) const = default;
    };
    // How it stands now.
    State Look();
    bool IsOn() { return Look().isOn; }

    static constexpr int kChosenMinutes = 120;
    void Choose();
    // Ends it, whatever the reason: the hours until they come again, the screen until it has been free.
    void End();

private:
    std::optional<DateValue> ChosenEnd(DateValue now);
    std::optional<DateValue> HoursEnd(DateValue now) const;
    std::optional<DateValue> ScreenEnd(DateValue now);
    std::optional<DateValue> Moment(std::string_view name) const;
    void Store(std::string_view name, std::optional<DateValue> moment);
    void Save();

    Platform platform_;
    cSHAREDSettings& settings_;
    const std::string& settingsFile_;
    std::optional<DateValue> lastLook_;
    std::optional<DateValue> screenSince_;
    bool screenIsOver_ = false;  // too long, or ended by the user
};

}  // namespace kaz
