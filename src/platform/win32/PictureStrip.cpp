#include "platform/win32/PictureStrip.h"

#include <algorithm>
#include <vector>

namespace kaz {

namespace {

// Rows from the top, with one byte each for blue, green, red and opacity.
BITMAPINFO Layout(int width, int height) {
    BITMAPINFO layout{};
    layout.bmiHeader.biSize = sizeof layout.bmiHeader;
    layout.bmiHeader.biWidth = width;
    layout.bmiHeader.biHeight = -height;
    layout.bmiHeader.biPlanes = 1;
    layout.bmiHeader.biBitCount = 32;
    layout.bmiHeader.biCompression = BI_RGB;
    return layout;
}

}  // namespace

PictureStrip::PictureStrip(int size, int count) : size_(size), count_(count) {
    const BITMAPINFO layout = Layout(size * count, size);
    void* pixels = nullptr;
    bitmap_.Reset(CreateDIBSection(nullptr, &layout, DIB_RGB_COLORS, &pixels, nullptr, 0));
    pixels_ = static_cast<std::uint32_t*>(pixels);
}

void PictureStrip::Put(int at, HICON icon) {
    ICONINFO info{};
    if (!pixels_ || at < 0 || at >= count_ || !GetIconInfo(icon, &info)) return;
    const Bitmap colours(info.hbmColor);
    const Bitmap mask(info.hbmMask);
    BITMAPINFO layout = Layout(size_, size_);
    std::vector<std::uint32_t> picture(static_cast<std::size_t>(size_) * static_cast<std::size_t>(size_));
    const HDC screen = GetDC(nullptr);
    const int rows = GetDIBits(screen, colours.Get(), 0, static_cast<UINT>(size_), picture.data(), &layout,
                               DIB_RGB_COLORS);
    ReleaseDC(nullptr, screen);
    for (int row = 0; row < rows; ++row)
        std::copy_n(picture.data() + row * size_, size_, pixels_ + row * size_ * count_ + at * size_);
}

}  // namespace kaz
