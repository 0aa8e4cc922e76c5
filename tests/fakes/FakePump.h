#pragma once

#include "platform/MessagePump.h"

#include <functional>

namespace kaz {

class FakePump : public MessagePump {
public:
    void ProcessPending() override {
        ++processed;
        if (waiting) waiting();
    }

    void Wait(int milliseconds) override {
        waited += milliseconds;
        if (whenWaiting) whenWaiting();
    }

    void ShowBusy(bool busy) noexcept override {
        isBusy = busy;
        if (busy) ++timesBusy;
    }

    // What the waiting messages do, such as a timer's tick in the middle of a long step.
    std::function<void()> waiting;
    std::function<void()> whenWaiting;  // what happens while time passes
    int waited = 0;                     // milliseconds
    int processed = 0;
    bool isBusy = false;
    int timesBusy = 0;
};

}  // namespace kaz
