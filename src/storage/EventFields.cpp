#include "storage/EventFields.h"

#include "base/CodePage.h"
#include "base/DateText.h"
#include "base/Numbers.h"
#include "base/Utf8.h"
#include "storage/cSharedHTML.h"

#include <charconv>

namespace kaz {

std::string FieldText::Text() const { return CodePage::OfSystem().Decode(text_); }

std::string FieldText::Decoded() const {
    std::string bytes = cSharedHTML::HtmlDecode(text_);
    return IsAscii(bytes) ? bytes : CodePage::OfSystem().Decode(bytes);
}

std::int16_t FieldText::Int16() const { return TextToInt16(text_); }

std::int32_t FieldText::Int32() const { return TextToInt32(text_); }

DateValue FieldText::Date() const {
    return IsAscii(text_) ? TextToDate(text_, locale_) : TextToDate(Text(), locale_);
}

void FieldWriter::Text(std::string_view value) {
    std::string room;
    text_.append(CodePage::OfSystem().BytesOf(value, room));
}

void FieldWriter::Name(std::string_view value) {
    std::string room;
    text_.append(CodePage::OfSystem().BytesOf(value, room, CodePage::Otherwise::QuestionMark));
}

void FieldWriter::Encoded(std::string_view value) {
    std::string room;
    cSharedHTML::AppendEncoded(text_, CodePage::OfSystem().BytesOf(value, room));
}

void FieldWriter::Number(std::int32_t value) {
    std::array<char, 12> digits{};
    const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    text_.append(digits.data(), written.ptr);
}

void FieldWriter::Date(DateValue value) { AppendIsoDate(text_, value); }

void FieldWriter::DateTime(DateValue value) { AppendIsoDateTime(text_, value); }

namespace {

using E = clsEvent;
using Tag = std::string_view;

// The kinds of fields: how the property (or the plain member) is written and read back.
// Members have names of their own, since the compiler for Windows (GCC 12)
// breaks down over overloads of the two.

template <std::string E::*Member>
constexpr EventField PlainText(Tag tag) {
    return {tag, [](const E& event, FieldWriter to) { to.Text(event.*Member); },
            [](E& event, const FieldText& from) { event.*Member = from.Text(); }};
}

template <std::string E::*Member>
constexpr EventField PlainName(Tag tag) {
    return {tag, [](const E& event, FieldWriter to) { to.Name(event.*Member); },
            [](E& event, const FieldText& from) { event.*Member = from.Text(); }};
}

template <const std::string& (E::*Get)() const, void (E::*Set)(std::string)>
constexpr EventField Text(Tag tag) {
    return {tag, [](const E& event, FieldWriter to) { to.Text((event.*Get)()); },
            [](E& event, const FieldText& from) { (event.*Set)(from.Text()); }};
}

template <std::string E::*Member>
constexpr EventField PlainEncoded(Tag tag) {
    return {tag, [](const E& event, FieldWriter to) { to.Encoded(event.*Member); },
            [](E& event, const FieldText& from) { event.*Member = from.Decoded(); }};
}

template <const std::string& (E::*Get)() const, void (E::*Set)(std::string)>
constexpr EventField Encoded(Tag tag) {
    return {tag, [](const E& event, FieldWriter to) { to.Encoded((event.*Get)()); },
            [](E& event, const FieldText& from) { (event.*Set)(from.Decoded()); }};
}

template <bool E::*Member>
constexpr EventField PlainFlag(Tag tag) {
    return {tag, [](const E& event, FieldWriter to) { to.Flag(event.*Member); },
            [](E& event, const FieldText& from) { event.*Member = from.Flag(); }};
}

template <bool (E::*Get)() const, void (E::*Set)(bool)>
constexpr EventField Flag(Tag tag) {
    return {tag, [](const E& event, FieldWriter to) { to.Flag((event.*Get)()); },
            [](E& event, const FieldText& from) { (event.*Set)(from.Flag()); }};
}

template <std::int16_t (E::*Get)() const, void (E::*Set)(std::int16_t)>
constexpr EventField Int16(Tag tag) {
    return {tag, [](const E& event, FieldWriter to) { to.Number((event.*Get)()); },
            [](E& event, const FieldText& from) { (event.*Set)(from.Int16()); }};
}

template <std::int32_t (E::*Get)() const, void (E::*Set)(std::int32_t)>
constexpr EventField Int32(Tag tag) {
    return {tag, [](const E& event, FieldWriter to) { to.Number((event.*Get)()); },
            [](E& event, const FieldText& from) { (event.*Set)(from.Int32()); }};
}

// The setter keeps the date part.
template <DateValue (E::*Get)() const, void (E::*Set)(DateValue)>
constexpr EventField Date(Tag tag) {
    return {tag, [](const E& event, FieldWriter to) { to.Date((event.*Get)()); },
            [](E& event, const FieldText& from) { (event.*Set)(from.Date()); }};
}

// A date and a time without its seconds; a pure time stands in the file with the date of day zero.
template <DateValue (E::*Get)() const, void (E::*Set)(DateValue)>
constexpr EventField DateTime(Tag tag) {
    return {tag, [](const E& event, FieldWriter to) { to.DateTime((event.*Get)()); },
            [](E& event, const FieldText& from) { (event.*Set)(from.Date()); }};
}

// Kept on purpose: searched by another spelling than it is written with; the
// search has no regard to letter case.
constexpr EventField SearchedAs(Tag searchedTag, EventField field) {
    field.searchedTag = searchedTag;
    return field;
}

constexpr std::array<EventField, kEventFieldCount> kFields{{
    PlainText<&E::IDCode>("IDCode"),
    Flag<&E::AlarmSet, &E::AlarmSet>("AlarmSet"),
    DateTime<&E::AlarmTime, &E::AlarmTime>("AlarmTime"),
    SearchedAs("Daynumber", Int16<&E::Daynumber, &E::Daynumber>("DayNumber")),
    Int16<&E::DayOfMonth, &E::DayOfMonth>("DayOfMonth"),
    Int16<&E::DayOfWeek, &E::DayOfWeek>("DayOfWeek"),
    Int32<&E::DaysLeft, &E::DaysLeft>("DaysLeft"),
    Int16<&E::DaysWarning, &E::DaysWarning>("DaysWarning"),
    PlainFlag<&E::Deleted>("Deleted"),
    PlainFlag<&E::MailSent>("MailSent"),
    Encoded<&E::Desc, &E::Desc>("Desc"),
    Date<&E::DueDate, &E::DueDate>("DueDate"),
    DateTime<&E::DueTime, &E::DueTime>("DueTime"),
    Int16<&E::Layer, &E::Layer>("Layer"),
    PlainText<&E::SharedLayerName>("SharedLayerName"),
    PlainName<&E::Email>("Email"),
    Int16<&E::MinutesWarning, &E::MinutesWarning>("MinutesWarning"),
    Int16<&E::MonthNumber, &E::MonthNumber>("MonthNumber"),
    Text<&E::Owner, &E::Owner>("Owner"),
    Int16<&E::Period, &E::Period>("Period"),
    Int32<&E::RecurrenceType, &E::RecurrenceType>("RecurrenceType"),
    Flag<&E::Recurring, &E::Recurring>("Recurring"),
    Date<&E::StartDate, &E::StartDate>("StartDate"),
    Int16<&E::WeekDays, &E::WeekDays>("WeekDays"),
    PlainFlag<&E::SharedEvent>("SharedEvent"),
    PlainFlag<&E::ExecFile>("ExecFile"),
    PlainName<&E::Filename>("Filename"),
    PlainName<&E::WavFile>("WavFile"),
    PlainFlag<&E::PlayWav>("PlayWav"),
    PlainFlag<&E::ShareWithSpecific>("ShareWithSpecific"),
    PlainEncoded<&E::ShareNames>("ShareNames"),
}};

}  // namespace

const std::array<EventField, kEventFieldCount>& EventFields() { return kFields; }

}  // namespace kaz
