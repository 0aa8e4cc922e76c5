// example_today FOLDER: the list of today's events of the data folder. Everything that a host needs is in
// Kazlib.idl.

#include "Kazlib_h.h"

#include <windows.h>
#include <ocidl.h>

#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

namespace {

struct Release {
    void operator()(IUnknown* object) const { object->Release(); }
};
template <class T>
using Owned = std::unique_ptr<T, Release>;

struct FreeText {
    void operator()(OLECHAR* text) const { SysFreeString(text); }
};
using Text = std::unique_ptr<OLECHAR, FreeText>;

std::wstring_view View(BSTR text) { return {text ? text : L"", SysStringLen(text)}; }

void PrintLine(std::wstring_view text) {
    const int wide = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), wide, nullptr, 0, nullptr, nullptr);
    std::string line(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), wide, line.data(), size, nullptr, nullptr);
    std::puts(line.c_str());
}

void PrintList(IDispatch* object) {
    IStringCollection* found = nullptr;
    if (FAILED(object->QueryInterface(__uuidof(IStringCollection), reinterpret_cast<void**>(&found)))) return;
    const Owned<IStringCollection> list(found);
    long count = 0;
    list->get_Count(&count);
    for (long index = 1; index <= count; ++index) {
        BSTR item = nullptr;
        if (FAILED(list->get_Item(index, &item))) continue;
        const Text owner(item);
        PrintLine(View(item));
    }
}

// What the component tells, while ScanEvents runs. It lives as long as main's variables, so its references
// are not counted.
class Events final : public IDispatch {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        const bool known = iid == IID_IUnknown || iid == IID_IDispatch || iid == DIID_DKazEvents;
        *object = known ? static_cast<IDispatch*>(this) : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*,
                                     EXCEPINFO*, UINT*) override {
        // The ids of DKazEvents; the arguments stand last first.
        const VARIANT* const last = arguments->rgvarg;
        if (event == 2 && arguments->cArgs == 1 && last->vt == VT_DISPATCH && last->pdispVal)
            PrintList(last->pdispVal);
        if (event == 4 && arguments->cArgs == 3 && last[0].vt == VT_BSTR && last[2].vt == VT_BSTR)
            PrintLine(std::wstring(L"Mail to ").append(View(last[2].bstrVal)) + L": " +
                      std::wstring(View(last[0].bstrVal)));
        return S_OK;
    }
};

int Fail(const char* text) {
    std::fprintf(stderr, "%s\n", text);
    return 1;
}

int List(const wchar_t* folder) {
    CLSID id{};
    IKazComponent* created = nullptr;
    if (FAILED(CLSIDFromProgID(L"Kazlib.clsComponent", &id)) ||
        FAILED(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IKazComponent),
                                reinterpret_cast<void**>(&created))))
        return Fail("The component is not registered: regsvr32 Kazlib.dll");
    const Owned<IKazComponent> component(created);

    IConnectionPointContainer* container = nullptr;
    if (FAILED(
            component->QueryInterface(IID_IConnectionPointContainer, reinterpret_cast<void**>(&container))))
        return Fail("The component tells no events.");
    const Owned<IConnectionPointContainer> points(container);
    IConnectionPoint* point = nullptr;
    Events events;
    DWORD connection = 0;
    if (FAILED(points->FindConnectionPoint(DIID_DKazEvents, &point)))
        return Fail("The component tells other events.");
    const Owned<IConnectionPoint> connected(point);
    if (FAILED(connected->Advise(&events, &connection))) return Fail("The component takes no connection.");

    component->Startup(Text(SysAllocString(folder)).get());
    VARIANT_BOOL initialised = VARIANT_FALSE;
    component->get_SettingsInitialised(&initialised);
    if (initialised != VARIANT_FALSE) component->ScanEvents();
    component->ShutDown();
    connected->Unadvise(connection);
    return initialised != VARIANT_FALSE ? 0 : Fail("The folder cannot be used; see its Log_KAZ.txt.");
}

}  // namespace

int wmain(int count, wchar_t** words) {
    if (count != 2) return Fail("example_today FOLDER");
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    const int result = List(words[1]);
    CoUninitialize();
    return result;
}
