#pragma once

#include "hosts/kaz2/CommandLine.h"

namespace kaz {

// What a second start asks of the program that runs on the folder: "--add" and "--quit". The exit code: 0
// when it was done, else 1, and why not has been told.
int RunCommand(const CommandLine& line);

}  // namespace kaz
