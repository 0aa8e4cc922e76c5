#pragma once

#include "com/ConnectionPoint.h"
#include "core/ComponentEvents.h"

namespace kaz {

// Hands what the component raises on to the connected hosts.
class EventRelay final : public ComponentEvents {
public:
    // `component` is the COM object that the events come from; the others are its parts, the second one for
    // hosts that want to hear of its reminders.
    EventRelay(IUnknown& component, ConnectionPoint& hosts, ConnectionPoint& reminderHosts)
        : component_(component),
          hosts_(hosts),
          reminderHosts_(reminderHosts) {}

    void TestEvent() override;
    void TodaysEvents(const std::vector<std::string>& todays) override;
    void UpcomingEvents(const std::vector<std::string>& upcoming) override;
    bool MailEvent(const std::string& toAddr, const std::string& subject,
                   const std::string& messageText) override;
    void ShutDownKAZ() override;
    void Closed() override;
    void AllEvents(const std::string& strAllEvents) override;
    void MissedEvents(std::int32_t missed) override;

private:
    HRESULT Raise(DISPID event, std::span<VARIANT> arguments = {});
    void RaiseList(DISPID event, const std::vector<std::string>& texts);

    IUnknown& component_;
    ConnectionPoint& hosts_;
    ConnectionPoint& reminderHosts_;
};

}  // namespace kaz
