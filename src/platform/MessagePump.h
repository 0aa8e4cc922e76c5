#pragma once

namespace kaz {

class MessagePump {
public:
    virtual ~MessagePump() = default;
    // Lets the window messages that wait now be processed, at most a few thousand, then returns.
    virtual void ProcessPending() = 0;
    // Lets time pass, for what may be over in a moment; no message is processed.
    virtual void Wait(int milliseconds) = 0;
    // The busy pointer, for a step that keeps the user waiting; see BusyPointer.
    virtual void ShowBusy(bool busy) noexcept = 0;
};

}  // namespace kaz
