#pragma once

#include "model/clsEvent.h"

#include <vector>

namespace kaz {

// What a memory holds beyond its file.
struct EventChanges {
    std::vector<clsEvent> stored;   // added or changed
    std::vector<clsEvent> removed;  // as they were; of some only the code is known
    bool Empty() const { return stored.empty() && removed.empty(); }
};

}  // namespace kaz
