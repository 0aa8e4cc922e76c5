#pragma once

#include "win32/Handles.h"

namespace kaz {

// While it lives, windows are made with the visual styles that the module's own manifest (resource 2) asks
// for, however old the host program looks. Without such a manifest it does nothing.
class ActivationContext {
public:
    explicit ActivationContext(HINSTANCE module);
    ~ActivationContext();
    ActivationContext(const ActivationContext&) = delete;
    ActivationContext& operator=(const ActivationContext&) = delete;

private:
    ActivationHandle context_;
    ULONG_PTR cookie_ = 0;
};

}  // namespace kaz
