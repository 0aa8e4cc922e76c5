#include "base/RuntimeError.h"

namespace kaz {

const char* DescriptionOf(ErrorNumber number) noexcept {
    switch (number) {
    case ErrorNumber::InvalidCall: return "Invalid procedure call or argument";
    case ErrorNumber::Overflow: return "Overflow";
    case ErrorNumber::OutOfMemory: return "Out of memory";
    case ErrorNumber::SubscriptOutOfRange: return "Subscript out of range";
    case ErrorNumber::TypeMismatch: return "Type mismatch";
    case ErrorNumber::InternalError: return "Internal error";
    case ErrorNumber::FileNotFound: return "File not found";
    case ErrorNumber::DeviceError: return "Device I/O error";
    case ErrorNumber::DiskFull: return "Disk full";
    case ErrorNumber::PermissionDenied: return "Permission denied";
    case ErrorNumber::PathFileAccess: return "Path/File access error";
    case ErrorNumber::PathNotFound: return "Path not found";
    }
    return "Internal error";
}

}  // namespace kaz
