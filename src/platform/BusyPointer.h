#pragma once

#include "platform/MessagePump.h"

namespace kaz {

// Shows the busy pointer for as long as it lives.
class BusyPointer {
public:
    explicit BusyPointer(MessagePump& pump) : pump_(pump) { pump_.ShowBusy(true); }
    ~BusyPointer() { pump_.ShowBusy(false); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;

private:
    MessagePump& pump_;
};

}  // namespace kaz
