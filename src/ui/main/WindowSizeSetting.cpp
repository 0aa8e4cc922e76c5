#include "ui/main/WindowSizeSetting.h"

namespace kaz {

namespace {

constexpr std::string_view kWidth = "MainWindowWidth";
constexpr std::string_view kHeight = "MainWindowHeight";

bool NearlyFills(WindowSize size, WindowSize screen) {
    return size.width > 0.9 * screen.width && size.height > 0.9 * screen.height;
}

}  // namespace

void WindowSizeSetting::Restore() {
    const WindowSize current = window_.Size();
    const WindowSize wanted{Stored(kWidth, current.width), Stored(kHeight, current.height)};
    if (NearlyFills(wanted, window_.ScreenSize()))
        window_.SetState(WindowState::Maximised);
    else if (wanted != current)
        window_.SetSize(wanted);
}

void WindowSizeSetting::Save() {
    if (window_.State() == WindowState::Minimised) return;
    const WindowSize size = window_.Size();
    // A maximised window gets its size when it is first shown. One that never was keeps what is stored.
    if (window_.State() == WindowState::Maximised && !NearlyFills(size, window_.ScreenSize())) return;
    settings_.StoreSetting(kWidth, std::int32_t{size.width});
    settings_.StoreSetting(kHeight, std::int32_t{size.height});
}

int WindowSizeSetting::Stored(std::string_view name, int fallback) const {
    const int length = ToNumber(settings_.sGet(name, std::int32_t{fallback}));
    return length > 0 ? length : fallback;
}

}  // namespace kaz
