#pragma once

#include "model/clsEvent.h"

#include <optional>
#include <utility>

namespace kaz {

// What became of one event: added without `before`, deleted without `after`.
struct ChangedEvent {
    std::optional<clsEvent> before;
    std::optional<clsEvent> after;
    bool wasExpired = false;  // `before` was among the expired events
    bool isExpired = false;   // and `after` is

    void Reverse() {
        std::swap(before, after);
        std::swap(wasExpired, isExpired);
    }
};

}  // namespace kaz
