#pragma once

#include <string>

namespace kaz {

// Says in what the program was started from, a console or a file, what became of a command; without either,
// a failure is shown in a box.
void TellOutcome(const std::wstring& text, bool isFailure);

}  // namespace kaz
