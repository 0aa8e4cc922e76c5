#include "core/MovedEvents.h"

#include "model/Occurrences.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <tuple>
#include <utility>

namespace kaz {

namespace {

bool SameSeries(const clsEvent& a, const clsEvent& b) {
    const auto rule = [](const clsEvent& event) {
        const RecurrenceRule r = event.Rule();
        return std::tuple(event.Recurring(), r.type, r.weekDays, r.dayOfMonth, r.monthNumber, r.period,
                          r.dayNumber, r.dayOfWeek);
    };
    return rule(a) == rule(b);
}

}  // namespace

int MovedEvents::PutBack(const std::vector<clsEvent>& eventsBefore,
                         const std::vector<clsEvent>& expiredBefore, DateValue wrongDay) {
    std::map<std::string_view, const clsEvent*> before;
    for (const clsEvent& event : eventsBefore)
        before.emplace(event.IDCode, &event);
    int count = 0;
    events_.ChangeEach([&](clsEvent& event) {
        if (event.Deleted || !event.Recurring()) return;
        const auto known = before.find(event.IDCode);
        const bool setBack = known != before.end() && SetBack(event, *known->second);
        if (setBack || BringNear(event, wrongDay)) ++count;
    });
    return count + Revive(expiredBefore);
}

// Only when the program itself can have moved it on: to a later day of the same series.
bool MovedEvents::SetBack(clsEvent& event, const clsEvent& before) const {
    if (event.DueDate() <= before.DueDate() || !SameSeries(event, before)) return false;
    if (Occurrences(before, {event.DueDate(), event.DueDate()}, event.DueDate()).Empty()) return false;
    event.DueDate(before.DueDate());
    event.StartDate(before.StartDate());
    event.MailSent = before.MailSent;
    return true;
}

// An event that was added while the date was wrong, or given another rule: left where that date put it, it
// would be silent for years.
bool MovedEvents::BringNear(clsEvent& event, DateValue wrongDay) const {
    if (wrongDay <= lastRightDay_ || event.DueDate() < wrongDay) return false;
    const DateValue was = event.DueDate();
    if (event.RecurrenceType() == RecurEveryNDays || event.RecurrenceType() == RecurEveryNWeeks) {
        const int step = event.Period() * (event.RecurrenceType() == RecurEveryNWeeks ? 7 : 1);
        if (step <= 0) return false;
        event.StartDate(was.PlusDays(-(was.Day() - lastRightDay_.Day()) / step * step));
    } else if (event.RecurrenceType() == RecurEveryNMonths) {
        if (event.Period() <= 0) return false;
        const CivilDate to = was.Civil();
        const CivilDate near = lastRightDay_.Civil();
        const int months = (to.year - near.year) * 12 + to.month - near.month;
        event.StartDate(
            DateValue::FromCivil(to.year, to.month - months / event.Period() * event.Period(), to.day));
    }
    event.CalcNextDueDate(lastRightDay_, errors_);
    return event.DueDate() != was;
}

// What was not due before the date went wrong cannot have expired rightly before it is looked at again.
int MovedEvents::Revive(const std::vector<clsEvent>& expiredBefore) {
    std::map<std::string_view, const clsEvent*> before;
    for (const clsEvent& event : expiredBefore)
        before.emplace(event.IDCode, &event);
    int count = 0;
    const auto revive = [&](clsEvent& event) {
        const auto known = before.find(event.IDCode);
        const bool wasThere = known != before.end() && known->second->DueDate() == event.DueDate() &&
                              known->second->Desc() == event.Desc();
        if (event.Deleted || wasThere || event.DueDate() < lastRightDay_) return false;
        events_.StoreRecord(event, events_.ReadEvent(event.IDCode) != nullptr);
        ++count;
        return true;
    };
    expired_.ChangeEvents([&](std::vector<clsEvent>& expired) { std::erase_if(expired, revive); });
    return count;
}

}  // namespace kaz
