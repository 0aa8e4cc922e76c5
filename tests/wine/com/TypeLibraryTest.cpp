#include "ComHost.h"
#include "fakes/TestFolder.h"

#include <gtest/gtest.h>

#include <map>

namespace kaz::test {

namespace {

ComPointer<ITypeInfo> InfoOf(REFGUID id) {
    wchar_t program[MAX_PATH];
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    ComPointer<ITypeLib> library;
    EXPECT_EQ(LoadTypeLibEx(std::filesystem::path(program).replace_filename("Kazlib.dll").c_str(),
                            REGKIND_NONE, library.Put()),
              S_OK);
    TLIBATTR* attributes = nullptr;
    EXPECT_EQ(library->GetLibAttr(&attributes), S_OK);
    // A wrong order of declarations makes the IDL compiler write a library id that is off in its last byte.
    EXPECT_EQ(attributes->guid, LIBID_Kazlib);
    library->ReleaseTLibAttr(attributes);
    ComPointer<ITypeInfo> info;
    EXPECT_EQ(library->GetTypeInfoOfGuid(id, info.Put()), S_OK);
    return info;
}

// Names of the functions by slot (`bySlot`) or by number.
std::map<long, std::wstring> FunctionsOf(const ComPointer<ITypeInfo>& info, bool bySlot) {
    std::map<long, std::wstring> functions;
    FUNCDESC* function = nullptr;
    for (UINT index = 0; SUCCEEDED(info->GetFuncDesc(index, &function)); ++index) {
        Bstr name;
        UINT count = 0;
        info->GetNames(function->memid, name.Put(), 1, &count);
        functions[bySlot ? function->oVft / static_cast<int>(sizeof(void*)) : function->memid] = name.View();
        info->ReleaseFuncDesc(function);
    }
    return functions;
}

}  // namespace

// Compiled hosts know the operations by their slots (seven are IDispatch's own)
// and the events by their numbers.
TEST(TypeLibrary, OperationsAndEventsStandInTheirOrder) {
    HREFTYPE own = 0;
    ComPointer<ITypeInfo> slots;
    const ComPointer<ITypeInfo> component = InfoOf(__uuidof(IKazComponent));
    ASSERT_EQ(component->GetRefTypeOfImplType(static_cast<UINT>(-1), &own), S_OK);
    ASSERT_EQ(component->GetRefTypeInfo(own, slots.Put()), S_OK);
    EXPECT_EQ(FunctionsOf(slots, true), (std::map<long, std::wstring>{{7, L"SettingsInitialised"},
                                                                      {8, L"DLLVersion"},
                                                                      {9, L"Startup"},
                                                                      {10, L"SetOptions"},
                                                                      {11, L"RefreshDates"},
                                                                      {12, L"ScanEvents"},
                                                                      {13, L"ShowMain"},
                                                                      {14, L"HideMain"},
                                                                      {15, L"ShutDown"},
                                                                      {16, L"fMain_ShutDownKAZ"},
                                                                      {17, L"fMain_Rescan"},
                                                                      {18, L"fMain_WindowClosed"}}));
    EXPECT_EQ(FunctionsOf(InfoOf(DIID_DKazEvents), false),
              (std::map<long, std::wstring>{{1, L"TestEvent"},
                                            {2, L"TodaysEvents"},
                                            {3, L"UpcomingEvents"},
                                            {4, L"MailEvent"},
                                            {5, L"ShutDownKAZ"},
                                            {6, L"Closed"},
                                            {7, L"AllEvents"}}));
    EXPECT_EQ(FunctionsOf(InfoOf(DIID_DKazReminders), false),
              (std::map<long, std::wstring>{{1, L"MissedEvents"}}));
}

TEST(TypeLibrary, ObjectTellsItsClassAndItsEvents) {
    const auto provider = MakeComponent().As<IProvideClassInfo2>();
    ASSERT_TRUE(provider);
    GUID events{};
    EXPECT_EQ(provider->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events), S_OK);
    EXPECT_EQ(events, DIID_DKazEvents);
    EXPECT_EQ(provider->GetGUID(0, &events), E_INVALIDARG);

    ComPointer<ITypeInfo> info;
    ASSERT_EQ(provider->GetClassInfo(info.Put()), S_OK);
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->guid, CLSID_clsComponent);
    info->ReleaseTypeAttr(attributes);
}

}  // namespace kaz::test
