#pragma once

#include "base/RuntimeError.h"

namespace kaz {

// The program's number for an error code of the system (GetLastError); DeviceError for one without a kin.
ErrorNumber FromSystemError(unsigned long code) noexcept;

[[noreturn]] void ThrowSystemError(unsigned long code);

}  // namespace kaz
