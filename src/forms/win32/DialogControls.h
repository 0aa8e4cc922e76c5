#pragma once

#include "forms/Window.h"
#include "forms/win32/DayGridView.h"
#include "forms/win32/DialogLayout.h"
#include "forms/win32/NoticeView.h"
#include "forms/win32/ReportListView.h"
#include "forms/win32/TabStripView.h"
#include "forms/win32/Toolbar.h"

#include <map>
#include <optional>
#include <vector>

namespace kaz {

// The controls of a dialog window by their ids, and the layout in which they stand.
class DialogControls : public Window {
public:
    std::string Text(int control) const override;
    void SetText(int control, const std::string& text) override;
    bool Checked(int control) const override;
    void SetChecked(int control, bool checked) override;
    bool Enabled(int control) const override;
    void SetEnabled(int control, bool enabled) override;
    bool ControlVisible(int control) const override;
    void SetControlVisible(int control, bool visible) override;
    ControlPlace Place(int control) const override;
    void SetPlace(int control, const ControlPlace& place) override;
    int IdealWidth(int control) const override;
    void SetRoomAbove(int control, int height) override;
    void SetNotice(int control, const std::string& text, Tone tone) override;
    void SetControlsEnabled(bool enabled) override;
    void SetFocus(int control) override;
    int Focused() const override { return IsChild(window_, GetFocus()) ? GetDlgCtrlID(GetFocus()) : 0; }
    void LimitText(int control, int characters) override;
    void SetNumberRange(int control, int least, int most) override;

    void SetItems(int control, const std::vector<std::string>& items) override;
    std::vector<std::string> Items(int control) const override;
    int Selected(int control) const override;
    void Select(int control, int position) override;
    std::vector<int> Selection(int control) const override;
    void SetSelection(int control, const std::vector<int>& positions) override;

    ReportList& Report(int control) override;
    DayGrid& Grid(int control) override;
    void SetToolbar(int control, const std::vector<ToolButton>& buttons) override;
    void SetToolButton(int control, int command, const std::string& tooltip, bool enabled) override;
    void CopyText(const std::string& text) override;

protected:
    explicit DialogControls(HINSTANCE module) : module_(module) {}

    // Once the window is there.
    void PrepareControls(int dialog);
    HWND At(int control) const { return control == 0 ? window_ : GetDlgItem(window_, control); }
    bool IsReport(HWND control) const { return reports_.contains(GetDlgCtrlID(control)); }
    bool IsToolbar(HWND control) const { return toolbars_.contains(GetDlgCtrlID(control)); }
    // Where the menu of a control goes that was asked for by a key, on the screen.
    POINT MenuPointOf(HWND control) const;
    POINT PointUnder(int control) const;

    // What the window hears about its controls, and they answer by themselves.
    INT_PTR OnNotify(const NMHDR& header);
    INT_PTR OnDrawItem(int control, const DRAWITEMSTRUCT& item);
    INT_PTR OnControlColour(UINT message, WPARAM wParam, LPARAM lParam);
    void OnSize();
    void OnDpiChanged();

    // The answer to a message that the system takes from the window instead of from the procedure's result.
    INT_PTR Answer(LRESULT result);
    virtual void Raise(int control, Raised what, int detail = 0) = 0;

    HINSTANCE module_;
    HWND window_ = nullptr;
    std::optional<DialogLayout> layout_;
    std::map<int, Toolbar> toolbars_;
    std::optional<TabStripView> tabs_;
    bool quiet_ = false;  // what the program itself puts into a control is not raised
    int focusWhenActive_ = 0;

private:
    void MoveFocusFrom(HWND control);

    std::map<int, ReportListView> reports_;
    std::map<int, DayGridView> grids_;
    std::map<int, NoticeView> notices_;
    std::map<int, HWND> arrows_;  // beside the number boxes, of which they are a part
    std::vector<HWND> resting_;   // disabled while the program works
    HWND focusWhenEnabled_ = nullptr;
};

}  // namespace kaz
