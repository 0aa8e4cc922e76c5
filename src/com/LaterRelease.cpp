#include "com/LaterRelease.h"

#include "win32/ComPointer.h"

#include <utility>
#include <vector>

namespace kaz {

namespace {

thread_local std::vector<ComPointer<IUnknown>> waiting;

void CALLBACK LetGo(HWND, UINT, UINT_PTR timer, DWORD) {
    KillTimer(nullptr, timer);
    std::exchange(waiting, {}).clear();
}

bool IsLastReference(IUnknown& object) {
    object.AddRef();
    return object.Release() == 1;
}

}  // namespace

LaterRelease::~LaterRelease() {
    auto reference = ComPointer<IUnknown>::Adopt(&object_);
    if (!IsLastReference(object_)) return;
    try {
        waiting.push_back(std::move(reference));
    } catch (const std::bad_alloc&) {
        // Never let go, then: a few bytes lost are better than a window that runs on in freed memory.
        reference.Detach();
        return;
    }
    SetTimer(nullptr, 0, USER_TIMER_MINIMUM, LetGo);
}

}  // namespace kaz
