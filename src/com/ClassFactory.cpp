#include "com/ClassFactory.h"

#include "com/ComponentObject.h"

#include <new>

namespace kaz {

HRESULT ClassFactory::CreateInstance(IUnknown* outer, REFIID iid, void** object) try {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (outer) return CLASS_E_NOAGGREGATION;
    const auto component = ComPointer<ComponentObject>::Adopt(new ComponentObject);
    return component->QueryInterface(iid, object);
} catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
} catch (...) {
    return E_FAIL;
}

HRESULT ClassFactory::LockServer(BOOL lock) {
    if (lock)
        ModuleUse::Add();
    else
        ModuleUse::Remove();
    return S_OK;
}

}  // namespace kaz
