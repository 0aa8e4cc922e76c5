#include "hosts/kaz2/RestartBySystem.h"

#include <windows.h>

namespace kaz {

void AskForRestart(const std::wstring& arguments) {
    // A folder with a longer path than the system remembers is not started again on another one.
    if (arguments.size() < RESTART_MAX_CMD_LINE) RegisterApplicationRestart(arguments.c_str(), 0);
}

}  // namespace kaz
