#include "BenchProgram.h"
#include "Benches.h"
#include "Timing.h"
#include "resources/resource.h"

#include <windows.h>

#include <algorithm>

namespace kaz {
namespace {

std::vector<std::string> ComingUp(int count, int shift) {
    std::vector<std::string> lines;
    for (int i = 0; i < count; ++i)
        lines.push_back("In " + std::to_string(1 + (i * 7 + shift) % 30) +
                        " days: pay the café rent, number " + std::to_string(i));
    return lines;
}

std::vector<ReminderLine> LinesOf(const std::vector<std::string>& texts) {
    std::vector<ReminderLine> lines;
    for (const std::string& text : texts)
        lines.push_back({.text = text});
    return lines;
}

HWND MakeBareListBox(HWND like) {
    RECT place{};
    GetClientRect(like, &place);
    const HWND list = CreateWindowExW(0, L"LISTBOX", L"",
                                      WS_OVERLAPPEDWINDOW | WS_VISIBLE | WS_VSCROLL | LBS_NOINTEGRALHEIGHT,
                                      40, 40, place.right, place.bottom, nullptr, nullptr, nullptr, nullptr);
    SendMessageW(list, WM_SETFONT, static_cast<WPARAM>(SendMessageW(like, WM_GETFONT, 0, 0)), FALSE);
    Pump();
    return list;
}

// The lines in their order at once.
void Fill(HWND list, std::vector<std::string> lines) {
    std::sort(lines.begin(), lines.end());
    SendMessageW(list, WM_SETREDRAW, FALSE, 0);
    SendMessageW(list, LB_RESETCONTENT, 0, 0);
    for (const std::string& line : lines)
        SendMessageA(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(line.c_str()));
    SendMessageW(list, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(list, nullptr, TRUE);
    PaintNow(list);
}

}  // namespace

void MeasureReminders() {
    constexpr int kLines = 1231;
    BenchProgram program;
    frmReminder& form = program.App().reminderWindows.Open(ReminderKind::ComingUp);
    form.Heading("COMING UP");
    form.ShowOnTop();
    Pump();
    const HWND list = GetDlgItem(FindWindowW(nullptr, L"COMING UP"), IDC_lstReminders);
    int shift = 0;
    Print("coming up", Least(kRounds, [&] {
              form.ReplaceList(LinesOf(ComingUp(kLines, ++shift)));
              PaintNow(list);
          }));
    const HWND bare = MakeBareListBox(list);
    Print("coming up bare", Least(kRounds, [&] { Fill(bare, ComingUp(kLines, ++shift)); }));
    DestroyWindow(bare);
}

}  // namespace kaz
