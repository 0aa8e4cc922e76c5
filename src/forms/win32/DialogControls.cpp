#include "forms/win32/DialogControls.h"

#include "base/RuntimeError.h"
#include "forms/win32/Clipboard.h"
#include "forms/win32/ListContents.h"
#include "forms/win32/ScreenPlacement.h"
#include "forms/win32/StockControls.h"
#include "win32/Text.h"

#include <algorithm>

namespace kaz {

namespace {

class NotRaising {
public:
    explicit NotRaising(bool& quiet) : quiet_(quiet), before_(std::exchange(quiet, true)) {}
    ~NotRaising() { quiet_ = before_; }
    NotRaising(const NotRaising&) = delete;
    NotRaising& operator=(const NotRaising&) = delete;

private:
    bool& quiet_;
    bool before_;
};

}  // namespace

std::string DialogControls::Text(int control) const { return ControlText(At(control)); }

void DialogControls::SetText(int control, const std::string& text) {
    const NotRaising notRaising(quiet_);
    SetControlText(At(control), text);
}

bool DialogControls::Checked(int control) const {
    return SendMessageW(At(control), BM_GETCHECK, 0, 0) == BST_CHECKED;
}

void DialogControls::SetChecked(int control, bool checked) {
    const NotRaising notRaising(quiet_);
    SendMessageW(At(control), BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED, 0);
}

bool DialogControls::Enabled(int control) const {
    return (GetWindowLongPtrW(At(control), GWL_STYLE) & WS_DISABLED) == 0;
}

// A control that has the keyboard and goes away would take the keyboard with it.
void DialogControls::MoveFocusFrom(HWND control) {
    if (control && control != window_ && GetFocus() == control)
        SendMessageW(window_, WM_NEXTDLGCTL, 0, FALSE);
}

void DialogControls::SetEnabled(int control, bool enabled) {
    if (!enabled) MoveFocusFrom(At(control));
    EnableWindow(At(control), enabled);
    if (const auto arrows = arrows_.find(control); arrows != arrows_.end())
        EnableWindow(arrows->second, enabled);
}

bool DialogControls::ControlVisible(int control) const {
    return (GetWindowLongPtrW(At(control), GWL_STYLE) & WS_VISIBLE) != 0;
}

void DialogControls::SetControlVisible(int control, bool visible) {
    if (!visible) MoveFocusFrom(At(control));
    ShowWindow(At(control), visible ? SW_SHOWNA : SW_HIDE);
    if (const auto arrows = arrows_.find(control); arrows != arrows_.end())
        ShowWindow(arrows->second, visible ? SW_SHOWNA : SW_HIDE);
}

ControlPlace DialogControls::Place(int control) const {
    RECT place{};
    GetWindowRect(At(control), &place);
    MapWindowPoints(nullptr, window_, reinterpret_cast<POINT*>(&place), 2);
    return {ToUnits(window_, place.left), ToUnits(window_, place.top),
            ToUnits(window_, place.right - place.left), ToUnits(window_, place.bottom - place.top)};
}

void DialogControls::SetPlace(int control, const ControlPlace& place) {
    const HWND target = At(control);
    if (target == window_) return;
    SetWindowPos(target, nullptr, ToPixels(window_, place.left), ToPixels(window_, place.top),
                 ToPixels(window_, place.width), ToPixels(window_, place.height),
                 SWP_NOZORDER | SWP_NOACTIVATE);
    // Another width breaks its lines at other words.
    if (notices_.contains(control)) InvalidateRect(target, nullptr, TRUE);
}

int DialogControls::IdealWidth(int control) const {
    const HWND target = At(control);
    if (const auto notice = notices_.find(control); notice != notices_.end())
        return ToUnits(window_, notice->second.IdealWidth());
    SIZE size{};
    if (KindOf(target) == ControlKind::AnyButton &&
        SendMessageW(target, BCM_GETIDEALSIZE, 0, reinterpret_cast<LPARAM>(&size)))
        return ToUnits(window_, size.cx);
    return ToUnits(window_, TextWidth(target));
}

void DialogControls::SetRoomAbove(int control, int height) { layout_->SetRoomAbove(At(control), height); }

void DialogControls::SetNotice(int control, const std::string& text, Tone tone) {
    notices_.try_emplace(control, window_, At(control), module_).first->second.Show(ToWide(text), tone);
}

void DialogControls::SetControlsEnabled(bool enabled) {
    // The system takes the keyboard from a control that is disabled.
    if (!enabled) focusWhenEnabled_ = IsChild(window_, GetFocus()) ? GetFocus() : nullptr;
    for (HWND control = GetWindow(window_, GW_CHILD); !enabled && control;
         control = GetWindow(control, GW_HWNDNEXT)) {
        const LONG_PTR style = GetWindowLongPtrW(control, GWL_STYLE);
        if ((style & WS_TABSTOP) && !(style & WS_DISABLED)) resting_.push_back(control);
    }
    for (const HWND control : resting_)
        EnableWindow(control, enabled);
    if (enabled) resting_.clear();
    if (const HWND back = enabled ? std::exchange(focusWhenEnabled_, nullptr) : nullptr;
        back && GetActiveWindow() == window_)
        ::SetFocus(back);
}

void DialogControls::SetFocus(int control) {
    const HWND target = At(control);
    if (!target || target == window_) return;
    // To focus a control of an inactive window would activate it.
    if (GetActiveWindow() != window_) {
        focusWhenActive_ = control;
        return;
    }
    SendMessageW(window_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(target), TRUE);
    // The system selects all of a text, and the next key would put itself in the place of many lines.
    if (KindOf(target) == ControlKind::Edit && (GetWindowLongPtrW(target, GWL_STYLE) & ES_MULTILINE))
        SendMessageW(target, EM_SETSEL, 0, 0);
}

void DialogControls::LimitText(int control, int characters) {
    SendMessageW(At(control), EM_SETLIMITTEXT, static_cast<WPARAM>(characters), 0);
}

void DialogControls::SetNumberRange(int control, int least, int most) {
    const HWND box = At(control);
    if (!box) return;
    const DWORD asBox = static_cast<DWORD>(GetWindowLongPtrW(box, GWL_STYLE)) & (WS_VISIBLE | WS_DISABLED);
    const HWND arrows =
        CreateWindowExW(0, UPDOWN_CLASSW, nullptr,
                        WS_CHILD | asBox | UDS_ALIGNRIGHT | UDS_ARROWKEYS | UDS_SETBUDDYINT | UDS_NOTHOUSANDS,
                        0, 0, 0, 0, window_, nullptr, module_, nullptr);
    SendMessageW(arrows, UDM_SETBUDDY, reinterpret_cast<WPARAM>(box), 0);
    SendMessageW(arrows, UDM_SETRANGE32, static_cast<WPARAM>(least), most);
    SetWindowPos(arrows, box, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    arrows_[control] = arrows;
}

void DialogControls::SetItems(int control, const std::vector<std::string>& items) {
    const NotRaising notRaising(quiet_);
    ListContents(At(control)).SetItems(items);
}

std::vector<std::string> DialogControls::Items(int control) const {
    if (const auto report = reports_.find(control); report != reports_.end()) return report->second.Texts();
    return ListContents(At(control)).Items();
}

int DialogControls::Selected(int control) const {
    const std::vector<int> selection = Selection(control);
    return selection.empty() ? -1 : selection.front();
}

void DialogControls::Select(int control, int position) {
    SetSelection(control, position < 0 ? std::vector<int>{} : std::vector<int>{position});
}

std::vector<int> DialogControls::Selection(int control) const {
    return ListContents(At(control)).Selection();
}

void DialogControls::SetSelection(int control, const std::vector<int>& positions) {
    const NotRaising notRaising(quiet_);
    ListContents(At(control)).Select(positions);
}

void DialogControls::PrepareControls(int dialog) {
    layout_.emplace(window_, module_, dialog);
    for (HWND child = GetWindow(window_, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        const LONG_PTR style = GetWindowLongPtrW(child, GWL_STYLE);
        const ControlKind kind = KindOf(child);
        // A text of several lines takes what it is given and no less from the keyboard.
        if (kind == ControlKind::Edit && (style & ES_MULTILINE)) SendMessageW(child, EM_SETLIMITTEXT, 0, 0);
        if (kind == ControlKind::TabStrip) tabs_.emplace(child, module_);
        wchar_t name[32] = L"";
        GetClassNameW(child, name, static_cast<int>(std::size(name)));
        const bool ownsNoData = (style & LVS_OWNERDATA) != 0;
        if (lstrcmpiW(name, WC_LISTVIEWW) == 0 && ownsNoData) Report(GetDlgCtrlID(child));
    }
}

ReportList& DialogControls::Report(int control) {
    const auto raise = [this, control](Raised what, int detail) { Raise(control, what, detail); };
    return reports_.try_emplace(control, GetDlgItem(window_, control), raise).first->second;
}

DayGrid& DialogControls::Grid(int control) {
    const auto raise = [this, control](Raised what, int detail) { Raise(control, what, detail); };
    return grids_.try_emplace(control, GetDlgItem(window_, control), raise).first->second;
}

POINT DialogControls::MenuPointOf(HWND control) const {
    if (const auto report = reports_.find(GetDlgCtrlID(control)); report != reports_.end())
        return report->second.MenuPoint();
    RECT place{};
    GetWindowRect(control, &place);
    return {place.left, place.top};
}

POINT DialogControls::PointUnder(int control) const {
    RECT place{};
    GetWindowRect(GetDlgItem(window_, control), &place);
    return {GetSystemMetrics(SM_MENUDROPALIGNMENT) ? place.right : place.left, place.bottom};
}

INT_PTR DialogControls::OnNotify(const NMHDR& header) {
    const int id = static_cast<int>(header.idFrom);
    if (const auto report = reports_.find(id); report != reports_.end()) {
        const auto answer = report->second.OnNotify(header);
        return answer ? Answer(*answer) : FALSE;
    }
    if (const auto toolbar = toolbars_.find(id); toolbar != toolbars_.end()) {
        const auto answer = toolbar->second.OnNotify(header);
        return answer ? Answer(*answer) : FALSE;
    }
    if (tabs_ && tabs_->OnNotify(header)) return TRUE;
    if (header.code == TCN_SELCHANGE && !quiet_) Raise(id, Raised::Select);
    return FALSE;
}

INT_PTR DialogControls::OnControlColour(UINT message, WPARAM wParam, LPARAM lParam) {
    const auto control = reinterpret_cast<HWND>(lParam);
    const ControlKind kind = KindOf(control);
    if (!tabs_ || (kind != ControlKind::Static && kind != ControlKind::AnyButton)) return FALSE;
    // For the colours of the text.
    DefWindowProcW(window_, message, wParam, lParam);
    return reinterpret_cast<INT_PTR>(tabs_->BackgroundOf(control, reinterpret_cast<HDC>(wParam)));
}

void DialogControls::SetToolbar(int control, const std::vector<ToolButton>& buttons) {
    toolbars_.try_emplace(control, GetDlgItem(window_, control), module_).first->second.SetButtons(buttons);
}

void DialogControls::SetToolButton(int control, int command, const std::string& tooltip, bool enabled) {
    if (const auto toolbar = toolbars_.find(control); toolbar != toolbars_.end())
        toolbar->second.SetButton(command, tooltip, enabled);
}

void DialogControls::CopyText(const std::string& text) {
    if (!PutOnClipboard(window_, ToWide(text))) throw RuntimeError(ErrorNumber::PermissionDenied);
}

INT_PTR DialogControls::Answer(LRESULT result) {
    SetWindowLongPtrW(window_, DWLP_MSGRESULT, result);
    return TRUE;
}

INT_PTR DialogControls::OnDrawItem(int control, const DRAWITEMSTRUCT& item) {
    const auto notice = notices_.find(control);
    if (notice == notices_.end()) return FALSE;
    notice->second.Paint(item);
    return TRUE;
}

void DialogControls::OnSize() {
    if (layout_) layout_->Apply();
    for (auto& [id, report] : reports_)
        report.FitColumns();
    Raise(0, Raised::Resize);
}

void DialogControls::OnDpiChanged() {
    layout_->MakeHeadings();
    layout_->Apply();
    for (auto& [id, report] : reports_)
        report.OnDpiChanged();
    for (auto& [id, toolbar] : toolbars_)
        toolbar.OnDpiChanged();
    for (auto& [id, notice] : notices_)
        notice.OnDpiChanged();
    Raise(0, Raised::DpiChanged);
}

}  // namespace kaz
