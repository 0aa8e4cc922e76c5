#pragma once

#include <windows.h>
#include <objbase.h>

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

    // For functions that hand one out.
    Type* Put() {
        Reset();
        return &handle_;
    }

private:
    Type handle_ = Traits::None();
};

struct FileTraits {
    using Type = HANDLE;
    static Type None() { return INVALID_HANDLE_VALUE; }
    static void Close(Type handle) { CloseHandle(handle); }
};
// Of an event, a mutex, a process: no handle is a null pointer.
struct KernelTraits {
    using Type = HANDLE;
    static Type None() { return nullptr; }
    static void Close(Type handle) { CloseHandle(handle); }
};
struct ModuleTraits {
    using Type = HMODULE;
    static Type None() { return nullptr; }
    static void Close(Type handle) { FreeLibrary(handle); }
};
// A text that the system hands over, to be freed as COM frees.
struct TaskTextTraits {
    using Type = wchar_t*;
    static Type None() { return nullptr; }
    static void Close(Type text) { CoTaskMemFree(text); }
};
struct FindTraits {
    using Type = HANDLE;
    static Type None() { return INVALID_HANDLE_VALUE; }
    static void Close(Type handle) { FindClose(handle); }
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
using KernelHandle = UniqueHandle<KernelTraits>;
using Module = UniqueHandle<ModuleTraits>;
using TaskText = UniqueHandle<TaskTextTraits>;
using FindHandle = UniqueHandle<FindTraits>;
using Menu = UniqueHandle<MenuTraits>;
using PowerNotification = UniqueHandle<PowerTraits>;
using ActivationHandle = UniqueHandle<ActivationTraits>;

}  // namespace kaz
