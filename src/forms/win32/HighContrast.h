#pragma once

namespace kaz {

// Whether the user works with a high-contrast theme, whose colours then hold instead of ours.
bool IsHighContrast();

}  // namespace kaz
