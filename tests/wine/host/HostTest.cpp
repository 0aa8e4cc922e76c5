#include "RunningHost.h"
#include "fakes/Sample.h"
#include "fakes/TestFolder.h"
#include "platform/win32/Win32Clock.h"
#include "resources/resource.h"

#include <gtest/gtest.h>

namespace kaz::test {

namespace {

constexpr wchar_t kMain[] = L"KAZ";
constexpr wchar_t kEditor[] = L"KAZ - Add/Edit event";
// Written in lower case, so that a saving of the settings shows.
const std::string kSettings = "owner,Single\r\nNOAUTOBACKUPS,-1\r\n";

std::wstring Quoted(const std::filesystem::path& path) { return L"\"" + path.wstring() + L"\""; }

BOOL WINAPI IgnoreSignal(DWORD) { return TRUE; }

class Host : public testing::Test {
protected:
    void SetUp() override {
        folder.Write("Kaz.ini", kSettings);
        const DateValue today = Win32Clock().Today();
        folder.Write("Events.xml", FileOf({OneOff("000001", "Café au lait", today)}));
    }
    void ExpectSaved() const {
        EXPECT_NE(folder.Read("Kaz.ini").find("OWNER,Single\r\n"), std::string::npos)
            << folder.Read("Kaz.ini");
    }

    static void OpenEditor(const RunningHost& host) {
        PostMessageW(host.VisibleWindow(kMain), WM_COMMAND, IDM_ADD, 0);
        EXPECT_TRUE(Eventually([&] { return host.VisibleWindow(kEditor) != nullptr; }));
    }

