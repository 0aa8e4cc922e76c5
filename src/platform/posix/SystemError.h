#pragma once

namespace kaz {

// Throws the RuntimeError that tells of the system's error code (errno).
[[noreturn]] void ThrowSystemError(int code);

}  // namespace kaz
