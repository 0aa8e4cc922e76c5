#include "forms/win32/Win32Dialogs.h"

#include "base/DateValue.h"
#include "base/RuntimeError.h"
#include "forms/win32/BoxSize.h"
#include "forms/win32/DialogWindow.h"
#include "forms/win32/ModalRun.h"
#include "forms/win32/PathBoxes.h"
#include "platform/Dialogs.h"
#include "resources/resource.h"
#include "win32/ActivationContext.h"
#include "win32/Text.h"

#include <commctrl.h>
#include <windowsx.h>

#include <utility>

namespace kaz {

namespace {

// A month calendar with OK and Cancel.
class DateBox : private WindowListener {
public:
    explicit DateBox(HINSTANCE module);
    // The calendar opens at `initial` or, where it cannot show that, at today.
    std::optional<DateValue> Ask(const std::string& prompt, DateValue initial);

private:
    void OnRaised(int control, Raised what, int detail) noexcept override;
    void FitCalendar();
    static LRESULT CALLBACK OnCalendar(HWND calendar, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                       DWORD_PTR self);
    bool IsSecondClick(POINT point);

    DialogWindow window_;
    HWND calendar_;
    // The last click on a day.
    SYSTEMTIME clickedDay_{};
    ULONGLONG clickedAt_ = 0;
};

DateBox::DateBox(HINSTANCE module)
    : window_(module, IDD_DATE),
      calendar_(GetDlgItem(window_.Handle(), IDC_calDate)) {
    FitCalendar();
    SetWindowSubclass(calendar_, OnCalendar, 1, reinterpret_cast<DWORD_PTR>(this));
}

// The calendar knows clicks only, each of which selects a day.
LRESULT CALLBACK DateBox::OnCalendar(HWND calendar, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                     DWORD_PTR self) {
    const LRESULT result = DefSubclassProc(calendar, message, wParam, lParam);
    const POINT point{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    auto* box = reinterpret_cast<DateBox*>(self);
    if (message == WM_LBUTTONUP && box->IsSecondClick(point)) box->window_.EndModal(IDOK);
    if (message == WM_NCDESTROY) RemoveWindowSubclass(calendar, OnCalendar, id);
    return result;
}

bool DateBox::IsSecondClick(POINT point) {
    MCHITTESTINFO hit{};
    hit.cbSize = sizeof hit;
    hit.pt = point;
    const bool isDay =
        SendMessageW(calendar_, MCM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit)) == MCHT_CALENDARDATE;
    const SYSTEMTIME before = std::exchange(clickedDay_, isDay ? hit.st : SYSTEMTIME{});
    const ULONGLONG last = std::exchange(clickedAt_, GetTickCount64());
    return isDay && before.wYear == hit.st.wYear && before.wMonth == hit.st.wMonth &&
           before.wDay == hit.st.wDay && clickedAt_ - last <= GetDoubleClickTime();
}

// How large a month is depends on the language and the font, so the box grows or shrinks around it.
void DateBox::FitCalendar() {
    RECT least{};
    RECT place{};
    if (!SendMessageW(calendar_, MCM_GETMINREQRECT, 0, reinterpret_cast<LPARAM>(&least))) return;
    GetClientRect(calendar_, &place);
    GrowBy(window_.Handle(), least.right - place.right, least.bottom - place.bottom);
}

std::optional<DateValue> DateBox::Ask(const std::string& prompt, DateValue initial) {
    const CivilDate civil = initial.Civil();
    SYSTEMTIME time{};
    time.wYear = static_cast<WORD>(civil.year);
    time.wMonth = static_cast<WORD>(civil.month);
    time.wDay = static_cast<WORD>(civil.day);
    SendMessageW(calendar_, MCM_SETCURSEL, 0, reinterpret_cast<LPARAM>(&time));
    window_.SetText(IDC_lblDatePrompt, prompt);
    window_.SetFocus(IDC_calDate);
    window_.SetListener(this);
    if (window_.ShowModal() != IDOK) return std::nullopt;
    if (!SendMessageW(calendar_, MCM_GETCURSEL, 0, reinterpret_cast<LPARAM>(&time))) return std::nullopt;
    return DateValue::FromCivil(time.wYear, time.wMonth, time.wDay);
}

void DateBox::OnRaised(int control, Raised what, int) noexcept {
    if (what == Raised::CloseBox || (what == Raised::Click && control == IDCANCEL))
        window_.EndModal(IDCANCEL);
    if (what == Raised::Click && control == IDOK) window_.EndModal(IDOK);
}

// One line of text with OK and Cancel.
class InputBox : private WindowListener {
public:
    // `dialogs` tells what is wrong with an answer.
    InputBox(HINSTANCE module, Dialogs& dialogs);
    std::optional<std::string> Ask(const std::string& title, const std::string& prompt,
                                   const std::string& initial);

private:
    void OnRaised(int control, Raised what, int detail) noexcept override;
    void TakeAnswer();

