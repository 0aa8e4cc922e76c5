#include "ComHost.h"
#include "fakes/Matchers.h"
#include "fakes/Sample.h"
#include "fakes/TestFolder.h"
#include "platform/win32/Win32Clock.h"

#include <olectl.h>

namespace kaz::test {

namespace {

class Events : public testing::Test {
protected:
    // A component that was started on a folder with one event due today, one tomorrow and one missed.
    void SetUp() override {
        folder.Write("Kaz.ini", "OWNER,Single\r\nNOAUTOBACKUPS,-1\r\n");
        folder.Write("Events.side", "KAZ side 1\r\nend\r\n");  // it has run before
        const DateValue today = Win32Clock().Today();
        folder.Write("Events.xml",
                     FileOf({Mailed(OneOff("000001", "Täglich\r\nKaffee", today), " ann@example.org "),
                             Warned(OneOff("000002", "Zahnarzt", today.PlusDays(1)), 3),
                             OneOff("000003", "Steuer", today.PlusDays(-1))}));
        component = MakeComponent();
        ASSERT_EQ(component->Startup(Bstr(folder.Path().wstring()).Get()), S_OK);
        VARIANT_BOOL initialised = VARIANT_FALSE;
        ASSERT_EQ(component->get_SettingsInitialised(&initialised), S_OK);
        ASSERT_EQ(initialised, VARIANT_TRUE);
    }
    void TearDown() override {
        if (component) component->ShutDown();
        component.Reset();
        EXPECT_EQ(host.references, 0u);
        host.lastList.Reset();
        // What a host lets go of in an event goes a little later.
        EXPECT_TRUE(PumpUntil([] { return CanUnload() == S_OK; }));
    }

