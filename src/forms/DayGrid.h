#pragma once

#include <string>

namespace kaz {

// One box of a grid of days.
struct DayBox {
    int day = 0;  // 0: an empty box
    int lines = 0;
    bool today = false;
};

// What a grid of days shows. Boxes count from 0 row by row, columns from 0 for Sunday. The grid asks only for
// the lines that it paints.
class DayBoxes {
public:
    static constexpr int kColumns = 7;
    static constexpr int kRows = 6;
    static constexpr int kBoxes = kColumns * kRows;

    virtual ~DayBoxes() = default;
    virtual std::string ColumnName(int column) const = 0;
    virtual DayBox Box(int box) const noexcept = 0;
    virtual std::string Line(int box, int line) const = 0;
    // The day with all that is on it in lines, for the pointer resting on it and for screen readers.
    virtual std::string WholeDay(int box) const = 0;
};

// A calendar sheet that one window paints. One day at a time is selected, by mouse or keyboard; what the user
// does is raised as Select, as DoubleClick (Enter too) and as LeadsOut, when a key leads out of the sheet.
class DayGrid {
public:
    virtual ~DayGrid() = default;
    // The days are not owned and must live as long as the window or until replaced.
    // Call Refresh after every change.
    virtual void SetDays(const DayBoxes* days) = 0;
    // Repaints; a selected box that is no day any more gives way to the nearest day.
    virtual void Refresh() = 0;
    virtual int Selected() const = 0;  // -1 when there are no days
    // Ignores a box that is no day.
    virtual void Select(int box) = 0;

    static constexpr int kWholeDay = -1;
    static constexpr int kNoLine = -2;
    // What the last DoubleClick was on: a line of the day, counted from 0; kNoLine for the rest of its box;
    // kWholeDay for a key, and for the word of lines that have no room.
    virtual int OpenedLine() const = 0;
};

enum class DayKey { Left, Right, Up, Down, First, Last };

// The selected box of a grid of days, and what the keys do to it: the half of
// the control that needs no window.
class DayCursor {
public:
    void SetDays(const DayBoxes* days) { days_ = days; }
    const DayBoxes* Days() const { return days_; }
    void Refresh();
    int Selected() const { return selected_; }
    // Whether that box is selected now.
    bool Select(int box);
    // 0 when the key led to a day of the sheet, else by how many days it leads away from the selected one.
    int Press(DayKey key);
    bool IsDay(int box) const;

private:
    int Nearest(int box) const;

    const DayBoxes* days_ = nullptr;
    int selected_ = -1;
};

}  // namespace kaz
