#include "Kazlib_h.h"
#include "com/ComObject.h"
#include "com/ComponentObject.h"
#include "com/Registration.h"
#include "win32/ComPointer.h"

#include <new>
#include <string_view>

namespace kaz {

namespace {

// Makes components.
class ClassFactory final : public ComObject<IClassFactory> {
public:
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) override;
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;
};

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

}  // namespace

}  // namespace kaz

// Exported by Kazlib.def.

STDAPI DllGetClassObject(REFCLSID classId, REFIID iid, void** object) {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (classId != CLSID_clsComponent) return CLASS_E_CLASSNOTAVAILABLE;
    const auto factory = kaz::ComPointer<kaz::ClassFactory>::Adopt(new (std::nothrow) kaz::ClassFactory);
    return factory ? factory->QueryInterface(iid, object) : E_OUTOFMEMORY;
}

STDAPI DllCanUnloadNow() { return kaz::ModuleUse::None() ? S_OK : S_FALSE; }

STDAPI DllRegisterServer() try {
    return kaz::RegisterComponent(kaz::Users::AllOrThis);
} catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
}

STDAPI DllUnregisterServer() try {
    return kaz::UnregisterComponent(kaz::Users::AllOrThis);
} catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
}

// regsvr32 /n /i:user: for this user alone, even when an administrator asks. An installation below the user's
// own folders must not be what the other users of the machine get.
STDAPI DllInstall(BOOL install, PCWSTR whose) try {
    if (!whose || std::wstring_view(whose) != L"user") return E_INVALIDARG;
    return install ? kaz::RegisterComponent(kaz::Users::This) : kaz::UnregisterComponent(kaz::Users::This);
} catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
}
