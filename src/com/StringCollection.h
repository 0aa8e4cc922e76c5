#pragma once

#include "Kazlib_h.h"
#include "com/DualObject.h"

#include <string>
#include <vector>

namespace kaz {

// The list that an event hands to the host. It is a copy: the host may keep it.
class StringCollection final : public DualObject<IStringCollection> {
public:
    explicit StringCollection(std::vector<std::wstring> texts) : texts_(std::move(texts)) {}

    HRESULT STDMETHODCALLTYPE get_Count(long* count) override;
    // DISP_E_BADINDEX outside 1 to Count.
    HRESULT STDMETHODCALLTYPE get_Item(long index, BSTR* text) override;
    HRESULT STDMETHODCALLTYPE get__NewEnum(IUnknown** enumerator) override;

private:
    std::vector<std::wstring> texts_;
};

}  // namespace kaz
