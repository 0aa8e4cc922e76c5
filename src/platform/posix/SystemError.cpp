#include "platform/posix/SystemError.h"

#include "base/RuntimeError.h"

#include <cerrno>

namespace kaz {

namespace {

ErrorNumber FromSystemError(int code) {
    switch (code) {
    case ENOENT: return ErrorNumber::FileNotFound;
    case ENOTDIR: return ErrorNumber::PathNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
    case EBUSY:
    case ETXTBSY: return ErrorNumber::PermissionDenied;
    case EISDIR:
    case EEXIST:
    case ENAMETOOLONG:
    case EINVAL:
    case ELOOP: return ErrorNumber::PathFileAccess;
    case ENOSPC:
    case EDQUOT:
    case EFBIG: return ErrorNumber::DiskFull;
    case ENOMEM: return ErrorNumber::OutOfMemory;
    default: return ErrorNumber::DeviceError;
    }
}

}  // namespace

void ThrowSystemError(int code) { throw RuntimeError(FromSystemError(code)); }

}  // namespace kaz
