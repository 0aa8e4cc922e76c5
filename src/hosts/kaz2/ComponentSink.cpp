#include "hosts/kaz2/ComponentSink.h"

#include "hosts/kaz2/HostMail.h"
#include "hosts/kaz2/ListsFile.h"
#include "win32/Bstr.h"
#include "win32/ComPointer.h"

#include <string>
#include <vector>

namespace kaz {

namespace {

// The list that a scan hands over, read from its first to its last item; they count from 1.
std::vector<std::wstring> TextsOf(const VARIANT& argument) {
    std::vector<std::wstring> texts;
    if (argument.vt != VT_DISPATCH || !argument.pdispVal) return texts;
    const auto collection = ComPointer<IDispatch>(argument.pdispVal).As<IStringCollection>();
    if (!collection) return texts;
    long count = 0;
    collection->get_Count(&count);
    for (long index = 1; index <= count; ++index) {
        Bstr text;
        if (SUCCEEDED(collection->get_Item(index, text.Put()))) texts.emplace_back(text.View());
    }
    return texts;
}

std::wstring_view TextOf(const VARIANT& argument) {
    return argument.vt == VT_BSTR ? View(argument.bstrVal) : std::wstring_view();
}

}  // namespace

HRESULT ComponentSink::QueryInterface(REFIID iid, void** object) {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (iid != IID_IUnknown && iid != IID_IDispatch && iid != DIID_DKazEvents) return E_NOINTERFACE;
    *object = static_cast<IDispatch*>(this);
    AddRef();
    return S_OK;
}

ULONG ComponentSink::Release() {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
}

HRESULT ComponentSink::GetTypeInfoCount(UINT* count) {
    if (!count) return E_POINTER;
    *count = 0;
    return S_OK;
}

HRESULT ComponentSink::Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*, EXCEPINFO*,
                              UINT*) try {
    if (!arguments) return E_POINTER;
    On(event, *arguments);
    return S_OK;
} catch (...) {
    return E_OUTOFMEMORY;
}

void ComponentSink::On(DISPID event, const DISPPARAMS& arguments) {
    const VARIANT* const last = arguments.rgvarg;
    switch (event) {
    case kTodaysEvents:
        if (arguments.cArgs == 1) lists_.Today(TextsOf(last[0]));
        break;
    case kUpcomingEvents:
        if (arguments.cArgs == 1) lists_.ComingUp(TextsOf(last[0]));
        break;
    case kMailEvent:  // its arguments stand in reverse: ToAddr, Subject, MessageText
        if (arguments.cArgs != 3) break;
        lists_.Mail(TextOf(last[2]), TextOf(last[1]), TextOf(last[0]));
        mail_.Send(TextOf(last[2]), TextOf(last[1]), TextOf(last[0]));
        break;
    case kShutDownKAZ:  // the user chose to exit. kClosed needs no answer: the tray icon stays.
        // The component is still in the call that raised this; it is shut down
        // once the message loop has ended.
        PostQuitMessage(0);
        break;
    case kAllEvents:  // the last of a scan
        if (arguments.cArgs == 1) lists_.All(TextOf(last[0]));
        break;
    default: break;
    }
}

}  // namespace kaz
