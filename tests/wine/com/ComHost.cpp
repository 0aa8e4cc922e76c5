#include "ComHost.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace kaz::test {

namespace {

// Item by item and by name, as a script would read it.
std::wstring ListText(IDispatch* object) {
    const auto list = ComPointer<IDispatch>(object).As<IStringCollection>();
    long count = -1;
    list->get_Count(&count);
    std::wstring text = L"[";
    for (long index = 1; index <= count; ++index) {
        Bstr item;
        list->get_Item(index, item.Put());
        text.append(index > 1 ? L"|" : L"").append(item.View());
    }
    return text + L"]";
}

}  // namespace

HRESULT ComHost::QueryInterface(REFIID iid, void** object) {
    *object = nullptr;
    if (iid != IID_IUnknown && iid != IID_IDispatch && iid != events) return E_NOINTERFACE;
    *object = ComPointer<IDispatch>(this).Detach();
    return S_OK;
}

HRESULT ComHost::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*, EXCEPINFO*, UINT*) {
    static const wchar_t* const names[] = {L"?",         L"TestEvent",   L"TodaysEvents", L"UpcomingEvents",
                                           L"MailEvent", L"ShutDownKAZ", L"Closed",       L"AllEvents"};
    const wchar_t* const name = names[id >= 1 && id <= 7 ? id : 0];
    std::wstring text = name + std::wstring(L"(");
    for (UINT index = arguments->cArgs; index-- > 0;) {
        const VARIANT& argument = arguments->rgvarg[index];
        text += argument.vt == VT_DISPATCH ? ListText(argument.pdispVal)
                : argument.vt == VT_BSTR   ? std::wstring(argument.bstrVal, SysStringLen(argument.bstrVal))
                : argument.vt == VT_I4     ? std::to_wstring(argument.lVal)
                                           : L"?";
        if (index > 0) text += L"; ";
        if (argument.vt == VT_DISPATCH) lastList = ComPointer<IDispatch>(argument.pdispVal);
    }
    heard.push_back(text + L")");
    if (reaction) reaction(id);
    return answer;
}

ComPointer<IKazComponent> MakeComponent() {
    ComPointer<IKazComponent> component;
    const HRESULT result = CoCreateInstance(CLSID_clsComponent, nullptr, CLSCTX_INPROC_SERVER,
                                            __uuidof(IKazComponent), component.PutVoid());
    EXPECT_EQ(result, S_OK);
    return component;
}

ComPointer<IConnectionPoint> EventsOf(const ComPointer<IKazComponent>& component, REFIID events) {
    ComPointer<IConnectionPoint> point;
    EXPECT_EQ(component.As<IConnectionPointContainer>()->FindConnectionPoint(events, point.Put()), S_OK);
    return point;
}

Connection::Connection(const ComPointer<IKazComponent>& component, ComHost& host)
    : point_(EventsOf(component, host.events)) {
    EXPECT_EQ(point_->Advise(&host, &cookie_), S_OK);
}

void Connection::Disconnect() {
    if (!point_) return;
    EXPECT_EQ(point_->Unadvise(cookie_), S_OK);
    point_.Reset();
}

bool PumpUntil(const std::function<bool()>& condition) {
    const ULONGLONG end = GetTickCount64() + 10000;
    while (!condition()) {
        if (GetTickCount64() >= end) return false;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageW(&message);
    }
    return true;
}

HRESULT CanUnload() {
    const auto ask = GetProcAddress(LoadLibraryW(L"Kazlib.dll"), "DllCanUnloadNow");
    return reinterpret_cast<HRESULT(WINAPI*)()>(reinterpret_cast<void*>(ask))();
}

}  // namespace kaz::test
