#pragma once

#include "com/ComObject.h"

#include <new>
#include <utility>
#include <vector>

namespace kaz {

// A COM enumerator over a copy of some items. `Copy` has `static HRESULT Out(const Item&, Element*)`, which
// gives the caller an element of its own, and `static void Undo(Element*)`, which takes it back.
template <class Interface, class Item, class Element, class Copy>
class Enumerator final : public ComObject<Interface> {
public:
    explicit Enumerator(std::vector<Item> items) : items_(std::move(items)) {}

    HRESULT STDMETHODCALLTYPE Next(ULONG count, Element* elements, ULONG* fetched) override {
        if (fetched) *fetched = 0;
        if (!elements || (!fetched && count != 1)) return E_POINTER;
        ULONG given = 0;
        for (; given < count && position_ < items_.size(); ++given, ++position_) {
            const HRESULT result = Copy::Out(items_[position_], elements + given);
            if (FAILED(result)) {
                position_ -= given;
                while (given > 0)
                    Copy::Undo(elements + --given);
                return result;
            }
        }
        if (fetched) *fetched = given;
        return given == count ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Skip(ULONG count) override {
        const bool enough = count <= items_.size() - position_;
        position_ = enough ? position_ + count : items_.size();
        return enough ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Reset() override {
        position_ = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Clone(Interface** clone) override try {
        if (!clone) return E_POINTER;
        *clone = nullptr;
        auto* copy = new Enumerator(items_);
        copy->position_ = position_;
        *clone = copy;
        return S_OK;
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    }

private:
    std::vector<Item> items_;
    std::size_t position_ = 0;
};

}  // namespace kaz
