#include "Picture.h"

#include <algorithm>
#include <cstdlib>

namespace kaz {

Picture::Picture(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    width_ = client.right;
    height_ = client.bottom;
    pixels_.resize(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_));
    const HDC screen = GetDC(window);
    const HDC memory = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, width_, height_);
    const HGDIOBJ old = SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, width_, height_, screen, 0, 0, SRCCOPY);
    SelectObject(memory, old);
    BITMAPINFO info{};
    info.bmiHeader = {sizeof info.bmiHeader, width_, -height_, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    GetDIBits(memory, bitmap, 0, static_cast<UINT>(height_), pixels_.data(), &info, DIB_RGB_COLORS);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(window, screen);
}

int Picture::Count(const RECT& place, Colour colour) const {
    constexpr int kNear = 60;
    const auto isNear = [](std::uint32_t part, int wanted) {
        return std::abs(static_cast<int>(part & 255) - wanted) < kNear;
    };
    int count = 0;
    for (LONG y = std::max(0L, place.top); y < std::min<LONG>(place.bottom, height_); ++y)
        for (LONG x = std::max(0L, place.left); x < std::min<LONG>(place.right, width_); ++x) {
            const std::uint32_t pixel = pixels_[static_cast<std::size_t>(y * width_ + x)];
            count += isNear(pixel >> 16, colour.red) && isNear(pixel >> 8, colour.green) &&
                     isNear(pixel, colour.blue);
        }
    return count;
}

}  // namespace kaz
