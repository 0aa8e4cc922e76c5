#include "core/HostLists.h"

#include "base/DateText.h"
#include "base/Text.h"
#include "core/EventMail.h"
#include "platform/Locale.h"
#include "reminders/ReminderText.h"

#include <algorithm>
#include <utility>

namespace kaz {

namespace {

// Padded to four digits, so that a host can sort the lines as text.
std::string FourDigits(std::int32_t number) {
    std::string digits = std::to_string(number < 0 ? -std::int64_t{number} : std::int64_t{number});
    if (digits.size() < 4) digits.insert(0, 4 - digits.size(), '0');
    return number < 0 ? "-" + digits : digits;
}

}  // namespace

HostLists::HostLists(Application& application, ComponentEvents& host)
    : app_(application),
      host_(host),
      visible_(application.settings),
      today_(application.platform.clock.Today()) {
    if (app_.events) AddLocal();
    AddShared();
    // Kept on purpose: an empty day stays an empty list, while an empty outlook is the one line "None".
    if (upcoming.empty()) upcoming.emplace_back("None");
    // A mail that has been asked for must not be asked for again after a crash.
    if (mailed_) app_.events->SaveDB();
}

void HostLists::AddLocal() {
    // By position and with the count read anew, since the host may change the
    // collection while it handles a mail.
    const clsDbXml& events = *app_.events;
    for (std::size_t position = 0; position < events.AllEvents().size(); ++position) {
        const clsEvent& event = events.AllEvents()[position];
        const auto seen = visible_.See(event, EventSource::Local);
        if (!seen || event.ExecFile) continue;
        const std::int32_t daysLeft = seen->DaysLeft(today_);
        if (daysLeft >= 1 && daysLeft <= event.DaysWarning())
            upcoming.push_back(UpcomingLine(daysLeft, event.Desc()));
        AppendLine(*seen, event.Desc());
        if (daysLeft == 0) AddTodays(event, position);
    }
}

void HostLists::AddTodays(const clsEvent& event, std::size_t position) {
    todays.push_back(EventMail::LineOf(event, app_.platform.locale.Data()));
    SendMail(event, position);
}

void HostLists::SendMail(const clsEvent& event, std::size_t position) {
    if (MailAddresses(event).empty() || event.MailSent) return;
    const std::string code = event.IDCode, email = event.Email;
    const DateValue day = event.DueDate();
    const EventMail::Answer answer = EventMail(app_, host_).Raise(event, position + 1, todays.back());
    if (answer == EventMail::Answer::Failed || answer == EventMail::Answer::NotNow) return;
    mailed_ = true;
    Mark(code, day, email);
}

// Only behind the mail, so that one which a handler failed to take is asked for again. The host may have run
// anything in between: the event can be gone by now, or changed so that another mail is due.
void HostLists::Mark(const std::string& code, DateValue day, const std::string& email) {
    app_.events->ChangeEvents([&](std::vector<clsEvent>& events) {
        const auto sent = std::find_if(events.begin(), events.end(), [&](const clsEvent& event) {
            return event.IDCode == code && event.DueDate() == day && event.Email == email && !event.MailSent;
        });
        if (sent != events.end()) sent->MailSent = true;
    });
}

void HostLists::AddShared() {
    visible_.ForEach(app_.shared.get(), EventSource::Shared, [this](const VisibleEvent& seen) {
        if (seen.event.ExecFile) return;
        if (seen.due == today_) todays.push_back(seen.event.Desc());
        AppendLine(seen, seen.event.Desc() + " [Shared]");
    });
}

void HostLists::AppendLine(const VisibleEvent& seen, const std::string& description) {
    all += FourDigits(seen.DaysLeft(today_));
    all += ',';
    all += GeneralDateText(seen.due, app_.platform.locale.Data());
    all += ',';
    all += ReplaceAll(description, kLineBreak, " ");
    all += kLineBreak;
}

}  // namespace kaz
