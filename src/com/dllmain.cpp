#include "Kazlib_h.h"
#include "com/ClassFactory.h"
#include "com/Owners.h"
#include "com/Registration.h"

#include <new>

// Exported by Kazlib.def.

STDAPI DllGetClassObject(REFCLSID classId, REFIID iid, void** object) {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (classId != CLSID_clsComponent) return CLASS_E_CLASSNOTAVAILABLE;
    const auto factory = kaz::ComPointer<kaz::ClassFactory>::Adopt(new (std::nothrow) kaz::ClassFactory);
    return factory ? factory->QueryInterface(iid, object) : E_OUTOFMEMORY;
}

STDAPI DllCanUnloadNow() { return kaz::ModuleUse::None() ? S_OK : S_FALSE; }

STDAPI DllRegisterServer() try { return kaz::RegisterComponent(); } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
}

STDAPI DllUnregisterServer() try { return kaz::UnregisterComponent(); } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
}
