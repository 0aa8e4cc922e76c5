#pragma once

#include "forms/Window.h"

#include <windows.h>

#include <cstdint>
#include <vector>

namespace kaz {

// What a window or a control shows on the screen inside its frame at the moment, pixel by pixel.
class Picture {
public:
    explicit Picture(HWND window);

    // How many pixels of the rectangle have about that colour.
    int Count(const RECT& place, Colour colour) const;
    RECT Whole() const { return {0, 0, width_, height_}; }

private:
    int width_;
    int height_;
    std::vector<std::uint32_t> pixels_;  // 0x00RRGGBB, the top line first
};

}  // namespace kaz
