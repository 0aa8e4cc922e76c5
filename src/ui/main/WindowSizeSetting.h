#pragma once

#include "forms/Window.h"
#include "support/cSHAREDSettings.h"

namespace kaz {

// Keeps the size of the main window between two runs.
class WindowSizeSetting {
public:
    WindowSizeSetting(Window& window, cSHAREDSettings& settings) : window_(window), settings_(settings) {}

    // Takes the stored size, or maximises the window when that is nearly the whole screen in both directions.
    // A length that is missing or that no window can have leaves the present one.
    void Restore();
    // Stores the size unless the window is minimised.
    void Save();

private:
    int Stored(std::string_view name, int fallback) const;

    Window& window_;
    cSHAREDSettings& settings_;
};

}  // namespace kaz
