#include "hosts/kaz2/Component.h"

#include "hosts/kaz2/ComponentSink.h"
#include "hosts/kaz2/DataFolder.h"
#include "hosts/kaz2/StartFailure.h"
#include "win32/Bstr.h"

#include <cstdio>
#include <utility>

namespace kaz {

namespace {

constexpr wchar_t kMissing[] = L"its component Kazlib.dll is missing or damaged";
constexpr int kTries = 6;
constexpr DWORD kBetweenTries = 5000;  // milliseconds

// Lets time pass while the component's report of the failure can be read and closed.
void WaitForMessages(DWORD milliseconds) {
    const ULONGLONG end = GetTickCount64() + milliseconds;
    for (ULONGLONG now = GetTickCount64(); now < end; now = GetTickCount64()) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(end - now), QS_ALLINPUT);
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            if (message.message == WM_QUIT) return PostQuitMessage(static_cast<int>(message.wParam));
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
}

void Require(HRESULT result, const wchar_t* what) {
    if (SUCCEEDED(result)) return;
    wchar_t number[16];
    swprintf(number, 16, L"0x%08lX", static_cast<unsigned long>(result));
    throw StartFailure{std::wstring(L"KAZ cannot start: ") + what + L" (" + number + L")."};
}

using GetClassObject = decltype(&DllGetClassObject);

// The one beside the program by its full path, whatever is registered and wherever else one lies. It stays
// loaded as long as the program.
GetClassObject ComponentFile() {
    const HMODULE file = LoadLibraryExW(InFolder(ProgramFolder(), L"Kazlib.dll").c_str(), nullptr,
                                        LOAD_LIBRARY_SEARCH_SYSTEM32);
    const FARPROC entry = file ? GetProcAddress(file, "DllGetClassObject") : nullptr;
    Require(entry ? S_OK : HRESULT_FROM_WIN32(GetLastError()), kMissing);
    return reinterpret_cast<GetClassObject>(reinterpret_cast<void*>(entry));
}

ComPointer<IKazComponent> Create() {
    ComPointer<IClassFactory> factory;
    Require(ComponentFile()(CLSID_clsComponent, IID_IClassFactory, factory.PutVoid()), kMissing);
    ComPointer<IKazComponent> component;
    Require(factory->CreateInstance(nullptr, __uuidof(IKazComponent), component.PutVoid()), kMissing);
    return component;
}

ComPointer<IConnectionPoint> EventsOf(const ComPointer<IKazComponent>& component) {
    const auto container = component.As<IConnectionPointContainer>();
    ComPointer<IConnectionPoint> events;
    Require(container ? container->FindConnectionPoint(DIID_DKazEvents, events.Put()) : E_NOINTERFACE,
            L"its component Kazlib.dll is of another version");
    return events;
}

}  // namespace

Component::Component(ListsFile& lists, HostMail& mail) : component_(Create()), events_(EventsOf(component_)) {
    const auto sink = ComPointer<ComponentSink>::Adopt(new ComponentSink(lists, mail));
    Require(events_->Advise(sink.Get(), &connection_), L"its component Kazlib.dll does not answer");
}

Component::~Component() {
    ShutDown();
    events_->Unadvise(connection_);
}

void Component::Start(const std::wstring& folder) {
    // A settings file that another program holds, or a folder that is not there yet, comes back mostly.
    for (int tries = 1; !(started_ = HasStarted(folder)); ++tries) {
        if (tries == kTries)
            throw StartFailure{L"KAZ cannot work with the folder\n" + folder +
                               L"\nThe reason is in the file Log_KAZ.txt, there or beside the program."};
        WaitForMessages(kBetweenTries);
    }
}

bool Component::HasStarted(const std::wstring& folder) {
    component_->Startup(Bstr(folder).Get());
    VARIANT_BOOL initialised = VARIANT_FALSE;
    component_->get_SettingsInitialised(&initialised);
    return initialised != VARIANT_FALSE;
}

void Component::Scan() { component_->ScanEvents(); }

void Component::Show() { component_->ShowMain(); }

LineReply Component::AddInWords(const std::wstring& line) {
    const auto words = component_.As<IKazWords>();
    Bstr told;
    VARIANT_BOOL added = VARIANT_FALSE;
    if (!words || FAILED(words->AddInWords(Bstr(line).Get(), told.Put(), &added)))
        return {false, L"The component Kazlib.dll could not do it."};
    return {added != VARIANT_FALSE, std::wstring(told.View())};
}

void Component::ShutDown() {
    if (std::exchange(started_, false)) component_->ShutDown();
}

}  // namespace kaz
