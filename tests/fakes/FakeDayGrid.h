#pragma once

#include "forms/DayGrid.h"

#include <string>
#include <vector>

namespace kaz {

// A grid of days without a screen.
class FakeDayGrid : public DayGrid {
public:
    void SetDays(const DayBoxes* days) override {
        cursor_.SetDays(days);
        Refresh();
    }
    void Refresh() override { cursor_.Refresh(); }
    int Selected() const override { return cursor_.Selected(); }
    void Select(int box) override { cursor_.Select(box); }
    int OpenedLine() const override { return openedLine; }

    int openedLine = kWholeDay;

    // What the user would see in the box.
    std::vector<std::string> Lines(int box) const {
        std::vector<std::string> lines;
        for (int line = 0; line < cursor_.Days()->Box(box).lines; ++line)
            lines.push_back(cursor_.Days()->Line(box, line));
        return lines;
    }
    const DayBoxes& Days() const { return *cursor_.Days(); }
    DayCursor& Cursor() { return cursor_; }

private:
    DayCursor cursor_;
};

}  // namespace kaz
