#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace kaz {

// What the component raises to its host, in declaration order; the position (from 1) is the event's number in
// its interface. Raised synchronously on the thread of the call.
class ComponentEvents {
public:
    virtual ~ComponentEvents() = default;
    virtual void TestEvent() = 0;  // declared for hosts that test their connection; never raised
    virtual void TodaysEvents(const std::vector<std::string>& todays) = 0;
    virtual void UpcomingEvents(const std::vector<std::string>& upcoming) = 0;
    // False when no host took it. Throws InternalError when one failed at the mail and no other took it.
    virtual bool MailEvent(const std::string& toAddr, const std::string& subject,
                           const std::string& messageText) = 0;
    virtual void ShutDownKAZ() = 0;
    virtual void Closed() = 0;
    virtual void AllEvents(const std::string& strAllEvents) = 0;

    // The first one of the second interface, which a host need not know: so many events fell due and wait for
    // an answer now.
    virtual void MissedEvents(std::int32_t missed) = 0;
};

}  // namespace kaz
