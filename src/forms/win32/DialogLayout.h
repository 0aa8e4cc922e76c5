#pragma once

#include "win32/Gdi.h"

#include <vector>

namespace kaz {

// How a window's controls follow its size. The table is the RCDATA resource of the template's own id: the
// smallest width and height in dialog units (0 for the template's), then pairs of a control and its LAYOUT_
// flags. A control without flags stays at the top left; a window without a table is left alone.
class DialogLayout {
public:
    // Takes the places of the controls as they are now.
    DialogLayout(HWND window, HINSTANCE module, int dialog);

    // Moves the upper edge of a control down by so many units of 1/96 inch.
    void SetRoomAbove(HWND control, int height);
    // Call after a change of the window's size.
    void Apply() const;
    // Call after a change of the monitor's resolution.
    void MakeHeadings();
    // The smallest outer size in pixels.
    SIZE Minimum() const;

private:
    struct Item {
        HWND control = nullptr;
        unsigned flags = 0;
        RECT place{};   // in the window as it was made
        int above = 0;  // in units of 1/96 inch
    };
    RECT PlaceNow(const Item& item, SIZE client) const;
    int Scaled(LONG pixels) const;

    HWND window_;
    int madeDpi_;
    SIZE madeClient_{};
    SIZE minimum_{};
    std::vector<Item> items_;
    Font heading_;
};

}  // namespace kaz
