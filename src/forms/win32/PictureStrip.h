#pragma once

#include "win32/Gdi.h"

#include <cstdint>

namespace kaz {

// Square pictures of one size side by side, with their transparency, as an image list takes them.
class PictureStrip {
public:
    // `size` is the width and height of each picture in pixels.
    PictureStrip(int size, int count);
    // Copies the icon of that name from the module's resources to the place `at`, counted from 0. The place
    // of an icon that cannot be read stays empty.
    void Put(int at, HINSTANCE module, const wchar_t* name);
    HBITMAP Get() const { return bitmap_.Get(); }

private:
    bool PutAsStored(int at, HINSTANCE module, const wchar_t* name);
    void PutIcon(int at, HICON icon);
    std::uint32_t* Row(int at, int row) const { return pixels_ + (row * count_ + at) * size_; }

    int size_;
    int count_;
    Bitmap bitmap_;
    std::uint32_t* pixels_ = nullptr;
};

}  // namespace kaz
