#pragma once

#include "forms/DayGrid.h"
#include "forms/Window.h"
#include "forms/win32/DayGridPainter.h"
#include "win32/Gdi.h"

#include <functional>

namespace kaz {

// A grid of days on an owner-drawn static control (SS_OWNERDRAW | SS_NOTIFY in the
// template): one window instead of a control a day. Its window text is the selected day, so
// that screen readers have something to read.
class DayGridView : public DayGrid {
public:
    using Raise = std::function<void(Raised what, int detail)>;

    // Without a control (null) it is a grid that nobody sees.
    DayGridView(HWND control, Raise raise);
    ~DayGridView() override;
    DayGridView(const DayGridView&) = delete;
    DayGridView& operator=(const DayGridView&) = delete;

    void SetDays(const DayBoxes* days) override;
    void Refresh() override;
    int Selected() const override { return cursor_.Selected(); }
    void Select(int box) override;
    int OpenedLine() const override { return openedLine_; }

private:
    static LRESULT CALLBACK Procedure(HWND control, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                      DWORD_PTR self);
    // False when the system shall see to the message.
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    static LRESULT WantedKeys(const MSG* message);
    void OnClick(LPARAM point, bool twice);
    void Open(int box, int line);
    bool OnKey(WPARAM key);
    void OnMouseMove(LPARAM point);
    void Paint();
    void PaintOn(HDC device, const RECT& dirty);
    void Measure();
    void TellScreenReader();
    void RepaintBox(int box) const;
    DayGridPlaces Places() const;

    HWND control_;
    HWND tip_ = nullptr;
    Raise raise_;
    DayCursor cursor_;
    Font boldFont_;
    DayGridLook look_;
    bool measured_ = false;
    int hovered_ = -1;
    int openedLine_ = kWholeDay;
};

}  // namespace kaz