    TestFolder folder;
};

TEST_F(Host, ShowsTheWindowAndWritesTheListsOfAScan) {
    // A backslash before the closing quotation mark is what a shell's completion leaves.
    const RunningHost host(L"--lists " + Quoted(folder.Path() / "lists.txt") + L" \"" +
                           folder.Path().wstring() + L"\\\"");
    EXPECT_TRUE(Eventually([&] { return host.VisibleWindow(kMain) != nullptr; }));
    EXPECT_TRUE(Eventually([&] { return !folder.Read("lists.txt").empty(); }));
    const std::string lists = folder.Read("lists.txt");
    EXPECT_TRUE(lists.starts_with("TODAY\nCaf\xc3\xa9 au lait\n\nCOMING UP\nNone\n\nALL EVENTS\n0000,"))
        << lists;
    EXPECT_TRUE(std::filesystem::exists(folder.Path() / "alarm.wav")) << "the default sound is provided";

    // Closing the window leaves the tray icon, whose menu ends the program.
    const HWND main = host.VisibleWindow(kMain);
    SendMessageW(main, WM_CLOSE, 0, 0);
    EXPECT_FALSE(IsWindowVisible(main));
    PostMessageW(main, WM_COMMAND, IDM_SHOW, 0);
    EXPECT_TRUE(Eventually([&] { return IsWindowVisible(main); }));
    PostMessageW(main, WM_COMMAND, IDM_QUIT, 0);
    EXPECT_EQ(host.ExitCode(), 0);
    ExpectSaved();
}

TEST_F(Host, SecondStartOnTheSameFolderBringsTheFirstForwardAndLeaves) {
    folder.Write("Kaz.ini", kSettings + "SILENTSTART,0\r\nSilentStart,-1\r\n");
    const RunningHost first(Quoted(folder.Path()) + L" --lists " + Quoted(folder.Path() / "lists.txt"));
    EXPECT_TRUE(Eventually([&] { return !folder.Read("lists.txt").empty(); }));
    ASSERT_TRUE(first.HostWindow());
    Sleep(300);
    EXPECT_EQ(first.VisibleWindow(kMain), nullptr) << "a silent start shows reminders only";

    std::wstring spelling =
        (folder.Path() / "..").wstring() + L"\\" + folder.Path().filename().wstring() + L"\\.";
    CharUpperBuffW(spelling.data(), static_cast<DWORD>(spelling.size()));
    EXPECT_EQ(RunningHost(L"--silent " + Quoted(spelling)).ExitCode(), 0);
    EXPECT_EQ(first.VisibleWindow(kMain), nullptr) << "it was the system that started it again";
    EXPECT_EQ(RunningHost(Quoted(spelling)).ExitCode(), 0);
    EXPECT_TRUE(Eventually([&] { return first.VisibleWindow(kMain) != nullptr; }));

    // Another folder is another program.
    const TestFolder other;
    const RunningHost second(Quoted(other.Path()));
    EXPECT_TRUE(Eventually([&] { return second.VisibleWindow(kMain) != nullptr; }));

    // The one that starts while the first ends takes its place.
    PostMessageW(first.HostWindow(), WM_CLOSE, 0, 0);
    EXPECT_EQ(first.ExitCode(), 0);
    ExpectSaved();
    std::filesystem::remove(folder.Path() / "lists.txt");
    folder.Write("Kaz.ini", kSettings);
    const RunningHost third(Quoted(folder.Path()) + L" --silent --lists " +
                            Quoted(folder.Path() / "lists.txt"));
    EXPECT_TRUE(Eventually([&] { return !folder.Read("lists.txt").empty(); }));
    EXPECT_EQ(third.VisibleWindow(kMain), nullptr);
}

TEST_F(Host, AddsALineInWordsWhetherOneRunsOrNot) {
    const auto ran = [this](const std::wstring& arguments) {
        SECURITY_ATTRIBUTES inheritable{sizeof inheritable, nullptr, TRUE};
        const HANDLE output = CreateFileW((folder.Path() / "said.txt").c_str(), GENERIC_WRITE,
                                          FILE_SHARE_READ, &inheritable, CREATE_ALWAYS, 0, nullptr);
        const int code =
            RunningHost(Quoted(folder.Path()) + arguments, RunningHost::Program(), output).ExitCode();
        CloseHandle(output);
        return std::to_string(code) + " " + folder.Read("said.txt");
    };
    EXPECT_EQ(ran(L" --quit"), "0 ") << "none runs";
    const std::string alone = ran(L" --add caf\xe9 tomorrow 15:30");
    EXPECT_TRUE(alone.starts_with("0 Added: caf\xc3\xa9:  ")) << alone;
    EXPECT_NE(alone.find("KAZ is not running"), std::string::npos) << alone;

    const RunningHost host(Quoted(folder.Path()));
    EXPECT_TRUE(Eventually([&] { return host.VisibleWindow(kMain) != nullptr; }));
    const std::string refused = ran(L" --add \"call Bob next friday\"");
    EXPECT_TRUE(refused.starts_with("1 Not added: For some \"next friday\"")) << refused;
    const std::string added = ran(L" --add \"bins every 2 weeks on tuesday !5\"");
    EXPECT_TRUE(added.starts_with("1 Not added: \"!5\" needs a time")) << added;
    EXPECT_TRUE(ran(L" --add \"bins every 2 weeks on tuesday\"").starts_with("0 Added: bins:  Tue "));
    const std::string file = folder.Read("Events.xml");
    EXPECT_NE(file.find("<Desc>bins<"), std::string::npos) << file;
    EXPECT_NE(file.find("au%20lait"), std::string::npos) << "what was there stays";
    EXPECT_EQ(ran(L" --quit"), "0 ");
    EXPECT_EQ(host.ExitCode(), 0);
}

TEST_F(Host, EndOfTheSessionSavesBeforeTheAnswer) {
    const RunningHost host(Quoted(folder.Path()));
    EXPECT_TRUE(Eventually([&] { return host.VisibleWindow(kMain) != nullptr; }));
    OpenEditor(host);
    const HWND window = host.HostWindow();
    EXPECT_EQ(SendMessageW(window, WM_QUERYENDSESSION, 0, 0), 1);
    SendMessageW(window, WM_ENDSESSION, FALSE, 0);
    EXPECT_NE(host.VisibleWindow(kMain), nullptr) << "somebody else refused to end the session";
    SendMessageW(window, WM_ENDSESSION, TRUE, 0);
    ExpectSaved();
    EXPECT_EQ(host.ExitCode(), 0);
}

TEST_F(Host, ReasonOfAFailedStartIsTold) {
    const auto expectTold = [](const RunningHost& host, const wchar_t* words) {
        HWND box = nullptr;
        ASSERT_TRUE(Eventually([&] { return (box = host.VisibleWindow(L"KAZ")) != nullptr; }));
        wchar_t text[500] = L"";
        GetDlgItemTextW(box, 0xFFFF, text, 500);
        EXPECT_NE(std::wstring_view(text).find(words), std::wstring_view::npos)
            << std::filesystem::path(text);
        PostMessageW(box, WM_COMMAND, IDOK, 0);
        EXPECT_EQ(host.ExitCode(), 1);
    };
    expectTold(RunningHost(Quoted(folder.Path() / "not" / "there")), L"cannot be created");
    expectTold(RunningHost(Quoted(folder.Path() / "Kaz.ini")), L"cannot use the folder");

    std::filesystem::copy_file(RunningHost::Program(), folder.Path() / "KAZ2.exe");
    expectTold(RunningHost(Quoted(folder.Path()), folder.Path() / "KAZ2.exe"), L"Kazlib.dll is missing");
}

// The last one, since what a test prints on a terminal is lost once it has let go of that.
TEST_F(Host, ControlCInTheConsoleOfItsParentEndsItCleanlyUnlessADialogIsOpen) {
    FreeConsole();
    ASSERT_TRUE(AllocConsole()) << GetLastError();
    // This program shares the console; a handler of its own keeps it alive and is not inherited.
    SetConsoleCtrlHandler(IgnoreSignal, TRUE);
    const RunningHost host(Quoted(folder.Path()));
    EXPECT_TRUE(Eventually([&] { return host.VisibleWindow(kMain) != nullptr; }));
    OpenEditor(host);
    EXPECT_TRUE(GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0));
    Sleep(300);
    const HWND editor = host.VisibleWindow(kEditor);
    ASSERT_TRUE(editor) << "what is being typed must not get lost";
    PostMessageW(editor, WM_CLOSE, 0, 0);
    EXPECT_TRUE(Eventually([&] { return !host.VisibleWindow(kEditor); }));
    EXPECT_TRUE(GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0));
    EXPECT_EQ(host.ExitCode(), 0);
    ExpectSaved();
    SetConsoleCtrlHandler(IgnoreSignal, FALSE);
}

}  // namespace
}  // namespace kaz::test
