#pragma once

#include "core/Application.h"

#include <optional>
#include <string>

namespace kaz {

// The start-up sequence, run once after the log has been named and the runtime path stored: settings, user
// mode, file names, databases, and the first update of all events. A failure ends the sequence where it
// stands and is thrown; what was done stays done.
class Startup {
public:
    explicit Startup(Application& application) : app_(application) {}
    void Run();

private:
    void BeginRun();
    void LoadOptions();
    void WaitForSettings();
    void FollowFolder();
    void DecideUserMode();
    void BackUp();
    void RemoveAbandoned();
    void TellOfDeath();

    Application& app_;
    std::optional<RunMark::Died> died_;  // the run before, when it has had no end
    std::string movedFrom_;              // where the data folder was before, when it has moved
};

}  // namespace kaz
