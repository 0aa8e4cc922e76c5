#include "forms/win32/DateBox.h"

#include "forms/win32/BoxSize.h"
#include "resources/resource.h"

#include <commctrl.h>

namespace kaz {

DateBox::DateBox(HINSTANCE module)
    : window_(module, IDD_DATE),
      calendar_(GetDlgItem(window_.Handle(), IDC_calDate)) {
    FitCalendar();
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

}  // namespace kaz
