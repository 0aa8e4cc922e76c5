#include "storage/EventDigest.h"

#include "base/CodePage.h"
#include "storage/ContentHash.h"

#include <initializer_list>
#include <string>

namespace kaz {

namespace {

// To the minute, as the file has it.
std::uint64_t Moment(DateValue time) {
    return (static_cast<std::uint64_t>(static_cast<std::uint32_t>(time.Day())) << 32U) |
           static_cast<std::uint32_t>(time.MinuteOfDay());
}

std::uint64_t Number(std::int32_t value) { return static_cast<std::uint32_t>(value); }

std::uint64_t WordsOf(const clsEvent& event) {
    ContentHash hash;
    std::string room;
    std::uint64_t flags = 0;
    for (const bool flag : {event.AlarmSet(), event.Recurring(), event.SharedEvent, event.ExecFile,
                            event.PlayWav, event.ShareWithSpecific})
        flags = flags * 2 + (flag ? 1 : 0);
    hash.Add(flags);
    for (const std::int32_t value :
         {std::int32_t{event.Daynumber()}, std::int32_t{event.DayOfMonth()}, std::int32_t{event.DayOfWeek()},
          std::int32_t{event.DaysWarning()}, std::int32_t{event.Layer()},
          std::int32_t{event.MinutesWarning()}, std::int32_t{event.MonthNumber()},
          std::int32_t{event.Period()}, event.RecurrenceType(), std::int32_t{event.WeekDays()}})
        hash.Add(Number(value));
    hash.Add(Moment(event.AlarmTime()));
    hash.Add(Moment(event.DueTime()));
    const auto add = [&](const std::string& text, CodePage::Otherwise otherwise) {
        const std::string_view bytes = CodePage::OfSystem().BytesOf(text, room, otherwise);
        hash.Add(bytes.size());
        hash.Add(bytes);
    };
    add(event.Desc(), CodePage::Otherwise::Nearest);
    add(event.SharedLayerName, CodePage::Otherwise::Nearest);
    add(event.Email, CodePage::Otherwise::QuestionMark);
    add(event.Owner(), CodePage::Otherwise::Nearest);
    add(event.Filename, CodePage::Otherwise::QuestionMark);
    add(event.WavFile, CodePage::Otherwise::QuestionMark);
    add(event.ShareNames, CodePage::Otherwise::Nearest);
    return hash.Value();
}

std::uint64_t DatesOf(const clsEvent& event) {
    ContentHash hash;
    hash.Add(Moment(event.DueDate()));
    hash.Add(Moment(event.StartDate()));
    hash.Add(event.MailSent ? 1U : 0U);
    return hash.Value();
}

}  // namespace

EventDigest::EventDigest(const clsEvent& event) : words(WordsOf(event)), dates(DatesOf(event)) {}

}  // namespace kaz
