#pragma once

#include "base/CaseFolding.h"
#include "base/DateValue.h"
#include "base/ErrorTrap.h"
#include "model/EventExtras.h"
#include "model/Recurrence.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace kaz {

// One reminder event: plain values and the rule that computes its next date. Setters store what they are
// given; checking belongs to the editor.
class clsEvent {
public:
    std::string IDCode;
    bool ExecFile = false;
    std::string Filename;
    std::string WavFile;
    bool PlayWav = false;
    std::string SharedLayerName;
    bool ShareWithSpecific = false;
    std::string ShareNames;  // each name followed by CR LF
    bool MailSent = false;
    std::string Email;  // addresses separated by ";"
    bool SharedEvent = false;
    bool Deleted = false;
    // Which of the users whose files its database read this came from, counted from 1; 0 is a file that the
    // database reads alone. Not saved, and unlike Owner nothing that the file itself can say.
    std::int32_t Source = 0;

    // Whether the name followed by a line break stands anywhere in ShareNames, letter case aside.
    bool NameInShared(std::string_view name, const CaseFolding& folding = CaseFolding::Letters()) const;

    // The event time less MinutesWarning; compared to the minute with the clock.
    DateValue AlarmTime() const { return alarmTime_; }
    void AlarmTime(DateValue value) { alarmTime_ = value; }
    const std::string& Owner() const { return owner_; }
    void Owner(std::string value) { owner_ = std::move(value); }
    // Category, 0 to 20.
    std::int16_t Layer() const { return layer_; }
    void Layer(std::int16_t value) { layer_ = value; }
    std::int32_t DaysLeft() const { return daysLeft_; }
    void DaysLeft(std::int32_t value) { daysLeft_ = value; }
    // Months, weeks or days between two occurrences.
    std::int16_t Period() const { return period_; }
    void Period(std::int16_t value) { period_ = value; }
    DateValue StartDate() const { return startDate_; }
    void StartDate(DateValue value) { startDate_ = value.DateOnly(); }
    std::int16_t DayOfWeek() const { return dayOfWeek_; }  // Sunday = 1
    void DayOfWeek(std::int16_t value) { dayOfWeek_ = value; }
    std::int16_t Daynumber() const { return dayNumber_; }  // 1 to 4, 5 for the last
    void Daynumber(std::int16_t value) { dayNumber_ = value; }
    std::int16_t MonthNumber() const { return monthNumber_; }
    void MonthNumber(std::int16_t value) { monthNumber_ = value; }
    std::int16_t DayOfMonth() const { return dayOfMonth_; }
    void DayOfMonth(std::int16_t value) { dayOfMonth_ = value; }
    // Bits 2 to 128 for Monday to Sunday.
    std::int16_t WeekDays() const { return weekDays_; }
    void WeekDays(std::int16_t value) { weekDays_ = value; }
    bool AlarmSet() const { return alarmSet_; }
    void AlarmSet(bool value) { alarmSet_ = value; }
    std::int32_t RecurrenceType() const { return recurrenceType_; }
    void RecurrenceType(std::int32_t value) { recurrenceType_ = value; }
    std::int16_t MinutesWarning() const { return minutesWarning_; }
    void MinutesWarning(std::int16_t value) { minutesWarning_ = value; }
    std::int16_t DaysWarning() const { return daysWarning_; }
    void DaysWarning(std::int16_t value) { daysWarning_ = value; }
    // Repeats for ever; otherwise the event is shown once and expires.
    bool Recurring() const { return recurring_; }
    void Recurring(bool value) { recurring_ = value; }
    const std::string& Desc() const { return desc_; }
    void Desc(std::string value) { desc_ = std::move(value); }
    // The longest description that the user can type, and as much of a longer one as windows show, in letters
    // as Windows counts them. A file can hold any length, and a window that is given some millions of
    // characters does not answer any more.
    static constexpr std::size_t kLongestShown = 100'000;
    std::string_view DescShown() const;
    bool IsDescCut() const { return DescShown().size() < desc_.size(); }
    DateValue DueTime() const { return dueTime_; }
    void DueTime(DateValue value) { dueTime_ = value; }
    DateValue DueDate() const { return dueDate_; }
    void DueDate(DateValue value) { dueDate_ = value.DateOnly(); }

    // What it has beside the fields of its file; copies of the event share it.
    const EventExtras& Extras() const;
    void Extras(const EventExtras& value);

    // Takes over with whom the other event is shared.
    void ShareLike(const clsEvent& other);

    // What decides its days.
    RecurrenceRule Rule() const;

    // Sets DueDate to the first occurrence on or after today that happens (for the interval rules StartDate
    // too) and clears MailSent. `today` is the clock's day. Behind the end of the series the dates stay as
    // they were; a rule that cannot be computed is reported as one error and leaves them, too.
    void CalcNextDueDate(DateValue today, ErrorSink& errors);
    // Counted from `after`, whose time of day counts for the day-of-month rule.
    void CalcNextAfterDate(DateValue after, DateValue today, ErrorSink& errors);
    // Whether its series has an end and no occurrence from `day` on: it expires like a single event then.
    bool IsOver(DateValue day, DateValue today) const;
    // Sets DaysLeft: 0 today, 1 tomorrow, negative when overdue.
    void CalcDaysLeft(DateValue today);

private:
    void CalcDueDate(DateValue reference, DateValue today, ErrorSink& errors);

    std::string desc_;
    std::string owner_;
    DateValue alarmTime_;
    DateValue startDate_;
    DateValue dueTime_;
    DateValue dueDate_;
    std::int32_t daysLeft_ = 0;
    std::int32_t recurrenceType_ = 0;
    std::int16_t layer_ = 0;
    std::int16_t period_ = 0;
    std::int16_t dayOfWeek_ = 0;
    std::int16_t dayNumber_ = 0;
    std::int16_t monthNumber_ = 0;
    std::int16_t dayOfMonth_ = 0;
    std::int16_t weekDays_ = 0;
    std::int16_t minutesWarning_ = 0;
    std::int16_t daysWarning_ = 0;
    bool alarmSet_ = false;
    bool recurring_ = false;
    std::shared_ptr<const EventExtras> extras_;  // null for the many that have none
};

}  // namespace kaz
