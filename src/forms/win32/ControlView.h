#pragma once

#include <windows.h>

#include <optional>

namespace kaz {

// The half of a control that lives in its window: what the control notifies comes here.
class ControlView {
public:
    virtual ~ControlView() = default;
    // The answer that the control gets, or nothing for the usual one.
    virtual std::optional<LRESULT> OnNotify(const NMHDR& header) = 0;
    virtual void OnDpiChanged() = 0;
};

}  // namespace kaz
