#include "com/StringCollection.h"

#include "com/Enumerator.h"
#include "win32/Bstr.h"

namespace kaz {

namespace {

struct CopyText {
    static HRESULT Out(const std::wstring& text, VARIANT* element) {
        VariantInit(element);
        Bstr copy(text);
        if (!copy.Get()) return E_OUTOFMEMORY;
        element->vt = VT_BSTR;
        element->bstrVal = copy.Detach();
        return S_OK;
    }
    static void Undo(VARIANT* element) { VariantClear(element); }
};

using TextEnumerator = Enumerator<IEnumVARIANT, std::wstring, VARIANT, CopyText>;

}  // namespace

HRESULT StringCollection::get_Count(long* count) {
    if (!count) return E_POINTER;
    *count = static_cast<long>(texts_.size());
    return S_OK;
}

HRESULT StringCollection::get_Item(long index, BSTR* text) {
    if (!text) return E_POINTER;
    *text = nullptr;
    if (index < 1 || static_cast<std::size_t>(index) > texts_.size()) return DISP_E_BADINDEX;
    *text = Bstr(texts_[static_cast<std::size_t>(index) - 1]).Detach();
    return *text ? S_OK : E_OUTOFMEMORY;
}

HRESULT StringCollection::get__NewEnum(IUnknown** enumerator) try {
    if (!enumerator) return E_POINTER;
    *enumerator = nullptr;
    *enumerator = new TextEnumerator(texts_);
    return S_OK;
} catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
}

}  // namespace kaz
