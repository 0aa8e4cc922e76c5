#pragma once

#include "platform/win32/Win32FileSystem.h"

namespace kaz {

// The files of the machine that the tests run on.
using RealFileSystem = Win32FileSystem;

}  // namespace kaz
