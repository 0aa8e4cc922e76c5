#include "ComHost.h"
#include "fakes/Sample.h"
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

// Real files that somebody holds: what the start moved on is not lost, and what cannot be read is left alone.
TEST(Startup, WhatAFileCannotTakeWaitsForTheNextStart) {
    const struct {
        const char* what;
        DWORD sharing;
        bool readOnly, isKept;
    } faults[] = {{"held by a reader", FILE_SHARE_READ, false, true},
                  {"held alone", 0, false, false},
                  {"read-only", FILE_SHARE_READ | FILE_SHARE_DELETE, true, true}};
    for (const auto& fault : faults) {
        SCOPED_TRACE(fault.what);
        const TestFolder folder;
        const std::wstring file = (folder.Path() / "Events.xml").wstring();
        const std::string before = FileOf({Daily("000001", "Bread", DateValue::FromCivil(2020, 1, 1), 7)});
        folder.Write("Kaz.ini", "OWNER,Ann\r\nNOAUTOBACKUPS,True\r\n");
        folder.Write("Events.xml", before);
        if (fault.readOnly) SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY);
        const HANDLE held =
            CreateFileW(file.c_str(), GENERIC_READ, fault.sharing, nullptr, OPEN_EXISTING, 0, nullptr);
        const auto component = MakeComponent();
        EXPECT_EQ(StartOn(component, folder.Path().wstring()), VARIANT_TRUE);
        component->ShutDown();
        CloseHandle(held);
        SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_NORMAL);
        EXPECT_EQ(folder.Read("Events.xml"), before);
        EXPECT_EQ(folder.Read("KAZ rescue.txt").find("Bread") != std::string::npos, fault.isKept);

        const auto next = MakeComponent();
        StartOn(next, folder.Path().wstring());
        next->ShutDown();
        const std::string after = folder.Read("Events.xml");
        EXPECT_NE(after.find("Bread"), std::string::npos);
        EXPECT_EQ(after.find("<DueDate>2020-01-01</DueDate>"), std::string::npos);
        EXPECT_EQ(folder.Read("KAZ rescue.txt"), "");
    }
}

}  // namespace kaz::test
