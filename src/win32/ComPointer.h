#pragma once

#include <windows.h>
#include <unknwn.h>

#include <utility>

namespace kaz {

// Holds one reference to a COM object, or none.
template <class T>
class ComPointer {
public:
    ComPointer() = default;
    // Shares the object: takes a reference of its own.
    explicit ComPointer(T* object) : object_(object) {
        if (object_) object_->AddRef();
    }
    ComPointer(const ComPointer& other) : ComPointer(other.object_) {}
    ComPointer(ComPointer&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    ComPointer& operator=(ComPointer other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~ComPointer() { Reset(); }

    // Takes over a reference that the caller holds, such as that of a new object.
    static ComPointer Adopt(T* object) {
        ComPointer pointer;
        pointer.object_ = object;
        return pointer;
    }

    T* Get() const { return object_; }
    T* operator->() const { return object_; }
    explicit operator bool() const { return object_ != nullptr; }
    T* Detach() { return std::exchange(object_, nullptr); }
    // Forgets the object before it lets it go, since the release may come back here.
    void Reset() {
        if (T* object = Detach()) object->Release();
    }

    // For functions that hand an object out.
    T** Put() {
        Reset();
        return &object_;
    }
    void** PutVoid() { return reinterpret_cast<void**>(Put()); }

    // The object's other interface; empty when it has none.
    template <class Other>
    ComPointer<Other> As() const {
        ComPointer<Other> other;
        if (object_ && FAILED(object_->QueryInterface(__uuidof(Other), other.PutVoid()))) other.Detach();
        return other;
    }

private:
    T* object_ = nullptr;
};

}  // namespace kaz
