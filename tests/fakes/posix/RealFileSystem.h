#pragma once

#include "platform/posix/PosixFileSystem.h"

namespace kaz {

// The files of the machine that the tests run on.
using RealFileSystem = PosixFileSystem;

}  // namespace kaz
