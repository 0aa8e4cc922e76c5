#pragma once

#include <windows.h>
#include <ocidl.h>
#include <oleauto.h>
#include <unknwn.h>

#include <atomic>
#include <tuple>
#include <type_traits>

namespace kaz {

// Counts what keeps the module loaded: one for each living object and each lock of a class factory.
class ModuleUse {
public:
    ModuleUse() noexcept { Add(); }
    ModuleUse(const ModuleUse&) noexcept { Add(); }
    ModuleUse& operator=(const ModuleUse&) noexcept = default;
    ~ModuleUse() { Remove(); }

    static void Add() noexcept { ++count_; }
    static void Remove() noexcept { --count_; }
    static bool None() noexcept { return count_ == 0; }

private:
    static inline std::atomic<long> count_{0};
};

// Reference counting and QueryInterface over the listed interfaces, the first of which is the object's
// identity. A new object holds one reference, its creator's.
template <class... Interfaces>
class ComObject : public Interfaces... {
public:
    virtual ~ComObject() = default;
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        if (!object) return E_POINTER;
        *object = nullptr;
        static_cast<void>((Offer<Interfaces>(iid, object) || ...));
        if (!*object && iid == IID_IUnknown) *object = Identity();
        if (!*object) return E_NOINTERFACE;
        this->AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left > 0) return left;
        // What is let go of in the destructor may call back: that must not be a second last reference.
        references_ = 1;
        delete this;
        return 0;
    }

protected:
    ComObject() = default;

    using First = std::tuple_element_t<0, std::tuple<Interfaces...>>;
    First* Identity() { return this; }

private:
    template <class Interface>
    bool Offer(REFIID iid, void** object) {
        bool known = iid == __uuidof(Interface);
        if constexpr (std::is_base_of_v<IDispatch, Interface>) known = known || iid == IID_IDispatch;
        if constexpr (std::is_base_of_v<IProvideClassInfo, Interface>)
            known = known || iid == IID_IProvideClassInfo;
        if (known) *object = static_cast<Interface*>(this);
        return known;
    }

    ModuleUse use_;
    std::atomic<ULONG> references_{1};
};

}  // namespace kaz
