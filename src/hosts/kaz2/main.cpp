#include "hosts/kaz2/CommandLine.h"
#include "hosts/kaz2/Component.h"
#include "hosts/kaz2/ComponentWindows.h"
#include "hosts/kaz2/ConsoleSignals.h"
#include "hosts/kaz2/DataFolder.h"
#include "hosts/kaz2/HostWindow.h"
#include "hosts/kaz2/ListsFile.h"
#include "hosts/kaz2/SilentStart.h"
#include "hosts/kaz2/SingleInstance.h"
#include "hosts/kaz2/StartFailure.h"

#include <windows.h>
#include <objbase.h>

#include <exception>
#include <memory>

namespace kaz {

namespace {

class Apartment {
public:
    Apartment() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
    ~Apartment() { CoUninitialize(); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
};

// The windows are the component's; all that they need of the host is this loop on the thread that made it.
void ProcessMessages() {
    MSG message;
    while (ComponentHasWindows() && GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

void Run(const CommandLine& line) {
    const Apartment apartment;
    const std::wstring folder = ChooseDataFolder(line.folder);
    SingleInstance instance(folder);
    if (!instance.IsOnly()) return;
    ProvideAlarmSound(folder);

    ListsFile lists(line.listsFile);
    std::unique_ptr<Component> component;
    auto window = std::make_unique<HostWindow>(SingleInstance::kWindowClass, instance.WindowName(),
                                               SingleInstance::ComeForwardMessage(),
                                               HostWindow::Actions{[&] {
                                                                       if (component) component->Show();
                                                                   },
                                                                   [] { PostQuitMessage(0); },
                                                                   [&] {
                                                                       if (component) component->ShutDown();
                                                                       PostQuitMessage(0);
                                                                   }});
    const ConsoleSignals signals(window->Handle());

    component = std::make_unique<Component>(lists);
    component->Start(folder);
    // First the window, so that it is there while the lists are made; a scan alone loads it hidden.
    if (!StartsSilently(folder)) component->Show();
    component->Scan();
    ProcessMessages();

    // Gone before the saving starts, so that a second start waits and becomes the first instead of asking
    // this one.
    window.reset();
    component->ShutDown();
}

int Fail(const std::wstring& text) {
    MessageBoxW(nullptr, text.c_str(), L"KAZ", MB_OK | MB_ICONERROR | MB_SETFOREGROUND);
    return 1;
}

}  // namespace

}  // namespace kaz

int WINAPI wWinMain(HINSTANCE, HINSTANCE, LPWSTR, int) {
    try {
        kaz::Run(kaz::ParseCommandLine(GetCommandLineW()));
        return 0;
    } catch (const kaz::StartFailure& failure) {
        return kaz::Fail(failure.text);
    } catch (const std::exception&) {
        return kaz::Fail(L"KAZ cannot start: there is not enough memory.");
    }
}
