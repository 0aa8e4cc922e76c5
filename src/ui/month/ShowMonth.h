#pragma once

#include "core/Application.h"

namespace kaz {

// Opens the month view beside the other windows; one that is open comes forward and shows that month. `month`
// is 1 to 12. Throws InternalError when the window cannot be made.
void ShowMonth(Application& application, int month, int year);

}  // namespace kaz
