#pragma once

#include <windows.h>
#include <unknwn.h>

namespace kaz {

// Keeps an object alive while it calls out. When the callee drops the last other reference, the object is let
// go not here but from the thread's message loop: one of its windows may be what raised the event, and its
// code runs on once the callee is back.
class LaterRelease {
public:
    explicit LaterRelease(IUnknown& object) : object_(object) { object_.AddRef(); }
    ~LaterRelease();
    LaterRelease(const LaterRelease&) = delete;
    LaterRelease& operator=(const LaterRelease&) = delete;

private:
    IUnknown& object_;
};

}  // namespace kaz
