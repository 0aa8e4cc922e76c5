#pragma once

#include "com/ComObject.h"

namespace kaz {

// Makes components.
class ClassFactory final : public ComObject<IClassFactory> {
public:
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) override;
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;
};

}  // namespace kaz
