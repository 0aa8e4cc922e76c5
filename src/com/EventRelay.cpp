#include "com/EventRelay.h"

#include "Kazlib_h.h"
#include "base/RuntimeError.h"
#include "com/LaterRelease.h"
#include "com/StringCollection.h"
#include "win32/Bstr.h"
#include "win32/Text.h"

#include <array>
#include <new>

namespace kaz {

namespace {

VARIANT Argument(const Bstr& text) {
    VARIANT argument;
    VariantInit(&argument);
    argument.vt = VT_BSTR;
    argument.bstrVal = text.Get();
    return argument;
}

VARIANT Argument(IDispatch* object) {
    VARIANT argument;
    VariantInit(&argument);
    argument.vt = VT_DISPATCH;
    argument.pdispVal = object;
    return argument;
}

Bstr ToBstr(const std::string& text) {
    Bstr wide(ToWide(text));
    if (!wide.Get()) throw std::bad_alloc();
    return wide;
}

}  // namespace

void EventRelay::TestEvent() { Raise(kTestEvent); }

void EventRelay::TodaysEvents(const std::vector<std::string>& todays) { RaiseList(kTodaysEvents, todays); }

void EventRelay::UpcomingEvents(const std::vector<std::string>& upcoming) {
    RaiseList(kUpcomingEvents, upcoming);
}

bool EventRelay::MailEvent(const std::string& toAddr, const std::string& subject,
                           const std::string& messageText) {
    const Bstr to = ToBstr(toAddr), about = ToBstr(subject), text = ToBstr(messageText);
    std::array arguments{Argument(text), Argument(about), Argument(to)};
    const HRESULT result = Raise(kMailEvent, arguments);
    if (FAILED(result)) throw RuntimeError(ErrorNumber::InternalError, "the host failed at it");
    return result == S_OK;
}

void EventRelay::ShutDownKAZ() { Raise(kShutDownKAZ); }

void EventRelay::Closed() { Raise(kClosed); }

void EventRelay::AllEvents(const std::string& strAllEvents) {
    const Bstr text = ToBstr(strAllEvents);
    std::array arguments{Argument(text)};
    Raise(kAllEvents, arguments);
}

// Nobody has to know the event, and what a host does with it is its own matter.
void EventRelay::MissedEvents(std::int32_t missed) {
    VARIANT number;
    VariantInit(&number);
    number.vt = VT_I4;
    number.lVal = missed;
    const LaterRelease alive(component_);
    reminderHosts_.Raise(kMissedEvents, {&number, 1});
}

void EventRelay::RaiseList(DISPID event, const std::vector<std::string>& texts) {
    std::vector<std::wstring> wide;
    wide.reserve(texts.size());
    for (const std::string& text : texts)
        wide.push_back(ToWide(text));
    const auto list = ComPointer<StringCollection>::Adopt(new StringCollection(std::move(wide)));
    std::array arguments{Argument(list.Get())};
    Raise(event, arguments);
}

HRESULT EventRelay::Raise(DISPID event, std::span<VARIANT> arguments) {
    const LaterRelease alive(component_);
    return hosts_.Raise(event, arguments);
}

}  // namespace kaz
