#pragma once

#include "model/clsEvent.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kaz {

// One calendar month as six weeks of seven boxes, Sunday to Saturday, and the events of each of its days in
// the order of their placing. It works on copies of the dates and keeps copies of the texts: looking ahead
// changes no event, and the grid outlives the collection it came from. Line breaks and tabs in texts have
// become blanks, one for each.
class MonthGrid {
public:
    static constexpr int kColumns = 7;
    static constexpr int kRows = 6;
    static constexpr int kBoxes = kColumns * kRows;
    // So much of a description stands in a box, that several events fit.
    static constexpr std::size_t kCharactersInBox = 12;

    struct Entry {
        std::string_view description;
        std::string_view owner;
        int minute = -1;  // of the day, for an event with an alarm
        std::string_view code;
        bool isForeign = false;
    };

    // `month` is 1 to 12, `year` 100 to 9999; throws InvalidCall otherwise. `today` is the clock's day.
    // `networked`: owners are shown.
    MonthGrid(int month, int year, DateValue today, bool networked);

    // Enters the event on every day of the month that it falls on. A rule that names no day, or none any
    // more, is entered nowhere and reported to nobody: it was when the program started.
    // `isForeign`: it belongs to another user.
    void Place(const clsEvent& event, bool isForeign = false);
    Entry At(int day, std::size_t position) const;

    int Month() const { return month_; }
    int Year() const { return year_; }
    DateValue First() const { return first_; }
    // The number of days.
    int Length() const { return length_; }
    DateValue DateOf(int day) const { return first_.PlusDays(day - 1); }
    // Boxes count from 0 row by row, days from 1.
    int BoxOf(int day) const { return day - 1 + offset_; }
    // 0 for a box before or behind the month.
    int DayIn(int box) const { return box < offset_ || box >= offset_ + length_ ? 0 : box - offset_ + 1; }
    // The day of today, 0 when it is in another month.
    int Today() const;

    // `day` is 1 to Length(), `position` less than its Count().
    std::size_t Count(int day) const { return days_[static_cast<std::size_t>(day - 1)].size(); }
    // The beginning of the description and, in a network, the owner in square brackets.
    std::string LineInBox(int day, std::size_t position) const;
    // The description whole, with the owner in a network and behind the time of its alarm: for the eye.
    std::string FullLine(int day, std::size_t position) const;

private:
    struct Text {
        std::size_t start = 0;  // in texts_: the description, then the owner, then the code
        std::uint32_t description = 0;
        std::uint32_t owner = 0;
        int minute = -1;
        std::uint32_t code = 0;
        bool isForeign = false;
    };
    std::uint32_t Keep(const clsEvent& event, bool isForeign);
    void Enter(DateValue date, std::uint32_t event);
    std::string OwnerMark(const Entry& entry) const;

    int month_;
    int year_;
    DateValue first_;
    int length_;
    int offset_;  // of the box of day 1
    DateValue last_;
    DateValue today_;
    bool networked_;
    std::array<std::vector<std::uint32_t>, 31> days_;  // positions in events_
    std::vector<Text> events_;                         // each once, however often it falls
    std::string texts_;
};

}  // namespace kaz
