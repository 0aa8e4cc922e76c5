#include "RunningHost.h"
#include "fakes/Sample.h"
#include "fakes/SmtpServer.h"
#include "fakes/TestFolder.h"
#include "platform/win32/Win32Clock.h"
#include "platform/win32/Win32Sound.h"

#include <windows.h>
#include <gtest/gtest.h>
#include <psapi.h>

#include <fstream>
#include <iterator>
#include <set>

namespace kaz::test {

namespace {

namespace fs = std::filesystem;

constexpr wchar_t kSound[] = L"c:\\windows\\system32\\winmm.dll";
// Of those that the program or what it calls loads, the ones that Windows does not keep ready for everybody.
// (And that Wine's own user32 does not import before any program's first line, as it does version.dll.)
constexpr const wchar_t* kNames[] = {
    L"winmm.dll",    L"winspool.drv", L"crypt32.dll", L"bcrypt.dll",   L"uxtheme.dll", L"secur32.dll",
    L"mmdevapi.dll", L"msacm32.dll",  L"dwmapi.dll",  L"cryptsp.dll",  L"rsaenh.dll",  L"propsys.dll",
    L"iphlpapi.dll", L"mapi32.dll",   L"dnsapi.dll",  L"comctl32.dll", L"userenv.dll", L"schannel.dll"};

// A program in a folder with foreign DLLs beside it, as among other people's downloads.
class PlantedLibraries : public testing::Test {
protected:
    PlantedLibraries() {
        for (const wchar_t* name : kNames)
            Bring(L"PlantedLibrary.dll", name);
    }
    void Bring(const wchar_t* name, const wchar_t* as = nullptr) const {
        fs::copy_file(RunningHost::Program().replace_filename(name), folder.Path() / (as ? as : name));
    }
    // The paths of the DLLs of a process.
    static std::set<std::wstring> Modules(HANDLE process) {
        HMODULE modules[400];
        DWORD size = 0;
        K32EnumProcessModules(process, modules, sizeof modules, &size);
        std::set<std::wstring> paths;
        for (DWORD index = 0; index < size / sizeof(HMODULE); ++index) {
            wchar_t path[MAX_PATH] = L"";
            K32GetModuleFileNameExW(process, modules[index], path, MAX_PATH);
            CharLowerW(path);
            paths.insert(path);
        }
        return paths;
    }

    TestFolder folder;
};

TEST_F(PlantedLibraries, AreNotLoadedByAPortableCopy) {
    for (const wchar_t* name : {L"KAZ2.exe", L"Kazlib.dll", L"alarm.wav"})
        Bring(name);
    const SmtpServer server;
    folder.Write("Kaz.ini", "OWNER,Single\r\nNOAUTOBACKUPS,-1\r\n");
    folder.Write("KAZ2.ini", "[Mail]\r\nServer=127.0.0.1\r\nPort=" + std::to_string(server.Port()) +
                                 "\r\nSecurity=None\r\nFrom=me@example.org\r\n");
    const clsEvent event = OneOff("000001", "Sounds and mails", Win32Clock().Today());
    folder.Write("Events.xml", FileOf({Mailed(Loud(event, "alarm.wav"), "ann@example.org")}));

    const RunningHost host(L"", folder.Path() / "KAZ2.exe");
    EXPECT_TRUE(Eventually([&] { return folder.Read("KAZ2.log").find("Mail sent") != std::string::npos; }));
    EXPECT_TRUE(Eventually([&] { return Modules(host.Process()).contains(kSound); }));
    std::set<std::wstring> foreign;
    for (const fs::path path : Modules(host.Process()))
        if (path.parent_path() != fs::path(kSound).parent_path() &&
            !path.wstring().starts_with(L"c:\\windows\\winsxs\\"))
            foreign.insert(path.filename().wstring());
    EXPECT_EQ(foreign, (std::set<std::wstring>{L"kaz2.exe", L"kazlib.dll"}));
}

// The component in a program that has said nothing about where its DLLs come from: this one, copied.
TEST_F(PlantedLibraries, AreNotLoadedByTheComponentInAnotherProgram) {
    Bring(L"wine_host.exe");
    const RunningHost host(L"--gtest_also_run_disabled_tests --gtest_filter=*DISABLED_AsksForSound",
                           folder.Path() / "wine_host.exe");
    EXPECT_EQ(host.ExitCode(), 0);
}

TEST(InACopy, DISABLED_AsksForSound) {
    Win32Sound().OutputDevices();
    wchar_t path[MAX_PATH] = L"";
    EXPECT_TRUE(GetModuleFileNameW(GetModuleHandleW(L"winmm.dll"), path, MAX_PATH));
    EXPECT_EQ(_wcsicmp(path, kSound), 0);
}

TEST(Programs, NoticeThatTheirStackWasWrittenOver) {
    for (const wchar_t* name : {L"KAZ2.exe", L"Kazlib.dll"}) {
        std::ifstream file(RunningHost::Program().replace_filename(name), std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(file), {}};
        EXPECT_NE(bytes.find("__stack_chk_fail"), std::string::npos) << fs::path(name);
    }
}

}  // namespace
}  // namespace kaz::test
