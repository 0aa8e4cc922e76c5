#pragma once

#include "platform/MessagePump.h"

namespace kaz {

class Win32MessagePump : public MessagePump {
public:
    void ProcessPending() override;
    void Wait(int milliseconds) override;
    void ShowBusy(bool busy) noexcept override;
};

}  // namespace kaz
