#include "platform/SafeFileWriter.h"

#include "base/RuntimeError.h"
#include "platform/Files.h"

#include <algorithm>
#include <random>

namespace kaz {

namespace {

constexpr std::string_view kEnding = ".new";
constexpr std::size_t kLetters = 5;

// Two programs may save the same file at the same time, so each writes beside it under a name of its own.
std::string UniqueEnding() {
    static std::mt19937 engine{std::random_device()()};
    std::string ending = ".";
    for (std::size_t i = 0; i < kLetters; ++i)
        ending += static_cast<char>('a' + engine() % 26);
    return ending.append(kEnding);
}

// Whether the name could be one that a writer of `fileName` uses.
bool IsBeside(std::string_view name, std::string_view fileName) {
    if (name.size() != fileName.size() + 1 + kLetters + kEnding.size()) return false;
    const std::string_view letters = name.substr(fileName.size() + 1, kLetters);
    return name.starts_with(fileName) && name[fileName.size()] == '.' && name.ends_with(kEnding) &&
           std::all_of(letters.begin(), letters.end(), [](char c) { return c >= 'a' && c <= 'z'; });
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
    date_ = files_.ModificationTime(beside_);
    files_.Replace(beside_, path_);
    committed_ = true;
}

int SafeFileWriter::DeleteAbandoned(FileSystem& files, const std::string& path) {
    constexpr FileTime kDay = FileTime{24} * 60 * 60 * 10'000'000;
    const std::optional<FileTime> saved = files.ModificationTime(path);
    if (!saved) return 0;
    int deleted = 0;
    for (const std::string& name : files.FilesIn(FolderOf(path))) {
        if (!IsBeside(name, FileNameOf(path))) continue;
        const std::string beside = JoinPath(FolderOf(path), name);
        if (*saved - files.ModificationTime(beside).value_or(*saved) < kDay) continue;
        files.Delete(beside);
        ++deleted;
    }
    return deleted;
}

}  // namespace kaz
