#include "core/Reason.h"

#include "base/RuntimeError.h"
#include "platform/Files.h"

namespace kaz {

namespace {

std::string DiskOf(const std::string& file) {
    const bool named = file.size() >= 2 && file[1] == ':';
    return named ? "the disk " + file.substr(0, 2) : "the disk of " + FolderOf(file);
}

}  // namespace

std::string Reason(const FileSystem& files, const std::string& file, const ErrorInfo& error) {
    const std::string folder = FolderOf(file);
    if (!folder.empty() && files.Kind(folder) == PathKind::Missing)
        return "the folder " + folder + " is not there";
    switch (static_cast<ErrorNumber>(error.number)) {
    case ErrorNumber::DiskFull: return DiskOf(file) + " is full";
    case ErrorNumber::DeviceError: return DiskOf(file) + " reports a fault";
    case ErrorNumber::PermissionDenied:
        if (FileExists(files, file) && files.IsReadOnly(file)) return "the file " + file + " is read-only";
        if (files.IsReadOnly(folder)) return "the folder " + folder + " is read-only";
        return "another program holds the file " + file;
    default: return file + ": " + error.description;
    }
}

}  // namespace kaz
