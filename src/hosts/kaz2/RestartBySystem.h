#pragma once

#include <string>

namespace kaz {

// Has the system start the program again after a crash or a hang that came a minute after its start or later,
// and after a restart of the computer for an update. `arguments` are what follows its name then.
void AskForRestart(const std::wstring& arguments);

}  // namespace kaz
