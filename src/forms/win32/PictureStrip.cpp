#include "forms/win32/PictureStrip.h"

#include "win32/ResourceBytes.h"

#include <algorithm>
#include <cstring>
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

void PictureStrip::Put(int at, HINSTANCE module, const wchar_t* name) {
    if (!pixels_ || at < 0 || at >= count_ || PutAsStored(at, module, name)) return;
    const Icon icon(static_cast<HICON>(LoadImageW(module, name, IMAGE_ICON, size_, size_, LR_DEFAULTCOLOR)));
    if (icon) PutIcon(at, icon.Get());
}

// A picture of just that size that is stored as plain pixels, the bottom row first. An icon object of the
// system's is made of several bitmaps; a dozen of them took a twentieth of the start.
bool PictureStrip::PutAsStored(int at, HINSTANCE module, const wchar_t* name) {
    const auto sizes = ResourceBytes(module, name, RT_GROUP_ICON);
    if (sizes.empty()) return false;
    const int id =
        LookupIconIdFromDirectoryEx(const_cast<BYTE*>(sizes.data()), TRUE, size_, size_, LR_DEFAULTCOLOR);
    const auto picture = ResourceBytes(module, MAKEINTRESOURCEW(id), RT_ICON);
    BITMAPINFOHEADER header{};
    const std::size_t rowBytes = static_cast<std::size_t>(size_) * 4;
    if (picture.size() < sizeof header + rowBytes * static_cast<std::size_t>(size_)) return false;
    std::memcpy(&header, picture.data(), sizeof header);
    if (header.biSize != sizeof header || header.biWidth != size_ || header.biHeight != 2 * size_ ||
        header.biBitCount != 32 || header.biCompression != BI_RGB)
        return false;
    const BYTE* from = picture.data() + sizeof header;
    for (int row = size_ - 1; row >= 0; --row, from += rowBytes)
        std::memcpy(Row(at, row), from, rowBytes);
    return true;
}

void PictureStrip::PutIcon(int at, HICON icon) {
    ICONINFO info{};
    if (!GetIconInfo(icon, &info)) return;
    const Bitmap colours(info.hbmColor);
    const Bitmap mask(info.hbmMask);
    BITMAPINFO layout = Layout(size_, size_);
    std::vector<std::uint32_t> picture(static_cast<std::size_t>(size_) * static_cast<std::size_t>(size_));
    const WindowContext screen(nullptr);
    const int rows = GetDIBits(screen.Get(), colours.Get(), 0, static_cast<UINT>(size_), picture.data(),
                               &layout, DIB_RGB_COLORS);
    for (int row = 0; row < rows; ++row)
        std::copy_n(picture.data() + row * size_, size_, Row(at, row));
}

}  // namespace kaz
