#pragma once

#include "forms/Window.h"

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

namespace kaz {

// What a window shows on the screen at the moment, pixel by pixel.
class Picture {
public:
    // Without the frame and the caption.
    static Picture OfClient(HWND window);
    static Picture OfWhole(HWND window);

    // How many pixels of the rectangle have about that colour.
    int Count(const RECT& place, Colour colour) const;
    // As a bitmap file, for people.
    void Save(const std::string& fileName) const;

    int Width() const { return width_; }
    int Height() const { return height_; }

private:
    Picture(HDC from, int width, int height);

    int width_;
    int height_;
    std::vector<std::uint32_t> pixels_;  // 0x00RRGGBB, the top line first
};

}  // namespace kaz
