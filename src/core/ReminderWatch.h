#pragma once

namespace kaz {

class Application;

// Tells in the health, and so by the tray's icon and in the bar, what keeps reminders from being seen and
// heard while all is well with the files.
class ReminderWatch {
public:
    // The application outlives it.
    explicit ReminderWatch(Application& application) : app_(application) {}

    // To be called with each tick.
    void Look();
    // When it may just have become quiet, or ceased to be.
    void LookAtQuiet();

private:
    void TellQuiet();
    void EndQuiet();
    void TellMissed();
    void TellSilence();
    void LookForDevice();

    Application& app_;
    int looks_ = 0;
    bool hasDevice_ = true;
    bool wasQuiet_ = false;
};

}  // namespace kaz
