#include "platform/posix/PosixFile.h"

#include "base/RuntimeError.h"
#include "platform/posix/SystemError.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace kaz {

namespace {

constexpr std::size_t kLarge = std::size_t{128} * 1024;

// A signal may end a call before it has done anything.
template <class Call>
auto Repeated(Call call) {
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

}  // namespace

Descriptor::~Descriptor() {
    if (number_ >= 0) ::close(number_);
}

PosixInputFile::PosixInputFile(Descriptor file) : file_(std::move(file)) {
    struct stat data {};
    if (::fstat(file_.Get(), &data) != 0) ThrowSystemError(errno);
    if (!S_ISREG(data.st_mode)) throw RuntimeError(ErrorNumber::PathFileAccess);
    size_ = static_cast<std::uint64_t>(data.st_size);
}

std::size_t PosixInputFile::Read(char* buffer, std::size_t capacity) {
    const auto count = Repeated([&] { return ::read(file_.Get(), buffer, capacity); });
    if (count < 0) ThrowSystemError(errno);
    return static_cast<std::size_t>(count);
}

void PosixOutputFile::Write(std::string_view text) {
    const bool large = text.size() >= kLarge;
    while (!text.empty()) {
        const auto count = Repeated([&] { return ::write(file_.Get(), text.data(), text.size()); });
        if (count < 0) ThrowSystemError(errno);
        if (count == 0) throw RuntimeError(ErrorNumber::DiskFull);
        text.remove_prefix(static_cast<std::size_t>(count));
    }
#ifdef SYNC_FILE_RANGE_WRITE
    // The disk takes what there is while the rest is being made; whether it does, Flush will tell.
    if (large) ::sync_file_range(file_.Get(), 0, 0, SYNC_FILE_RANGE_WRITE);
#endif
}

void PosixOutputFile::Flush() { FlushToDisk(file_.Get()); }

void PosixOutputFile::Close() {
    // The descriptor is gone even when the call fails, so it is never repeated.
    if (file_ && ::close(file_.Release()) != 0 && errno != EINTR) ThrowSystemError(errno);
}

void FlushToDisk(int descriptor) {
    const int result = Repeated([&] { return ::fsync(descriptor); });
    if (result != 0 && errno != EINVAL && errno != ENOTSUP) ThrowSystemError(errno);
}

}  // namespace kaz
