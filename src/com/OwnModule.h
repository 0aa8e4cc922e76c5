#pragma once

#include <windows.h>

#include <string>

namespace kaz {

// This module, which is not the program that loaded it.
HINSTANCE OwnModule();
// The full path of its file.
std::wstring ModulePath();

}  // namespace kaz
