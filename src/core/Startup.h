#pragma once

#include "core/Application.h"

namespace kaz {

// The start-up sequence, run once after the log has been named and the runtime path stored: settings, user
// mode, file names, databases, and the first update of all events. A failure ends the sequence where it
// stands and is thrown; what was done stays done.
class Startup {
public:
    explicit Startup(Application& application) : app_(application) {}
    void Run();

private:
    void LoadOptions();
    void DecideUserMode();
    void BackUp();
    void RemoveAbandoned();

    Application& app_;
};

}  // namespace kaz
