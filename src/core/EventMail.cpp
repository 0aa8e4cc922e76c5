#include "core/EventMail.h"

#include "base/DateText.h"
#include "base/RuntimeError.h"
#include "platform/Locale.h"
#include "reminders/ReminderText.h"

#include <algorithm>
#include <utility>

namespace kaz {

namespace {

// A handler that scans is in the middle of one mail, the handler of the next one in the middle of two. What
// is too deep is asked for when they have returned.
constexpr std::size_t kMostRaised = 16;

struct Raising {
    Raising(std::set<RaisedMail>& all, const RaisedMail& mail) : place(all.insert(mail).first), mails(all) {}
    ~Raising() { mails.erase(place); }
    Raising(const Raising&) = delete;
    Raising& operator=(const Raising&) = delete;

    std::set<RaisedMail>::iterator place;
    std::set<RaisedMail>& mails;
};

// Counted from 1; an event that is not there counts as the one behind the last.
std::size_t NumberOf(const clsEvent& event, const clsDbXml& database) {
    const std::vector<clsEvent>& all = database.AllEvents();
    const auto found =
        std::find_if(all.begin(), all.end(), [&](const clsEvent& one) { return &one == &event; });
    return static_cast<std::size_t>(found - all.begin()) + 1;
}

}  // namespace

std::string EventMail::LineOf(const clsEvent& event, const LocaleData& locale) {
    std::string line = event.Desc();
    return event.AlarmSet() ? line.append(" at ").append(FormatDate(event.DueTime(), "HH:NN", locale)) : line;
}

EventMail::Answer EventMail::Raise(const clsEvent& event, std::size_t number, const std::string& text) {
    // A host can scan while it handles a mail, which is not marked yet.
    const RaisedMail mail{event.IDCode, event.DueDate()};
    if (app_.mailsRaised.size() >= kMostRaised || app_.mailsRaised.contains(mail)) return Answer::NotNow;
    const Raising raising(app_.mailsRaised, mail);
    try {
        const bool taken =
            host_.MailEvent(MailAddresses(event), "KAZ Alert - Event " + std::to_string(number), text);
        return taken ? Answer::Taken : Answer::Nobody;
    } catch (const RuntimeError& error) {
        app_.log.LogEvent("A mail stays to be sent: " + error.Description());
        return Answer::Failed;
    }
}

std::string EventMail::SendMissed(const OccurrenceRef& occurrence) {
    EventSource source = EventSource::Local;
    const clsEvent* event = app_.Missed().EventOf(occurrence, &source);
    if (!event || source == EventSource::Shared || MailAddresses(*event).empty())
        return "This event has no mail any more.";
    const LocaleData& locale = app_.platform.locale.Data();
    const std::string text = LineOf(*event, locale) + " on " + GeneralDateText(occurrence.day, locale);
    const clsDbXml& database = source == EventSource::Local ? *app_.events : *app_.expired;
    switch (Raise(*event, NumberOf(*event, database), text)) {
    case Answer::Taken:
        app_.log.LogEvent("The mail of a missed reminder was handed over: " + text);
        return "";
    case Answer::Nobody:
        app_.log.LogEvent("No program has taken the mail of a missed reminder: " + text);
        return "The mail was not sent: the program that started KAZ sends no mails.";
    case Answer::NotNow:
        app_.log.LogEvent("Another mail is just being sent before that of a missed reminder: " + text);
        return "The mail was not sent: another one is just being sent. Try again when it has gone.";
    case Answer::Failed: break;
    }
    return "The mail was not sent: the program that sends the mails failed at it. The log says more.";
}

}  // namespace kaz
