#include "ComHost.h"
#include "fakes/TestFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace kaz::test {

namespace {

VARIANT_BOOL StartOn(const ComPointer<IKazComponent>& component, const std::wstring& folder) {
    EXPECT_EQ(component->Startup(Bstr(folder).Get()), S_OK);
    VARIANT_BOOL initialised = VARIANT_TRUE;
    EXPECT_EQ(component->get_SettingsInitialised(&initialised), S_OK);
    return initialised;
}

std::string ProgramLog() {
    wchar_t program[MAX_PATH];
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    std::ifstream file(std::filesystem::path(program).replace_filename("Log_KAZ.txt"), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

TEST(Startup, FolderThatIsNotThereIsToldInTheLogAndToNobodyElse) {
    for (const std::wstring& folder :
         {std::wstring(L"C:\\not\\there"), std::wstring(L"<|>\"*?"), std::wstring(),
          std::wstring(L"C:\\a\0b", 6), std::wstring(1000, L'x')}) {
        const auto component = MakeComponent();
        ComHost host;
        Connection connection(component, host);
        EXPECT_EQ(StartOn(component, folder), VARIANT_FALSE);
        EXPECT_EQ(component->SetOptions(nullptr), S_OK);
        EXPECT_EQ(component->RefreshDates(), S_OK);
        EXPECT_EQ(component->ScanEvents(), S_OK);
        EXPECT_EQ(component->ShowMain(), S_OK);
        EXPECT_EQ(component->HideMain(), S_OK);
        EXPECT_EQ(component->ShutDown(), S_OK);
        EXPECT_TRUE(host.heard.empty());
        connection.Disconnect();
    }
    EXPECT_NE(ProgramLog().find("in Startup of clsComponent"), std::string::npos);
}

TEST(Startup, TrailingBackslashAndForeignScriptAreTheSameFolder) {
    const TestFolder folder;
    const auto component = MakeComponent();
    EXPECT_EQ(StartOn(component, folder.Path().wstring() + L"\\"), VARIANT_TRUE);
    EXPECT_NE(folder.Read("Log_KAZ.txt").find(", Local events loaded\r\n"), std::string::npos);
    component->ShutDown();

    const auto foreign = folder.Path() / L"\u042e\u043b\u044f \u65e5\u672c";
    std::error_code failure;
    if (!std::filesystem::create_directory(foreign, failure)) GTEST_SKIP() << "such names do not exist here";
    const auto other = MakeComponent();
    EXPECT_EQ(StartOn(other, foreign.wstring()), VARIANT_TRUE);
    EXPECT_TRUE(std::filesystem::exists(foreign / "Kaz.ini")) << "the first start saves the settings at once";
    other->ShutDown();
}

TEST(Startup, NullArgumentsAreAnswered) {
    const auto component = MakeComponent();
    EXPECT_EQ(component->Startup(nullptr), S_OK);
    EXPECT_EQ(component->get_SettingsInitialised(nullptr), E_POINTER);
    EXPECT_EQ(component->get_DLLVersion(nullptr), E_POINTER);
    EXPECT_EQ(EventsOf(component)->Advise(nullptr, nullptr), E_POINTER);
}

}  // namespace kaz::test
