#include "ui/WindowSizeSetting.h"

namespace kaz {

namespace {

constexpr std::string_view kWidth = "MainWindowWidth";
constexpr std::string_view kHeight = "MainWindowHeight";

bool NearlyFills(int length, int screenLength) { return length > 0.9 * screenLength; }

}  // namespace

void WindowSizeSetting::Restore() {
    const WindowSize current = window_.Size();
    const WindowSize wanted{Stored(kWidth, current.width), Stored(kHeight, current.height)};
    const WindowSize screen = window_.ScreenSize();
    if (NearlyFills(wanted.width, screen.width) && NearlyFills(wanted.height, screen.height))
        window_.SetState(WindowState::Maximised);
    else
        window_.SetSize(wanted);
}

void WindowSizeSetting::Save() {
    if (window_.State() == WindowState::Minimised) return;
    const WindowSize size = window_.Size();
    settings_.StoreSetting(kWidth, std::int32_t{size.width});
    settings_.StoreSetting(kHeight, std::int32_t{size.height});
}

int WindowSizeSetting::Stored(std::string_view name, int fallback) const {
    const int length = ToNumber(settings_.sGet(name, std::int32_t{fallback}));
    return length > 0 ? length : fallback;
}

}  // namespace kaz
