#include "Picture.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>

namespace kaz {

namespace {

BITMAPINFOHEADER Format(int width, int height) {
    BITMAPINFOHEADER header{};
    header.biSize = sizeof header;
    header.biWidth = width;
    header.biHeight = -height;
    header.biPlanes = 1;
    header.biBitCount = 32;
    return header;
}

}  // namespace

Picture::Picture(HDC from, int width, int height)
    : width_(width),
      height_(height),
      pixels_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)) {
    const HDC memory = CreateCompatibleDC(from);
    const HBITMAP bitmap = CreateCompatibleBitmap(from, width, height);
    const HGDIOBJ old = SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, width, height, from, 0, 0, SRCCOPY);
    SelectObject(memory, old);
    BITMAPINFO info{Format(width, height), {}};
    GetDIBits(memory, bitmap, 0, static_cast<UINT>(height), pixels_.data(), &info, DIB_RGB_COLORS);
    DeleteObject(bitmap);
    DeleteDC(memory);
}

Picture Picture::OfClient(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    const HDC screen = GetDC(window);
    Picture picture(screen, client.right, client.bottom);
    ReleaseDC(window, screen);
    return picture;
}

Picture Picture::OfWhole(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    const HDC screen = GetWindowDC(window);
    Picture picture(screen, place.right - place.left, place.bottom - place.top);
    ReleaseDC(window, screen);
    return picture;
}

int Picture::Count(const RECT& place, Colour colour) const {
    constexpr int kNear = 60;
    const auto isNear = [&](std::uint32_t pixel) {
        return std::abs(static_cast<int>(pixel >> 16 & 255) - colour.red) < kNear &&
               std::abs(static_cast<int>(pixel >> 8 & 255) - colour.green) < kNear &&
               std::abs(static_cast<int>(pixel & 255) - colour.blue) < kNear;
    };
    int count = 0;
    for (LONG y = std::max(0L, place.top); y < std::min<LONG>(place.bottom, height_); ++y)
        for (LONG x = std::max(0L, place.left); x < std::min<LONG>(place.right, width_); ++x)
            count += isNear(pixels_[static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
                                    static_cast<std::size_t>(x)]);
    return count;
}

void Picture::Save(const std::string& fileName) const {
    const BITMAPINFOHEADER header = Format(width_, height_);
    const auto bytes = static_cast<DWORD>(pixels_.size() * sizeof pixels_[0]);
    BITMAPFILEHEADER file{};
    file.bfType = 0x4D42;
    file.bfOffBits = sizeof file + sizeof header;
    file.bfSize = file.bfOffBits + bytes;
    std::ofstream out(fileName, std::ios::binary);
    out.write(reinterpret_cast<const char*>(&file), sizeof file);
    out.write(reinterpret_cast<const char*>(&header), sizeof header);
    out.write(reinterpret_cast<const char*>(pixels_.data()), static_cast<std::streamsize>(bytes));
}

}  // namespace kaz
