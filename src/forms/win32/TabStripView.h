#pragma once

#include "win32/Gdi.h"

#include <windows.h>

namespace kaz {

// What a dialog does for a tab strip whose frames are the dialog's own controls: they get the background of
// the strip's body, and each tab the tooltip IDS_TOOLTIP + the strip's id + 1 for the first tab.
class TabStripView {
public:
    TabStripView(HWND strip, HINSTANCE module) : strip_(strip), module_(module) {}

    // The brush for a control that is about to be painted; null when it does not lie on the strip.
    HBRUSH BackgroundOf(HWND control, HDC device);
    // Call after a change of the colours or the theme.
    void Repaint() { brush_ = Brush(); }
    // Whether the notification was a question for a tab's tooltip, which is then answered.
    bool OnNotify(const NMHDR& header) const;

private:
    void MakeBrush(SIZE size);

    HWND strip_;
    HINSTANCE module_;
    Brush brush_;
    SIZE size_{};
};

}  // namespace kaz
