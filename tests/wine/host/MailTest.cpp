#include "RunningHost.h"
#include "fakes/Sample.h"
#include "fakes/SmtpServer.h"
#include "fakes/TestFolder.h"
#include "platform/win32/Win32Clock.h"

#include <windows.h>
#include <gtest/gtest.h>
#include <wincred.h>

namespace kaz::test {

namespace {

// The program that is to take mails; "" for none.
void SetMailProgram(const std::wstring& dll) {
    const auto set = [](const wchar_t* key, const wchar_t* name, const std::wstring& value) {
        RegSetKeyValueW(HKEY_LOCAL_MACHINE, key, name, REG_SZ, value.c_str(),
                        static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
    };
    set(L"Software\\Clients\\Mail", nullptr, dll.empty() ? L"" : L"KAZ test");
    set(L"Software\\Clients\\Mail\\KAZ test", L"DLLPath", dll);
}

class HostMail : public testing::Test {
protected:
    void SetUp() override {
        folder.Write("Kaz.ini", "OWNER,Single\r\nNOAUTOBACKUPS,-1\r\nSILENTSTART,-1\r\n");
        SetEnvironmentVariableW(L"KAZ_TEST_MAILS", (folder.Path() / "mails.txt").c_str());
    }
    void MailToday(std::initializer_list<const char*> descriptions) {
        std::vector<clsEvent> events;
        std::string code = "000000";
        for (const char* description : descriptions) {
            ++code.back();
            events.push_back(Mailed(OneOff(code, description, Win32Clock().Today()),
                                    " ann@example.org ; bob@example.org"));
        }
        folder.Write("Events.xml", FileOf(events));
    }
    RunningHost Start() const { return RunningHost(L"\"" + folder.Path().wstring() + L"\""); }
    bool Logged(const char* words) const {
        return Eventually([&] { return folder.Read("KAZ2.log").find(words) != std::string::npos; });
    }
    static int End(const RunningHost& host) {
        PostMessageW(host.HostWindow(), WM_CLOSE, 0, 0);
        return host.ExitCode();
    }

    TestFolder folder;
};

TEST_F(HostMail, GoesOutThroughTheMailProgram) {
    SetMailProgram(L"");
    MailToday({"Lost"});
    {
        const RunningHost host = Start();
        EXPECT_TRUE(Logged("There is no mail program on this computer"));
        EXPECT_TRUE(
            Logged("Mail NOT SENT to ann@example.org ; bob@example.org: KAZ Alert - Event 1, Lost\r\n"));
        EXPECT_EQ(End(host), 0);
    }
    SetMailProgram(RunningHost::Program().replace_filename("TestMailProgram.dll"));
    MailToday({"Café 10 €", "cancel", "stuck", "later"});
    const RunningHost host = Start();
    EXPECT_TRUE(Logged("cancelled in the mail program"));
    EXPECT_EQ(folder.Read("mails.txt"),
              "SMTP:ann@example.org SMTP:bob@example.org KAZ Alert - Event 1: Caf\xc3\xa9 10 \xe2\x82\xac\n");
    const ULONGLONG began = GetTickCount64();
    EXPECT_EQ(End(host), 0) << "a mail program that asks a person does not keep the program";
    EXPECT_LT(GetTickCount64() - began, 9000u);
    EXPECT_TRUE(Logged("Event 4, later\r\n") && Logged("Event 3, stuck\r\n")) << folder.Read("KAZ2.log");
    EXPECT_NE(folder.Read("Events.xml").find("<MailSent>-1"), std::string::npos);
}

TEST_F(HostMail, GoesToTheServerOfTheSettings) {
    MailToday({"Café"});
    folder.Write("KAZ2.ini", "[Mail]\r\nServer=localhost\r\nSecurity=SSL\r\n");
    {
        const HANDLE editor = CreateFileW((folder.Path() / "KAZ2.ini").c_str(), GENERIC_READ, 0, nullptr,
                                          OPEN_EXISTING, 0, nullptr);
        const RunningHost host = Start();
        EXPECT_TRUE(Logged("KAZ2.ini cannot be read") && Logged("will be tried again"));
        CloseHandle(editor);
        EXPECT_EQ(End(host), 0);
        EXPECT_TRUE(Logged("KAZ2.ini, line 3: Security is None, StartTLS or TLS, not \"SSL\"."));
        EXPECT_TRUE(Logged("NOT SENT"));
    }
    const SmtpServer server;
    std::wstring password = L"pass word";
    std::wstring name = L"KAZ2 SMTP";
    CREDENTIALW credential{};
    credential.Type = CRED_TYPE_GENERIC;
    credential.TargetName = name.data();
    credential.CredentialBlob = reinterpret_cast<BYTE*>(password.data());
    credential.CredentialBlobSize = static_cast<DWORD>(password.size() * sizeof(wchar_t));
    credential.Persist = CRED_PERSIST_SESSION;
    ASSERT_TRUE(CredWriteW(&credential, 0));
    folder.Write("KAZ2.ini", "[Mail]\r\nServer=127.0.0.1\r\nPort=" + std::to_string(server.Port()) +
                                 "\r\nSecurity=None\r\nUser=me\r\nFrom=me@example.org\r\n");
    MailToday({"Café"});
    const RunningHost host = Start();
    EXPECT_TRUE(Logged("Mail sent to ann@example.org")) << folder.Read("KAZ2.log");
    CredDeleteW(name.c_str(), CRED_TYPE_GENERIC, 0);
    const std::string heard = server.Heard();
    for (const char* line : {"\nAG1lAHBhc3Mgd29yZA==\n", "RCPT TO:<bob@example.org>\n", "\nCaf=C3=A9\n.\n"})
        EXPECT_NE(heard.find(line), std::string::npos) << heard;
    EXPECT_EQ(End(host), 0);
}

}  // namespace
}  // namespace kaz::test
