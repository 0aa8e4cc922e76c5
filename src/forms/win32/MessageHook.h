#pragma once

#include <windows.h>

namespace kaz {

// While one lives, the keyboard of this thread's dialog windows works (tabulator, mnemonics, accelerators) in
// whatever message loop the host runs. To be made and destroyed on one thread.
class MessageHook {
public:
    MessageHook();
    ~MessageHook();
    MessageHook(const MessageHook&) = delete;
    MessageHook& operator=(const MessageHook&) = delete;

private:
    DWORD thread_;
};

}  // namespace kaz
