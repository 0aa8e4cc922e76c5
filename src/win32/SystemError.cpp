#include "win32/SystemError.h"

#include <windows.h>

namespace kaz {

namespace {

constexpr DWORD kDiskQuotaExceeded = 1295;  // not among MinGW's names

}  // namespace

ErrorNumber FromSystemError(unsigned long code) noexcept {
    switch (code) {
    case ERROR_FILE_NOT_FOUND: return ErrorNumber::FileNotFound;
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_NOT_READY:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
    case ERROR_NETNAME_DELETED:
    case ERROR_NETWORK_UNREACHABLE: return ErrorNumber::PathNotFound;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_WRITE_PROTECT:
    case ERROR_NETWORK_ACCESS_DENIED:
    case ERROR_DELETE_PENDING:
    case ERROR_USER_MAPPED_FILE:
    case ERROR_PRIVILEGE_NOT_HELD: return ErrorNumber::PermissionDenied;
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_DIRECTORY:
    case ERROR_FILENAME_EXCED_RANGE:
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS: return ErrorNumber::PathFileAccess;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case kDiskQuotaExceeded: return ErrorNumber::DiskFull;
    case ERROR_NOT_ENOUGH_MEMORY:
    case ERROR_OUTOFMEMORY: return ErrorNumber::OutOfMemory;
    default: return ErrorNumber::DeviceError;
    }
}

void ThrowSystemError(unsigned long code) { throw RuntimeError(FromSystemError(code)); }

}  // namespace kaz
