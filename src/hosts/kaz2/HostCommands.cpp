#include "hosts/kaz2/HostCommands.h"

#include "hosts/kaz2/Apartment.h"
#include "hosts/kaz2/CommandOutput.h"
#include "hosts/kaz2/Component.h"
#include "hosts/kaz2/DataFolder.h"
#include "hosts/kaz2/HostMail.h"
#include "hosts/kaz2/LineToProgram.h"
#include "hosts/kaz2/ListsFile.h"
#include "hosts/kaz2/SingleInstance.h"
#include "hosts/kaz2/StartFailure.h"

namespace kaz {

namespace {

// Nobody runs on the folder: the event is stored all the same, and nothing reminds of it yet.
LineReply AddAlone(const std::wstring& folder, const std::wstring& text) {
    const Apartment apartment;
    ProvideAlarmSound(folder);
    ListsFile lists(L"");
    HostMail mail(folder);
    Component component(lists, mail);
    component.Start(folder);
    LineReply reply = component.AddInWords(text);
    component.ShutDown();
    if (reply.added)
        reply.told += L"\r\nKAZ is not running on this folder; it reminds you once it is started.";
    return reply;
}

int Add(SingleInstance& instance, const std::wstring& folder, const std::wstring& text) {
    const LineReply reply =
        instance.IsOnly(true) ? AddAlone(folder, text) : LineToProgram::Send(instance.Other(), text);
    TellOutcome((reply.added ? L"Added: " : L"Not added: ") + reply.told, !reply.added);
    return reply.added ? 0 : 1;
}

int Quit(SingleInstance& instance) {
    if (instance.IsOnly(true)) return 0;
    PostMessageW(instance.Other(), WM_CLOSE, 0, 0);
    if (instance.WaitForEnd()) return 0;
    TellOutcome(L"KAZ has not ended: a window of it waits for an answer.", true);
    return 1;
}

}  // namespace

int RunCommand(const CommandLine& line) {
    try {
        const std::wstring folder = ChooseDataFolder(line.folder);
        SingleInstance instance(folder);
        return line.quit ? Quit(instance) : Add(instance, folder, line.text);
    } catch (const StartFailure& failure) {
        TellOutcome(failure.text, true);
        return 1;
    }
}

}  // namespace kaz