    TestFolder folder;
    ComHost host;
    ComPointer<IKazComponent> component;
};

TEST_F(Events, ScanTellsTheListsInOrderAndMailsOnce) {
    const Connection connection(component, host);
    EXPECT_EQ(component->RefreshDates(), S_OK);
    host.answer = E_FAIL;  // what it failed to take is asked for again
    EXPECT_EQ(component->ScanEvents(), S_OK);
    EXPECT_EQ(host.heard.size(), 4u);
    host.heard.clear();
    host.answer = DISP_E_MEMBERNOTFOUND;
    EXPECT_EQ(component->ScanEvents(), S_OK);
    host.answer = S_OK;
    ASSERT_THAT(host.heard,
                ElementsAre(L"MailEvent(ann@example.org; KAZ Alert - Event 1; T\u00e4glich\r\nKaffee)",
                            L"TodaysEvents([T\u00e4glich\r\nKaffee])",
                            L"UpcomingEvents([In 1 day: Zahnarzt])", StartsWith(L"AllEvents(0000,")));
    EXPECT_NE(host.heard[3].find(L",T\u00e4glich Kaffee\r\n0001,"), std::wstring::npos);

    host.heard.clear();
    EXPECT_EQ(component->fMain_Rescan(), S_OK);
    EXPECT_EQ(host.heard.size(), 3u) << "the mail is not asked for again";
}

TEST_F(Events, HostsMayConnectAndDisconnectWhileTheyAreTold) {
    ComHost second, late;
    Connection first(component, host);
    Connection other(component, second);
    std::unique_ptr<Connection> added;
    host.reaction = [&](DISPID) {
        other.Disconnect();
        if (!added) added = std::make_unique<Connection>(component, late);
    };
    component->fMain_WindowClosed();
    EXPECT_EQ(host.heard.size(), 1u);
    EXPECT_TRUE(second.heard.empty()) << "it had left before its turn";
    EXPECT_TRUE(late.heard.empty()) << "it came after the event was raised";

    host.reaction = [&](DISPID) { first.Disconnect(); };
    component->fMain_ShutDownKAZ();
    component->fMain_WindowClosed();
    EXPECT_THAT(host.heard, ElementsAre(L"Closed()", L"ShutDownKAZ()"));
    EXPECT_EQ(late.heard.size(), 2u);
    EXPECT_EQ(EventsOf(component)->Unadvise(99), CONNECT_E_NOCONNECTION);
    EXPECT_EQ(second.references, 0u);
}

TEST_F(Events, HostMayCallBackAndEvenLetGoInAnEvent) {
    auto connection = std::make_unique<Connection>(component, host);
    host.reaction = [&](DISPID event) {
        if (event == 2) component->fMain_WindowClosed();
        if (event != 7) return;
        component->ShutDown();
        connection.reset();
        component.Reset();
    };
    IKazComponent* const called = component.Get();
    EXPECT_EQ(called->ScanEvents(), S_OK);
    EXPECT_EQ(host.heard.size(), 5u);
    EXPECT_FALSE(component);
    EXPECT_NE(folder.Read("Kaz.ini").find("OWNER,Single\r\n"), std::string::npos);
}

// The window that raises the event is still in its own code when the host has let go of everything.
TEST_F(Events, HostMayLetGoWhileTheMainWindowCloses) {
    auto connection = std::make_unique<Connection>(component, host);
    component->ShowMain();
    const HWND window = FindWindowW(L"#32770", L"KAZ");
    ASSERT_TRUE(window);
    host.reaction = [&](DISPID) {
        component->ShutDown();
        connection.reset();
        component.Reset();
    };
    PostMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_TRUE(PumpUntil([&] { return !IsWindow(window); }));
    EXPECT_THAT(host.heard, ElementsAre(L"Closed()"));
    EXPECT_FALSE(component);
}

TEST_F(Events, HostMayTouchTheComponentThatLetsGoOfItAtItsEnd) {
    DWORD cookie = 0;
    EventsOf(component)->Advise(&host, &cookie);
    component->ShutDown();
    host.leaving = [last = component.Get()] { const ComPointer<IKazComponent> again(last); };
    component.Reset();
    host.leaving = nullptr;
}

TEST_F(Events, AHostThatWantsToHearsWhatIsMissed) {
    ComHost other, unwilling;
    other.events = unwilling.events = DIID_DKazReminders;
    unwilling.answer = DISP_E_MEMBERNOTFOUND;
    const Connection first(component, host), second(component, unwilling), third(component, other);
    EXPECT_EQ(component->ScanEvents(), S_OK);  // loads the main window and its clock
    EXPECT_TRUE(PumpUntil([&] { return !other.heard.empty(); }));
    EXPECT_THAT(other.heard, ElementsAre(L"TestEvent(1)"));  // number 1 of its own interface
    EXPECT_EQ(host.heard.size(), 4u);

    ComPointer<IEnumConnectionPoints> points;
    ASSERT_EQ(component.As<IConnectionPointContainer>()->EnumConnectionPoints(points.Put()), S_OK);
    IConnectionPoint* both[3] = {};
    ULONG fetched = 0;
    EXPECT_EQ(points->Next(3, both, &fetched), S_FALSE);
    ASSERT_EQ(fetched, 2u);
    EXPECT_EQ(both[1]->Advise(&host, &fetched), CONNECT_E_CANNOTCONNECT);
    for (IConnectionPoint* point : both)
        if (point) point->Release();
}

TEST_F(Events, ListIsACollectionForScripts) {
    const Connection connection(component, host);
    component->ScanEvents();
    const auto get = [&](DISPID id, VARIANT* answer, short index = 0) {
        VARIANT argument{};
        argument.vt = VT_I2;
        argument.iVal = index;
        DISPPARAMS arguments{&argument, nullptr, index != 0 ? 1u : 0u, 0};
        return host.lastList->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &arguments,
                                     answer, nullptr, nullptr);
    };
    wchar_t name[] = L"count";
    LPOLESTR names[] = {name};
    DISPID id = 0;
    VARIANT answer{};
    ASSERT_EQ(host.lastList->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id), S_OK);
    EXPECT_EQ(get(id, &answer), S_OK);
    EXPECT_EQ(answer.lVal, 1);
    EXPECT_EQ(get(DISPID_VALUE, &answer, 1), S_OK);
    EXPECT_STREQ(answer.bstrVal, L"In 1 day: Zahnarzt");
    VariantClear(&answer);
    EXPECT_TRUE(FAILED(get(DISPID_VALUE, &answer, 2)));

    // For Each.
    ASSERT_EQ(get(DISPID_NEWENUM, &answer), S_OK);
    const auto items = ComPointer<IUnknown>::Adopt(answer.punkVal).As<IEnumVARIANT>();
    VARIANT two[2] = {};
    ULONG fetched = 9;
    EXPECT_EQ(items->Next(2, two, &fetched), S_FALSE);
    EXPECT_EQ(fetched, 1u);
    EXPECT_STREQ(two[0].bstrVal, L"In 1 day: Zahnarzt");
    VariantClear(&two[0]);
}

}  // namespace
}  // namespace kaz::test
