#pragma once

#include "forms/Window.h"
#include "win32/Gdi.h"

#include <string>

namespace kaz {

// A text that speaks up, painted into an owner-drawn text control: a sign, and two lines at most. The whole
// text is the control's own, for screen readers, and in the tooltip.
class NoticeView {
public:
    NoticeView(HWND window, HWND control, HINSTANCE module)
        : window_(window),
          control_(control),
          module_(module) {}

    void Show(const std::wstring& text, Tone tone);
    void Paint(const DRAWITEMSTRUCT& item) const;
    // For the sign and the text in one line, in pixels.
    int IdealWidth() const;
    void OnDpiChanged();

private:
    bool HasSign() const { return tone_ != Tone::Note; }
    // What stands before and behind the text.
    int Before() const;
    int Margin() const;

    HWND window_;
    HWND control_;
    HINSTANCE module_;
    HWND tooltip_ = nullptr;  // goes with the window
    std::wstring text_;
    Tone tone_ = Tone::Note;
    Icon sign_;
};

}  // namespace kaz
