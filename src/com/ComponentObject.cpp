#include "com/ComponentObject.h"

#include "base/RuntimeError.h"
#include "com/Enumerator.h"
#include "com/OwnModule.h"
#include "ui/FormFactory.h"
#include "win32/Bstr.h"
#include "win32/Text.h"

#include <olectl.h>

#include <new>

namespace kaz {

namespace {

struct CopyPoint {
    static HRESULT Out(const ComPointer<IConnectionPoint>& point, IConnectionPoint** element) {
        *element = ComPointer<IConnectionPoint>(point).Detach();
        return S_OK;
    }
    static void Undo(IConnectionPoint** element) { (*element)->Release(); }
};

std::string FolderText(BSTR folder) {
    return PathText(std::wstring(folder ? folder : L"", SysStringLen(folder)));
}

}  // namespace

ComponentObject::ComponentObject()
    : platform_(OwnModule()),
      component_(platform_.Services(), MakeMainWindow, relay_) {}

// No exception crosses to the host, and the object outlives the call even when
// the host lets go of it in an event.
template <class Operation>
HRESULT ComponentObject::Run(Operation&& operation) noexcept {
    const ComPointer<IUnknown> alive(Identity());
    try {
        operation();
        return S_OK;
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_FAIL;
    }
}

HRESULT ComponentObject::get_SettingsInitialised(VARIANT_BOOL* initialised) {
    if (!initialised) return E_POINTER;
    *initialised = component_.SettingsInitialised() ? VARIANT_TRUE : VARIANT_FALSE;
    return S_OK;
}

HRESULT ComponentObject::get_DLLVersion(BSTR* version) {
    if (!version) return E_POINTER;
    *version = nullptr;
    return Run([&] { *version = Bstr(ToWide(component_.DLLVersion())).Detach(); });
}

HRESULT ComponentObject::Startup(BSTR RuntimePath) {
    return Run([&] { component_.Startup(FolderText(RuntimePath)); });
}

HRESULT ComponentObject::SetOptions(BSTR RuntimePath) {
    return Run([&] { component_.SetOptions(FolderText(RuntimePath)); });
}

HRESULT ComponentObject::RefreshDates() {
    return Run([&] { component_.RefreshDates(); });
}

HRESULT ComponentObject::ScanEvents() {
    return Run([&] { component_.ScanEvents(); });
}

HRESULT ComponentObject::ShowMain() {
    return Run([&] { component_.ShowMain(); });
}

HRESULT ComponentObject::HideMain() {
    return Run([&] { component_.HideMain(); });
}

HRESULT ComponentObject::ShutDown() {
    return Run([&] { component_.ShutDown(); });
}

HRESULT ComponentObject::fMain_ShutDownKAZ() {
    return Run([&] { component_.fMain_ShutDownKAZ(); });
}

HRESULT ComponentObject::fMain_Rescan() {
    return Run([&] { component_.fMain_Rescan(); });
}

HRESULT ComponentObject::fMain_WindowClosed() {
    return Run([&] { component_.fMain_WindowClosed(); });
}

HRESULT ComponentObject::AddInWords(BSTR Line, BSTR* Told, VARIANT_BOOL* Added) {
    if (!Told || !Added) return E_POINTER;
    *Told = nullptr;
    *Added = VARIANT_FALSE;
    return Run([&] {
        LineAnswer answer;
        try {
            answer = component_.AddInWords(ToUtf8(View(Line)));
        } catch (const RuntimeError& error) {
            answer.told = error.Description();  // a letter that cannot be stored
        }
        *Told = Bstr(ToWide(answer.told)).Detach();
        *Added = answer.added ? VARIANT_TRUE : VARIANT_FALSE;
    });
}

HRESULT ComponentObject::GetClassInfo(ITypeInfo** info) {
    if (!info) return E_POINTER;
    *info = nullptr;
    ComPointer<ITypeInfo> own;
    const HRESULT result = LoadOwnTypeInfo(CLSID_clsComponent, own);
    *info = own.Detach();
    return result;
}

HRESULT ComponentObject::GetGUID(DWORD kind, GUID* id) {
    if (!id) return E_POINTER;
    if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID) return E_INVALIDARG;
    *id = DIID_DKazEvents;
    return S_OK;
}

HRESULT ComponentObject::EnumConnectionPoints(IEnumConnectionPoints** enumerator) {
    if (!enumerator) return E_POINTER;
    *enumerator = nullptr;
    using Point = ComPointer<IConnectionPoint>;
    return Run([&] {
        const std::vector<Point> points{Point(&hosts_), Point(&reminderHosts_)};
        *enumerator = new Enumerator<IEnumConnectionPoints, Point, IConnectionPoint*, CopyPoint>(points);
    });
}

HRESULT ComponentObject::FindConnectionPoint(REFIID iid, IConnectionPoint** point) {
    if (!point) return E_POINTER;
    *point = nullptr;
    for (ConnectionPoint* const known : {&hosts_, &reminderHosts_}) {
        IID events{};
        known->GetConnectionInterface(&events);
        if (iid != events) continue;
        *point = ComPointer<IConnectionPoint>(known).Detach();
        return S_OK;
    }
    return CONNECT_E_NOCONNECTION;
}

}  // namespace kaz
