#pragma once

#include <windows.h>
#include <commctrl.h>

#include <utility>

namespace kaz {

// Owns one handle of the system and closes it by `Traits::Close`; `Traits::None` is no handle.
template <class Traits>
class UniqueHandle {
public:
    using Type = typename Traits::Type;

    UniqueHandle() = default;
    explicit UniqueHandle(Type handle) : handle_(handle) {}
    UniqueHandle(UniqueHandle&& other) noexcept : handle_(other.Release()) {}
    UniqueHandle& operator=(UniqueHandle&& other) noexcept {
        Reset(other.Release());
        return *this;
    }
    ~UniqueHandle() { Reset(); }

    Type Get() const { return handle_; }
    explicit operator bool() const { return handle_ != Traits::None(); }
    Type Release() { return std::exchange(handle_, Traits::None()); }
    void Reset(Type handle = Traits::None()) {
        const Type old = std::exchange(handle_, handle);
        if (old != Traits::None()) Traits::Close(old);
    }

private:
    Type handle_ = Traits::None();
};

struct FileTraits {
    using Type = HANDLE;
    static Type None() { return INVALID_HANDLE_VALUE; }
    static void Close(Type handle) { CloseHandle(handle); }
};
struct FindTraits {
    using Type = HANDLE;
    static Type None() { return INVALID_HANDLE_VALUE; }
    static void Close(Type handle) { FindClose(handle); }
};
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
struct MenuTraits {
    using Type = HMENU;
    static Type None() { return nullptr; }
    static void Close(Type handle) { DestroyMenu(handle); }
};
struct PowerTraits {
    using Type = HPOWERNOTIFY;
    static Type None() { return nullptr; }
    static void Close(Type handle) { UnregisterSuspendResumeNotification(handle); }
};
struct ActivationTraits {
    using Type = HANDLE;
    static Type None() { return INVALID_HANDLE_VALUE; }
    static void Close(Type handle) { ReleaseActCtx(handle); }
};

using FileHandle = UniqueHandle<FileTraits>;
using FindHandle = UniqueHandle<FindTraits>;
using Font = UniqueHandle<FontTraits>;
using Brush = UniqueHandle<BrushTraits>;
using Bitmap = UniqueHandle<BitmapTraits>;
using Icon = UniqueHandle<IconTraits>;
using ImageList = UniqueHandle<ImageListTraits>;
using Menu = UniqueHandle<MenuTraits>;
using PowerNotification = UniqueHandle<PowerTraits>;
using ActivationHandle = UniqueHandle<ActivationTraits>;

// Keeps one reference to a COM object and gives it back.
template <class Interface>
class ComOwner {
public:
    ComOwner() = default;
    ComOwner(const ComOwner&) = delete;
    ComOwner& operator=(const ComOwner&) = delete;
    ~ComOwner() {
        if (object_) object_->Release();
    }

    Interface* operator->() const { return object_; }
    Interface* Get() const { return object_; }
    // For a call that hands out a reference; to be used once.
    Interface** Put() { return &object_; }

private:
    Interface* object_ = nullptr;
};

}  // namespace kaz
