#pragma once

#include "forms/DayGrid.h"

#include <windows.h>

namespace kaz {

// Where the boxes of a grid of days are in its window, in pixels.
class DayGridPlaces {
public:
    // `header`: the height of the line with the names of the days.
    DayGridPlaces(SIZE size, int header) : size_(size), header_(header) {}

    // Of the lowest row.
    int RowHeight() const { return (static_cast<int>(size_.cy) - header_) / DayBoxes::kRows; }
    RECT Column(int column) const { return {Left(column), 0, Left(column + 1), header_}; }
    RECT Box(int box) const;
    // -1 outside.
    int BoxAt(POINT point) const;

private:
    int Left(int column) const { return static_cast<int>(size_.cx) * column / DayBoxes::kColumns; }
    int Top(int row) const {
        return header_ + (static_cast<int>(size_.cy) - header_) * row / DayBoxes::kRows;
    }
    SIZE size_;
    int header_;
};

struct DayGridLook {
    HFONT font = nullptr;
    HFONT boldFont = nullptr;
    int lineHeight = 1;
    int gap = 1;    // between an edge and a text
    int frame = 1;  // the width of the selected day's frame
    int selected = -1;
    bool focused = false;
};

// The lines of a day in its box, in pixels: where the first one stands, and how many have room. All rows have
// room for as many.
struct DayLines {
    DayLines(const RECT& box, int rowHeight, const DayGridLook& look, int lines);
    // Which one is there: counted from 0, or as DayGrid::OpenedLine tells it.
    int At(int y) const;

    int top;
    int lineHeight;
    int count;
    int shown;     // of `count`
    bool hasMore;  // a word of the others stands below them
};

// Paints a grid of days: whole boxes that touch `dirty`, in the system's colours.
class DayGridPainter {
public:
    DayGridPainter(HDC device, const DayBoxes& days, const DayGridPlaces& places, const DayGridLook& look);

    void Paint(const RECT& dirty) const;

private:
    void PaintNames() const;
    void PaintBox(int box) const;
    void PaintNumber(RECT place, const DayBox& box) const;
    void PaintLines(RECT place, int box, int count) const;
    void Fill(const RECT& place, COLORREF colour) const;
    void Frame(RECT place, COLORREF colour, int width) const;
    void Write(RECT place, const std::string& text, COLORREF colour, UINT format) const;
    // A colour between two of the system's; in high contrast the first one, which alone is sure to be read.
    COLORREF Between(int one, int other, int percent) const;

    HDC device_;
    const DayBoxes& days_;
    const DayGridPlaces& places_;
    const DayGridLook& look_;
    bool highContrast_;
};

}  // namespace kaz
