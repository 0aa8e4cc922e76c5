#include "platform/SafeFileWriter.h"

#include "base/RuntimeError.h"

#include <random>

namespace kaz {

namespace {

// Two programs may save the same file at the same time, so each writes beside it under a name of its own.
std::string UniqueEnding() {
    static std::mt19937 engine{std::random_device()()};
    std::string ending = ".";
    for (int i = 0; i < 5; ++i)
        ending += static_cast<char>('a' + engine() % 26);
    return ending + ".new";
}

}  // namespace

SafeFileWriter::SafeFileWriter(FileSystem& files, std::string path)
    : files_(files),
      path_(std::move(path)),
      beside_(path_ + UniqueEnding()) {
    const PathKind kind = files_.Kind(path_);
    if (kind == PathKind::Folder || kind == PathKind::Other) throw RuntimeError(ErrorNumber::PathFileAccess);
    // Replacing a file needs only its folder to be writable, so a file that its owner protected has to be
    // asked about.
    if (kind == PathKind::File && files_.IsReadOnly(path_)) throw RuntimeError(ErrorNumber::PermissionDenied);
    file_ = files_.Create(beside_);
}

SafeFileWriter::~SafeFileWriter() {
    if (committed_) return;
    file_.reset();
    try {
        files_.Delete(beside_);
    } catch (...) {
        // A file that cannot be removed stays beside; the one that matters is untouched.
        static_cast<void>(0);
    }
}

void SafeFileWriter::Commit() {
    file_->Flush();
    file_->Close();
    file_.reset();
    files_.Replace(beside_, path_);
    committed_ = true;
}

}  // namespace kaz
