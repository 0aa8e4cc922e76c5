#pragma once

#include "Kazlib_h.h"
#include "com/ConnectionPoint.h"
#include "com/DualObject.h"
#include "com/EventRelay.h"
#include "core/clsComponent.h"
#include "forms/win32/Win32Platform.h"

namespace kaz {

// The component as COM sees it: each operation converts, calls and returns. It owns the
// machine's services and the whole program, so that two of them in one process are two programs.
// Used from the thread that made it.
class ComponentObject final
    : public DualObject<IKazComponent, IKazWords, IProvideClassInfo2, IConnectionPointContainer> {
public:
    ComponentObject();

    HRESULT STDMETHODCALLTYPE get_SettingsInitialised(VARIANT_BOOL* initialised) override;
    HRESULT STDMETHODCALLTYPE get_DLLVersion(BSTR* version) override;
    HRESULT STDMETHODCALLTYPE Startup(BSTR RuntimePath) override;
    HRESULT STDMETHODCALLTYPE SetOptions(BSTR RuntimePath) override;
    HRESULT STDMETHODCALLTYPE RefreshDates() override;
    HRESULT STDMETHODCALLTYPE ScanEvents() override;
    HRESULT STDMETHODCALLTYPE ShowMain() override;
    HRESULT STDMETHODCALLTYPE HideMain() override;
    HRESULT STDMETHODCALLTYPE ShutDown() override;
    HRESULT STDMETHODCALLTYPE fMain_ShutDownKAZ() override;
    HRESULT STDMETHODCALLTYPE fMain_Rescan() override;
    HRESULT STDMETHODCALLTYPE fMain_WindowClosed() override;

    HRESULT STDMETHODCALLTYPE AddInWords(BSTR Line, BSTR* Told, VARIANT_BOOL* Added) override;

    HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** info) override;
    HRESULT STDMETHODCALLTYPE GetGUID(DWORD kind, GUID* id) override;

    HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** enumerator) override;
    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID iid, IConnectionPoint** point) override;

private:
    template <class Operation>
    HRESULT Run(Operation&& operation) noexcept;

    Win32Platform platform_;
    ConnectionPoint hosts_{*this, DIID_DKazEvents};
    ConnectionPoint reminderHosts_{*this, DIID_DKazReminders};
    EventRelay relay_{*Identity(), hosts_, reminderHosts_};
    clsComponent component_;
};

}  // namespace kaz
