#include "forms/DayGrid.h"

#include <cstdlib>

namespace kaz {

void DayCursor::Refresh() { selected_ = Nearest(selected_ < 0 ? 0 : selected_); }

bool DayCursor::Select(int box) {
    if (!IsDay(box)) return false;
    selected_ = box;
    return true;
}

int DayCursor::Press(DayKey key) {
    if (selected_ < 0) return 0;
    int step = 0;
    switch (key) {
    case DayKey::Left: step = -1; break;
    case DayKey::Right: step = 1; break;
    case DayKey::Up: step = -DayBoxes::kColumns; break;
    case DayKey::Down: step = DayBoxes::kColumns; break;
    case DayKey::First: selected_ = Nearest(0); return 0;
    case DayKey::Last: selected_ = Nearest(DayBoxes::kBoxes - 1); return 0;
    }
    return Select(selected_ + step) ? 0 : step;
}

bool DayCursor::IsDay(int box) const {
    return days_ && box >= 0 && box < DayBoxes::kBoxes && days_->Box(box).day > 0;
}

int DayCursor::Nearest(int box) const {
    int nearest = -1;
    for (int other = 0; other < DayBoxes::kBoxes; ++other)
        if (IsDay(other) && (nearest < 0 || std::abs(other - box) < std::abs(nearest - box))) nearest = other;
    return nearest;
}

}  // namespace kaz
