#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace kaz {

// What the month window is measured against: a read-only edit box for each day, and one window that paints
// the lines that are to be seen itself.
class BareMonth {
public:
    // So many lines, spread over the days of a month.
    explicit BareMonth(int lines);
    ~BareMonth();
    BareMonth(const BareMonth&) = delete;
    BareMonth& operator=(const BareMonth&) = delete;

    void RemoveBoxes();
    void Close();
    // Makes and fills the boxes while their window is hidden, and shows it painted.
    void Open();
    // New texts in all boxes, which are painted once.
    void Next();
    // Without boxes.
    void Paint();

private:
    static constexpr int kDays = 31;
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wide, LPARAM narrow);
    void PaintOn(HDC screen) const;

    HWND window_ = nullptr;
    std::vector<HWND> boxes_;
    std::vector<std::vector<std::wstring>> lines_;  // of each day
    std::vector<std::wstring> texts_;               // the same as one text
};

}  // namespace kaz
