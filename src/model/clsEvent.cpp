#include "model/clsEvent.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "base/Utf8.h"

namespace kaz {

bool clsEvent::NameInShared(std::string_view name, const CaseFolding& folding) const {
    // Kept on purpose: the name is looked for anywhere in the text, so the tail of
    // a listed name counts as listed.
    return folding.Find(ShareNames, std::string(name).append(kLineBreak)) != std::string_view::npos;
}

std::string_view clsEvent::DescShown() const {
    const bool isShort = desc_.size() <= kLongestShown;
    return std::string_view(desc_).substr(0, isShort ? desc_.size() : BytesOfUtf16(desc_, kLongestShown));
}

const EventExtras& clsEvent::Extras() const {
    static const EventExtras kNone;
    return extras_ ? *extras_ : kNone;
}

void clsEvent::Extras(const EventExtras& value) {
    extras_ = value.Empty() ? nullptr : std::make_shared<const EventExtras>(value);
}

void clsEvent::ShareLike(const clsEvent& other) {
    SharedEvent = other.SharedEvent;
    ShareWithSpecific = other.ShareWithSpecific;
    ShareNames = other.ShareNames;
}

RecurrenceRule clsEvent::Rule() const {
    return {recurrenceType_, weekDays_,  dayOfMonth_, monthNumber_,
            period_,         startDate_, dayNumber_,  dayOfWeek_};
}

void clsEvent::CalcNextDueDate(DateValue today, ErrorSink& errors) {
    CalcDueDate(today.DateOnly(), today, errors);
}

void clsEvent::CalcNextAfterDate(DateValue after, DateValue today, ErrorSink& errors) {
    CalcDueDate(after, today, errors);
}

void clsEvent::CalcDueDate(DateValue reference, DateValue today, ErrorSink& errors) {
    MailSent = false;  // for a kind that is not known too, so that a new occurrence can be mailed
    ErrorTrap trap(errors, "CalcDueDate", "clsEvent");
    trap([&] {
        const auto next = NextOccurrence(Rule(), Extras(), reference, today);
        if (!next) return;
        dueDate_ = next->dueDate;
        startDate_ = next->startDate;
    });
}

bool clsEvent::IsOver(DateValue day, DateValue today) const {
    if (!recurring_ || !Extras().lastDay) return false;
    try {
        return !NextOccurrence(Rule(), Extras(), day.DateOnly(), today);
    } catch (const RuntimeError&) {
        return Extras().EndsBefore(day);
    }
}

void clsEvent::CalcDaysLeft(DateValue today) { daysLeft_ = dueDate_.Day() - today.Day(); }

}  // namespace kaz
