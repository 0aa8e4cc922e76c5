#pragma once

#include "win32/Handles.h"

#include <windows.h>
#include <commctrl.h>

namespace kaz {

struct FontTraits {
    using Type = HFONT;
    static Type None() { return nullptr; }
    static void Close(Type handle) { DeleteObject(handle); }
};
struct BrushTraits {
    using Type = HBRUSH;
    static Type None() { return nullptr; }
    static void Close(Type handle) { DeleteObject(handle); }
};
struct BitmapTraits {
    using Type = HBITMAP;
    static Type None() { return nullptr; }
    static void Close(Type handle) { DeleteObject(handle); }
};
struct IconTraits {
    using Type = HICON;
    static Type None() { return nullptr; }
    static void Close(Type handle) { DestroyIcon(handle); }
};
struct ImageListTraits {
    using Type = HIMAGELIST;
    static Type None() { return nullptr; }
    static void Close(Type handle) { ImageList_Destroy(handle); }
};
struct ContextTraits {
    using Type = HDC;
    static Type None() { return nullptr; }
    static void Close(Type handle) { DeleteDC(handle); }
};

using Font = UniqueHandle<FontTraits>;
using Brush = UniqueHandle<BrushTraits>;
using Bitmap = UniqueHandle<BitmapTraits>;
using Icon = UniqueHandle<IconTraits>;
using ImageList = UniqueHandle<ImageListTraits>;
using DeviceContext = UniqueHandle<ContextTraits>;

// Selects an object into a device context for as long as it lives.
class Selection {
public:
    Selection(HDC device, HGDIOBJ object) : device_(device), before_(SelectObject(device, object)) {}
    ~Selection() { SelectObject(device_, before_); }
    Selection(const Selection&) = delete;
    Selection& operator=(const Selection&) = delete;

private:
    HDC device_;
    HGDIOBJ before_;
};

// The device context of a window, or of the screen.
class WindowContext {
public:
    explicit WindowContext(HWND window) : window_(window), device_(GetDC(window)) {}
    ~WindowContext() { ReleaseDC(window_, device_); }
    WindowContext(const WindowContext&) = delete;
    WindowContext& operator=(const WindowContext&) = delete;

    HDC Get() const { return device_; }

private:
    HWND window_;
    HDC device_;
};

// To measure what a control shows: its device context with its font.
class ControlContext {
public:
    explicit ControlContext(HWND control)
        : device_(control),
          font_(device_.Get(), reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0))) {}

    HDC Get() const { return device_.Get(); }

private:
    WindowContext device_;
    Selection font_;
};

// A bitmap to paint on, as deep as the device.
class Canvas {
public:
    Canvas(HDC device, int width, int height)
        : bitmap_(CreateCompatibleBitmap(device, width, height)),
          memory_(CreateCompatibleDC(device)),
          selected_(memory_.Get(), bitmap_.Get()) {}

    HDC Get() const { return memory_.Get(); }
    HBITMAP Picture() const { return bitmap_.Get(); }

private:
    Bitmap bitmap_;
    DeviceContext memory_;
    Selection selected_;
};

}  // namespace kaz
