#include "hosts/kaz2/Apartment.h"
#include "hosts/kaz2/CommandLine.h"
#include "hosts/kaz2/Component.h"
#include "hosts/kaz2/ComponentWindows.h"
#include "hosts/kaz2/ConsoleSignals.h"
#include "hosts/kaz2/DataFolder.h"
#include "hosts/kaz2/HostCommands.h"
#include "hosts/kaz2/HostMail.h"
#include "hosts/kaz2/HostWindow.h"
#include "hosts/kaz2/ListsFile.h"
#include "hosts/kaz2/RestartBySystem.h"
#include "hosts/kaz2/SilentStart.h"
#include "hosts/kaz2/SingleInstance.h"
#include "hosts/kaz2/StartFailure.h"

#include <windows.h>

#include <chrono>
#include <cstdlib>
#include <exception>
#include <memory>

namespace kaz {

namespace {

// How long the last mails may take. At the end of the session the system waits about five seconds in all.
constexpr std::chrono::seconds kMailsAtEnd{4};
constexpr std::chrono::seconds kMailsAtSessionEnd{2};

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
    if (!instance.IsOnly(line.silent)) return;
    AskForRestart(SilentArguments(folder));
    ProvideAlarmSound(folder);

    ListsFile lists(line.listsFile);
    HostMail mail(folder);
    std::unique_ptr<Component> component;
    HostWindow::Actions actions;
    actions.comeForward = [&] {
        if (component) component->Show();
    };
    actions.end = [&actions] {
        // As the "Quit" of the tray does: what the user is just typing would be lost.
        if (ComponentAsks())
            actions.comeForward();
        else
            PostQuitMessage(0);
    };
    actions.add = [&](const std::wstring& text) {
        return component ? component->AddInWords(text)
                         : LineReply{false, L"KAZ is just starting. Please try again in some seconds."};
    };
    actions.sessionEnd = [&] {
        if (component) component->ShutDown();
        mail.Finish(kMailsAtSessionEnd);
        PostQuitMessage(0);
    };
    auto window = std::make_unique<HostWindow>(SingleInstance::kWindowClass, instance.WindowName(),
                                               SingleInstance::ComeForwardMessage(), actions);
    const ConsoleSignals signals(window->Handle());

    component = std::make_unique<Component>(lists, mail);
    component->Start(folder);
    // First the window, so that it is there while the lists are made; a scan alone loads it hidden.
    if (line.show || (!line.silent && !StartsSilently(folder))) component->Show();
    mail.CheckSettings();
    component->Scan();
    ProcessMessages();

    // Gone before the saving starts, so that a second start waits and becomes the first instead of asking
    // this one.
    window.reset();
    component->ShutDown();
    mail.Finish(kMailsAtEnd);
}

int Fail(const std::wstring& text) {
    MessageBoxW(nullptr, text.c_str(), L"KAZ", MB_OK | MB_ICONERROR | MB_SETFOREGROUND);
    return 1;
}

}  // namespace

}  // namespace kaz

int WINAPI wWinMain(HINSTANCE, HINSTANCE, LPWSTR, int) {
    // Before anything is loaded: what the system itself loads for us, too, is not looked for beside the
    // program, which may lie among other people's downloads.
    SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
    try {
        const kaz::CommandLine line = kaz::ParseCommandLine({__wargv, static_cast<std::size_t>(__argc)});
        const bool isCommand = line.add || line.quit;
        const UINT code = isCommand ? static_cast<UINT>(kaz::RunCommand(line)) : 0;
        if (!isCommand) kaz::Run(line);
        // Everything is saved and closed. The usual end would take down one by one what goes with the
        // process, and wait for locks that a mail program which keeps a thread may hold for ever.
        TerminateProcess(GetCurrentProcess(), code);
        return 0;
    } catch (const kaz::StartFailure& failure) {
        return kaz::Fail(failure.text);
    } catch (const std::exception&) {
        return kaz::Fail(L"KAZ cannot start: there is not enough memory.");
    }
}
