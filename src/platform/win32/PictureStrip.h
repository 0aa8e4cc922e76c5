#pragma once

#include "platform/win32/Handles.h"

#include <cstdint>

namespace kaz {

// Square pictures of one size side by side, with their transparency, as an image list takes them.
class PictureStrip {
public:
    // `size` is the width and height of each picture in pixels.
    PictureStrip(int size, int count);
    // Copies the icon, which has that size, to the place `at`, counted from 0. The place of an icon that
    // cannot be read stays empty.
    void Put(int at, HICON icon);
    HBITMAP Get() const { return bitmap_.Get(); }

private:
    int size_;
    int count_;
    Bitmap bitmap_;
    std::uint32_t* pixels_ = nullptr;
};

}  // namespace kaz
