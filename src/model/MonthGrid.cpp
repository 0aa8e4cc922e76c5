#include "model/MonthGrid.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "base/Utf8.h"
#include "model/Occurrences.h"

#include <algorithm>
#include <optional>

namespace kaz {

namespace {

DateValue FirstOf(int month, int year) {
    if (month < 1 || month > 12) throw RuntimeError(ErrorNumber::InvalidCall);
    return DateValue::FromCivil(year, month, 1);
}

// The calendar's last month has no next one.
int LengthOf(int month, int year) {
    return month == 12 ? 31 : DateValue::FromCivil(year, month + 1, 1).Day() - FirstOf(month, year).Day();
}

}  // namespace

MonthGrid::MonthGrid(int month, int year, DateValue today, bool networked)
    : month_(month),
      year_(year),
      first_(FirstOf(month, year)),
      length_(LengthOf(month, year)),
      offset_(first_.WeekdayFromSunday().number - 1),
      last_(first_.PlusDays(length_ - 1)),
      today_(today.DateOnly()),
      networked_(networked) {}

int MonthGrid::Today() const {
    return today_ < first_ || today_ > last_ ? 0 : today_.Day() - first_.Day() + 1;
}

void MonthGrid::Place(const clsEvent& event, bool isForeign) {
    std::optional<std::uint32_t> kept;
    for (const DateValue day : Occurrences(event, {first_, last_}, today_)) {
        if (!kept) kept = Keep(event, isForeign);
        Enter(day, *kept);
    }
}

std::uint32_t MonthGrid::Keep(const clsEvent& event, bool isForeign) {
    const std::size_t start = texts_.size();
    const std::size_t owner = networked_ ? event.Owner().size() : 0;
    texts_.append(event.DescShown());
    texts_.append(event.Owner(), 0, owner);
    texts_.append(event.IDCode);
    std::replace_if(texts_.begin() + static_cast<std::ptrdiff_t>(start), texts_.end(), IsControl, ' ');
    events_.push_back({start, static_cast<std::uint32_t>(event.DescShown().size()),
                       static_cast<std::uint32_t>(owner),
                       event.AlarmSet() ? event.DueTime().MinuteOfDay() : -1,
                       static_cast<std::uint32_t>(event.IDCode.size()), isForeign});
    return static_cast<std::uint32_t>(events_.size() - 1);
}

void MonthGrid::Enter(DateValue date, std::uint32_t event) {
    days_[static_cast<std::size_t>(date.Day() - first_.Day())].push_back(event);
}

MonthGrid::Entry MonthGrid::At(int day, std::size_t position) const {
    const Text& text = events_[days_[static_cast<std::size_t>(day - 1)][position]];
    const std::string_view all(texts_);
    return {all.substr(text.start, text.description), all.substr(text.start + text.description, text.owner),
            text.minute, all.substr(text.start + text.description + text.owner, text.code), text.isForeign};
}

std::string MonthGrid::LineInBox(int day, std::size_t position) const {
    const Entry entry = At(day, position);
    const std::size_t length = BytesOfLetters(entry.description, kCharactersInBox);
    return std::string(entry.description.substr(0, length)).append(OwnerMark(entry));
}

std::string MonthGrid::FullLine(int day, std::size_t position) const {
    const Entry entry = At(day, position);
    std::string line;
    if (entry.minute >= 0) {
        const auto digits = [](int number) { return (number < 10 ? "0" : "") + std::to_string(number); };
        line = digits(entry.minute / 60) + ":" + digits(entry.minute % 60) + "  ";
    }
    return line.append(entry.description).append(OwnerMark(entry));
}

std::string MonthGrid::OwnerMark(const Entry& entry) const {
    return networked_ ? std::string(" [").append(entry.owner).append("]") : std::string();
}

}  // namespace kaz
