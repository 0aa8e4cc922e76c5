#include "platform/Files.h"

#include "base/Text.h"
#include "platform/SafeFileWriter.h"

namespace kaz {

bool FileExists(const FileSystem& files, const std::string& path) {
    return !path.empty() && files.Kind(path) == PathKind::File;
}

bool FolderExists(const FileSystem& files, const std::string& path) {
    return !path.empty() && files.Kind(path) == PathKind::Folder;
}

std::string ReadWholeFile(FileSystem& files, const std::string& path) {
    const auto file = files.OpenForReading(path);
    constexpr std::size_t kPiece = 65536;
    std::string text;
    std::size_t used = 0;
    for (;;) {
        // One byte more than announced, so that the end is met without growing the buffer.
        const auto announced = static_cast<std::size_t>(file->Size()) + 1;
        text.resize(used < announced ? announced : used + kPiece);
        const std::size_t read = file->Read(text.data() + used, text.size() - used);
        used += read;
        if (read == 0) break;
    }
    text.resize(used);
    return text;
}

std::string ReadFileOrEmpty(FileSystem& files, const std::string& path) {
    return files.Kind(path) == PathKind::Missing ? std::string() : ReadWholeFile(files, path);
}

bool IsText(std::string_view bytes) {
    return bytes.find('\0') == std::string_view::npos && !bytes.starts_with("\xFF\xFE") &&
           !bytes.starts_with("\xFE\xFF");
}

void AppendText(FileSystem& files, const std::string& path, std::string_view text) {
    const auto file = files.OpenForAppending(path);
    file->Write(text);
    file->Close();
}

void WriteWholeFile(FileSystem& files, const std::string& path, std::string_view text) {
    SafeFileWriter writer(files, path);
    writer.Write(text);
    writer.Commit();
}

bool IsForbiddenInFileName(char c) {
    return IsControl(c) || std::string_view("\\/:*?\"<>|").find(c) != std::string_view::npos;
}

std::string JoinPath(std::string_view folder, std::string_view name) {
    std::string path(folder);
    if (path.empty() || path.back() != '\\') path += '\\';
    return path.append(name);
}

std::string WithoutTrailingBackslash(std::string_view folder) {
    const auto isRoot = [&] { return folder.size() == 1 || (folder.size() == 3 && folder[1] == ':'); };
    while (!folder.empty() && folder.back() == '\\' && !isRoot())
        folder.remove_suffix(1);
    return std::string(folder);
}

namespace {

std::size_t NameStart(std::string_view path) {
    const auto at = path.find_last_of("\\/:");
    return at == std::string_view::npos ? 0 : at + 1;
}

}  // namespace

std::string FolderOf(std::string_view path) {
    const std::string_view folder = path.substr(0, NameStart(path));
    // "C:" without the backslash would be another folder: the current one of that drive.
    const bool root = folder.size() <= 1 || folder.ends_with(':') || (folder.size() == 3 && folder[1] == ':');
    return std::string(root ? folder : folder.substr(0, folder.size() - 1));
}

std::string FileNameOf(std::string_view path) { return std::string(path.substr(NameStart(path))); }

std::string WithExtension(std::string_view path, std::string_view extension) {
    const auto dot = path.rfind('.');
    const bool inName = dot != std::string_view::npos && dot >= NameStart(path);
    return std::string(inName ? path.substr(0, dot) : path).append(extension);
}

}  // namespace kaz
