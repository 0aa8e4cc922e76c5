#pragma once

namespace kaz {

class MessagePump {
public:
    virtual ~MessagePump() = default;
    // Lets the window messages that wait now be processed, at most a few thousand, then returns.
    virtual void ProcessPending() = 0;
};

}  // namespace kaz
