#include "platform/SafeFileWriter.h"

#include "base/RuntimeError.h"

namespace kaz {

SafeFileWriter::SafeFileWriter(FileSystem& files, std::string path)
    : files_(files), path_(std::move(path)), beside_(path_ + ".new") {
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
        // What is left beside the file is overwritten by the next save; the file itself is untouched.
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