    DialogWindow window_;
    Dialogs& dialogs_;
    std::string answer_;
};

InputBox::InputBox(HINSTANCE module, Dialogs& dialogs) : window_(module, IDD_INPUTBOX), dialogs_(dialogs) {}

std::optional<std::string> InputBox::Ask(const std::string& title, const std::string& prompt,
                                         const std::string& initial) {
    window_.SetText(0, title);
    window_.SetText(IDC_lblPrompt, prompt);
    GrowForLabel(window_.Handle(), IDC_lblPrompt);
    window_.SetText(IDC_txtAnswer, initial);
    window_.SetFocus(IDC_txtAnswer);
    window_.SetListener(this);
    if (window_.ShowModal() != IDOK) return std::nullopt;
    return answer_;
}

void InputBox::OnRaised(int control, Raised what, int) noexcept {
    if (what == Raised::CloseBox || (what == Raised::Click && control == IDCANCEL))
        window_.EndModal(IDCANCEL);
    if (what == Raised::Click && control == IDOK) TakeAnswer();
}

void InputBox::TakeAnswer() {
    try {
        answer_ = window_.Text(IDC_txtAnswer);
        window_.EndModal(IDOK);
    } catch (const RuntimeError& error) {
        // The box stays open, so that the rest of what was typed is not lost.
        dialogs_.Message(error.Description());
    }
}

}  // namespace

int Win32Dialogs::Box(const std::string& text, UINT style) const {
    const ActivationContext context(module_);
    wchar_t title[64] = L"";
    LoadStringW(module_, IDS_TITLE, title, static_cast<int>(std::size(title)));
    return MessageBoxW(WorkWindow(), ToWide(text).c_str(), title, style);
}

void Win32Dialogs::Message(const std::string& text) { Box(text, MB_OK | MB_ICONINFORMATION); }

bool Win32Dialogs::AskYesNo(const std::string& text, Default choice) {
    const UINT button = choice == Default::No ? MB_DEFBUTTON2 : MB_DEFBUTTON1;
    return Box(text, MB_YESNO | MB_ICONQUESTION | button) == IDYES;
}

std::optional<std::string> Win32Dialogs::InputBox(const std::string& title, const std::string& prompt,
                                                  const std::string& initial) {
    return kaz::InputBox(module_, *this).Ask(title, prompt, initial);
}

std::optional<std::string> Win32Dialogs::OpenFile(const std::string& title, const std::string& filter) {
    const ActivationContext context(module_);
    return AskForFile(ToWide(title), ToWide(filter));
}

std::optional<std::string> Win32Dialogs::SaveFile(const std::string& title, const std::string& filter,
                                                  const std::string& name) {
    const ActivationContext context(module_);
    return AskWhereToSave(ToWide(title), ToWide(filter), ToWide(name));
}

std::optional<std::string> Win32Dialogs::PickFolder(const std::string& title) {
    const ActivationContext context(module_);
    return AskForFolder(ToWide(title));
}

std::optional<DateValue> Win32Dialogs::PickDate(const std::string& prompt, DateValue initial) {
    return DateBox(module_).Ask(prompt, initial);
}

}  // namespace kaz
