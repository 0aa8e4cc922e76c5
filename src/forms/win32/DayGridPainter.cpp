#include "forms/win32/DayGridPainter.h"

#include "forms/win32/HighContrast.h"
#include "win32/Text.h"

#include <algorithm>

namespace kaz {

namespace {

bool IsWeekend(int box) {
    const int column = box % DayBoxes::kColumns;
    return column == 0 || column == DayBoxes::kColumns - 1;
}

}  // namespace

RECT DayGridPlaces::Box(int box) const {
    const int row = box / DayBoxes::kColumns;
    const int column = box % DayBoxes::kColumns;
    return {Left(column), Top(row), Left(column + 1), Top(row + 1)};
}

int DayGridPlaces::BoxAt(POINT point) const {
    for (int box = 0; box < DayBoxes::kBoxes; ++box)
        if (const RECT place = Box(box); PtInRect(&place, point)) return box;
    return -1;
}

DayLines::DayLines(const RECT& box, int rowHeight, const DayGridLook& look, int lines)
    : top(static_cast<int>(box.top) + look.lineHeight + 3 * look.gap + 1),
      lineHeight(look.lineHeight),
      count(lines) {
    const int room = (rowHeight - 1 - look.lineHeight - 3 * look.gap) / look.lineHeight;
    shown = std::max(count <= room ? count : room - 1, 0);
    hasMore = shown < count && room > 0;
}

int DayLines::At(int y) const {
    const int line = (y - top) / lineHeight;
    if (y < top || line > shown) return DayGrid::kNoLine;
    if (line < shown) return line;
    return hasMore ? DayGrid::kWholeDay : DayGrid::kNoLine;
}

DayGridPainter::DayGridPainter(HDC device, const DayBoxes& days, const DayGridPlaces& places,
                               const DayGridLook& look)
    : device_(device),
      days_(days),
      places_(places),
      look_(look),
      highContrast_(IsHighContrast()) {}

void DayGridPainter::Paint(const RECT& dirty) const {
    SetBkMode(device_, TRANSPARENT);
    RECT both{};
    const RECT names = places_.Column(0);
    if (dirty.top < names.bottom) PaintNames();
    for (int box = 0; box < DayBoxes::kBoxes; ++box)
        if (const RECT place = places_.Box(box); IntersectRect(&both, &place, &dirty)) PaintBox(box);
}

void DayGridPainter::PaintNames() const {
    SelectObject(device_, look_.font);
    for (int column = 0; column < DayBoxes::kColumns; ++column) {
        const RECT place = places_.Column(column);
        Fill(place, GetSysColor(COLOR_BTNFACE));
        Write(place, days_.ColumnName(column), GetSysColor(COLOR_BTNTEXT), DT_CENTER | DT_VCENTER);
    }
}

void DayGridPainter::PaintBox(int box) const {
    const DayBox day = days_.Box(box);
    RECT place = places_.Box(box);
    // Each box draws its upper and left line; the outermost ones are the control's border.
    Fill(place, highContrast_ ? GetSysColor(COLOR_WINDOWTEXT) : Between(COLOR_WINDOW, COLOR_WINDOWTEXT, 22));
    ++place.top;
    if (box % DayBoxes::kColumns != 0) ++place.left;
    if (day.day == 0) {
        Fill(place, GetSysColor(COLOR_BTNFACE));
        return;
    }
    Fill(place, IsWeekend(box) ? Between(COLOR_WINDOW, COLOR_HIGHLIGHT, 8) : GetSysColor(COLOR_WINDOW));
    PaintNumber(place, day);
    PaintLines(place, box, day.lines);
    if (box == look_.selected)
        Frame(place, GetSysColor(look_.focused ? COLOR_HIGHLIGHT : COLOR_GRAYTEXT), look_.frame);
}

void DayGridPainter::PaintNumber(RECT place, const DayBox& box) const {
    place.bottom = place.top + look_.lineHeight + 2 * look_.gap;
    if (box.today) Fill(place, GetSysColor(COLOR_HIGHLIGHT));
    place.left += 2 * look_.gap;
    SelectObject(device_, look_.boldFont);
    Write(place, std::to_string(box.day), GetSysColor(box.today ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT),
          DT_LEFT | DT_VCENTER);
}

void DayGridPainter::PaintLines(RECT place, int box, int count) const {
    SelectObject(device_, look_.font);
    const DayLines lines(places_.Box(box), places_.RowHeight(), look_, count);
    place.top = lines.top;
    place.left += 2 * look_.gap;
    place.right -= look_.gap;
    for (int line = 0; line < lines.shown; ++line) {
        Write(place, days_.Line(box, line), GetSysColor(COLOR_WINDOWTEXT), DT_LEFT | DT_END_ELLIPSIS);
        place.top += look_.lineHeight;
    }
    if (lines.hasMore)
        Write(place, "+" + std::to_string(count - lines.shown) + " more", GetSysColor(COLOR_GRAYTEXT),
              DT_LEFT);
}

void DayGridPainter::Fill(const RECT& place, COLORREF colour) const {
    // Without a brush to make and destroy.
    SetBkColor(device_, colour);
    ExtTextOutW(device_, 0, 0, ETO_OPAQUE, &place, nullptr, 0, nullptr);
    SetBkMode(device_, TRANSPARENT);
}

void DayGridPainter::Frame(RECT place, COLORREF colour, int width) const {
    Fill({place.left, place.top, place.right, place.top + width}, colour);
    Fill({place.left, place.bottom - width, place.right, place.bottom}, colour);
    Fill({place.left, place.top, place.left + width, place.bottom}, colour);
    Fill({place.right - width, place.top, place.right, place.bottom}, colour);
}

void DayGridPainter::Write(RECT place, const std::string& text, COLORREF colour, UINT format) const {
    const std::wstring wide = ToWide(text);
    SetTextColor(device_, colour);
    DrawTextW(device_, wide.c_str(), static_cast<int>(wide.size()), &place,
              format | DT_SINGLELINE | DT_NOPREFIX);
}

COLORREF DayGridPainter::Between(int one, int other, int percent) const {
    const COLORREF from = GetSysColor(one);
    if (highContrast_) return from;
    const COLORREF to = GetSysColor(other);
    const auto mix = [percent](int a, int b) { return static_cast<BYTE>(a + (b - a) * percent / 100); };
    return RGB(mix(GetRValue(from), GetRValue(to)), mix(GetGValue(from), GetGValue(to)),
               mix(GetBValue(from), GetBValue(to)));
}

}  // namespace kaz
