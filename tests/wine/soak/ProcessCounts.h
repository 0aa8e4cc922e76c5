#pragma once

#include <cstddef>
#include <ostream>

namespace kaz {

// What this process holds of the system at this moment.
struct ProcessCounts {
    std::size_t handles = 0;
    std::size_t gdiObjects = 0;  // fonts, brushes, bitmaps, device contexts
    std::size_t windows = 0;     // of the calling thread, with all controls
    std::size_t heapBytes = 0;   // in use, in all heaps
};

ProcessCounts CountNow();
std::ostream& operator<<(std::ostream& out, const ProcessCounts& counts);

}  // namespace kaz
