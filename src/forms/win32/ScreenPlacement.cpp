#include "forms/win32/ScreenPlacement.h"

#include <algorithm>

namespace kaz {

namespace {

constexpr int kUnitsPerInch = 96;

int Dpi(HWND window) {
    const UINT dpi = GetDpiForWindow(window);
    return dpi ? static_cast<int>(dpi) : kUnitsPerInch;
}

MONITORINFO Info(HMONITOR monitor) {
    MONITORINFO info{};
    info.cbSize = sizeof info;
    GetMonitorInfoW(monitor, &info);
    return info;
}

SIZE SizeOf(const RECT& rect) { return {rect.right - rect.left, rect.bottom - rect.top}; }

POINT Middle(const RECT& area, SIZE size) {
    const SIZE room = SizeOf(area);
    return {area.left + (room.cx - size.cx) / 2, area.top + (room.cy - size.cy) / 2};
}

void Move(HWND window, POINT corner) {
    SetWindowPos(window, nullptr, corner.x, corner.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

struct Corner {
    HWND self;
    POINT point;
    bool taken;
};

BOOL CALLBACK LookAtCorner(HWND window, LPARAM parameter) {
    auto& corner = *reinterpret_cast<Corner*>(parameter);
    RECT rect{};
    if (window == corner.self || !IsWindowVisible(window) || IsIconic(window) ||
        !GetWindowRect(window, &rect))
        return TRUE;
    corner.taken = rect.left == corner.point.x && rect.top == corner.point.y;
    return !corner.taken;
}

bool IsTaken(HWND self, POINT point) {
    Corner corner{self, point, false};
    EnumThreadWindows(GetCurrentThreadId(), LookAtCorner, reinterpret_cast<LPARAM>(&corner));
    return corner.taken;
}

}  // namespace

int ToPixels(HWND window, int units) { return MulDiv(units, Dpi(window), kUnitsPerInch); }

int ToUnits(HWND window, int pixels) { return MulDiv(pixels, kUnitsPerInch, Dpi(window)); }

WindowSize OuterSize(HWND window) {
    RECT rect{};
    GetWindowRect(window, &rect);
    const SIZE size = SizeOf(rect);
    return {ToUnits(window, size.cx), ToUnits(window, size.cy)};
}

void SetOuterSize(HWND window, WindowSize size) {
    SetWindowPos(window, nullptr, 0, 0, ToPixels(window, size.width), ToPixels(window, size.height),
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    KeepOnScreen(window);
}

void SetClientSize(HWND window, WindowSize size) {
    RECT frame{0, 0, ToPixels(window, size.width), ToPixels(window, size.height)};
    AdjustWindowRectExForDpi(&frame, static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE)), FALSE,
                             static_cast<DWORD>(GetWindowLongPtrW(window, GWL_EXSTYLE)),
                             GetDpiForWindow(window));
    SetWindowPos(window, nullptr, 0, 0, frame.right - frame.left, frame.bottom - frame.top,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    KeepOnScreen(window);
}

WindowSize MonitorSize(HWND window) {
    const SIZE size = SizeOf(Info(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST)).rcMonitor);
    return {ToUnits(window, size.cx), ToUnits(window, size.cy)};
}

void PlaceWindow(HWND window, HWND owner) {
    RECT rect{};
    GetWindowRect(window, &rect);
    RECT area{};
    if (!owner || IsIconic(owner) || !GetWindowRect(owner, &area)) {
        // Without anything of ours on the screen, the user is where the active window is.
        const HWND active = GetForegroundWindow();
        area = Info(MonitorFromWindow(active ? active : window, MONITOR_DEFAULTTOPRIMARY)).rcWork;
    }
    POINT corner = Middle(area, SizeOf(rect));
    const int step = GetSystemMetrics(SM_CYCAPTION) + GetSystemMetrics(SM_CYSIZEFRAME);
    constexpr int kMostSteps = 10;
    for (int steps = 0; steps < kMostSteps && IsTaken(window, corner); ++steps) {
        corner.x += step;
        corner.y += step;
    }
    if (corner.x != rect.left || corner.y != rect.top) Move(window, corner);
    KeepOnScreen(window);
}

void KeepOnScreen(HWND window) {
    if (IsIconic(window) || IsZoomed(window)) return;
    RECT rect{};
    GetWindowRect(window, &rect);
    const RECT work = Info(MonitorFromRect(&rect, MONITOR_DEFAULTTONEAREST)).rcWork;
    const SIZE room = SizeOf(work);
    const SIZE size{std::min(SizeOf(rect).cx, room.cx), std::min(SizeOf(rect).cy, room.cy)};
    const POINT corner{std::clamp(rect.left, work.left, work.right - size.cx),
                       std::clamp(rect.top, work.top, work.bottom - size.cy)};
    const RECT kept{corner.x, corner.y, corner.x + size.cx, corner.y + size.cy};
    if (EqualRect(&kept, &rect)) return;
    SetWindowPos(window, nullptr, kept.left, kept.top, size.cx, size.cy, SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace kaz
