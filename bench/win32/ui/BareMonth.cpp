#include "BareMonth.h"

#include "Timing.h"

#include <algorithm>

namespace kaz {
namespace {

constexpr wchar_t kMonthClass[] = L"kaz.bench.month";
constexpr int kBoxes = 42;

RECT PlaceOf(int box) {
    const int left = box % 7 * 140;
    const int top = box / 7 * 118;
    return {left, top, left + 138, top + 116};
}

}  // namespace

BareMonth::BareMonth(int lines) : lines_(kDays), texts_(kDays) {
    for (int i = 0; i < lines; ++i) {
        const auto day = static_cast<std::size_t>(i % kDays);
        lines_[day].push_back(L"Pay rent " + std::to_wstring(100 + i % 900));
        texts_[day].append(lines_[day].back()).append(L"\r\n");
    }
    WNDCLASSW type{};
    type.lpfnWndProc = Procedure;
    type.hInstance = GetModuleHandleW(nullptr);
    type.lpszClassName = kMonthClass;
    type.hbrBackground = GetSysColorBrush(COLOR_WINDOW);
    RegisterClassW(&type);
    window_ = CreateWindowW(kMonthClass, L"Bare month", WS_OVERLAPPEDWINDOW, 20, 20, 1000, 760, nullptr,
                            nullptr, type.hInstance, nullptr);
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

BareMonth::~BareMonth() { DestroyWindow(window_); }

void BareMonth::RemoveBoxes() {
    for (const HWND box : boxes_)
        DestroyWindow(box);
    boxes_.clear();
}

void BareMonth::Close() {
    RemoveBoxes();
    ShowWindow(window_, SW_HIDE);
    Pump();
}

void BareMonth::Open() {
    for (int i = 0; i < kBoxes; ++i) {
        const RECT place = PlaceOf(i);
        boxes_.push_back(CreateWindowW(L"EDIT", L"",
                                       WS_CHILD | WS_VISIBLE | WS_BORDER | ES_MULTILINE | ES_READONLY,
                                       place.left, place.top, place.right - place.left,
                                       place.bottom - place.top, window_, nullptr, nullptr, nullptr));
        SendMessageW(boxes_.back(), EM_LIMITTEXT, 0x7FFFFFFE, 0);
        if (i < kDays) SetWindowTextW(boxes_.back(), texts_[static_cast<std::size_t>(i)].c_str());
    }
    ShowWindow(window_, SW_SHOW);
    UpdateWindow(window_);
    for (const HWND box : boxes_)
        UpdateWindow(box);
    Pump();
}

void BareMonth::Next() {
    std::rotate(texts_.begin(), texts_.begin() + 1, texts_.end());
    SendMessageW(window_, WM_SETREDRAW, FALSE, 0);
    for (std::size_t day = 0; day < texts_.size(); ++day)
        SetWindowTextW(boxes_[day], texts_[day].c_str());
    SendMessageW(window_, WM_SETREDRAW, TRUE, 0);
    RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
    Pump();
}

void BareMonth::Paint() {
    std::rotate(lines_.begin(), lines_.begin() + 1, lines_.end());
    InvalidateRect(window_, nullptr, FALSE);
    PaintNow(window_);
}

LRESULT CALLBACK BareMonth::Procedure(HWND window, UINT message, WPARAM wide, LPARAM narrow) {
    const auto* self = reinterpret_cast<BareMonth*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (message != WM_PAINT || !self || !self->boxes_.empty())
        return DefWindowProcW(window, message, wide, narrow);
    PAINTSTRUCT paint;
    self->PaintOn(BeginPaint(window, &paint));
    EndPaint(window, &paint);
    return 0;
}

void BareMonth::PaintOn(HDC screen) const {
    constexpr std::size_t kLinesInBox = 8;
    constexpr int kLineHeight = 14;
    RECT all;
    GetClientRect(window_, &all);
    const HDC memory = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, all.right, all.bottom);
    const HGDIOBJ before = SelectObject(memory, bitmap);
    SelectObject(memory, GetStockObject(DEFAULT_GUI_FONT));
    FillRect(memory, &all, GetSysColorBrush(COLOR_WINDOW));
    for (int day = 0; day < kDays; ++day) {
        const RECT place = PlaceOf(day);
        Rectangle(memory, place.left, place.top, place.right, place.bottom);
        const std::vector<std::wstring>& lines = lines_[static_cast<std::size_t>(day)];
        int top = place.top + 2;
        for (std::size_t i = 0; i < std::min(kLinesInBox, lines.size()); ++i, top += kLineHeight)
            ExtTextOutW(memory, place.left + 4, top, 0, nullptr, lines[i].c_str(),
                        static_cast<UINT>(lines[i].size()), nullptr);
    }
    BitBlt(screen, 0, 0, all.right, all.bottom, memory, 0, 0, SRCCOPY);
    SelectObject(memory, before);
    DeleteDC(memory);
    DeleteObject(bitmap);
}

}  // namespace kaz
