#include "hosts/kaz2/TextFile.h"

#include "win32/Handles.h"
#include "win32/SystemCodePage.h"
#include "win32/Text.h"

#include <algorithm>

namespace kaz {

namespace {

constexpr DWORD kLargestFile = 16 * 1024 * 1024;
constexpr DWORD kEverybody = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

bool Write(const FileHandle& file, const std::string& bytes) {
    DWORD written = 0;
    return file && WriteFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
           written == bytes.size();
}

}  // namespace

std::optional<std::string> BytesOfFile(const std::wstring& fileName) {
    const FileHandle file(
        CreateFileW(fileName.c_str(), GENERIC_READ, kEverybody, nullptr, OPEN_EXISTING, 0, nullptr));
    if (!file) {
        const DWORD error = GetLastError();
        if (error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND) return "";
        return std::nullopt;
    }
    std::string bytes(std::min(GetFileSize(file.Get(), nullptr), kLargestFile), '\0');
    DWORD read = 0;
    if (!ReadFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr))
        return std::nullopt;
    bytes.resize(read);
    return bytes;
}

std::string Utf8OfFile(std::string bytes) {
    const int size = static_cast<int>(bytes.size());
    if (size == 0 || MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, bytes.data(), size, nullptr, 0) > 0)
        return bytes;
    const unsigned page = SystemCodePageNumber();
    std::wstring wide(static_cast<std::size_t>(MultiByteToWideChar(page, 0, bytes.data(), size, nullptr, 0)),
                      L'\0');
    MultiByteToWideChar(page, 0, bytes.data(), size, wide.data(), static_cast<int>(wide.size()));
    return ToUtf8(wide);
}

bool AppendToFile(const std::wstring& fileName, const std::string& bytes) {
    const FileHandle file(
        CreateFileW(fileName.c_str(), FILE_APPEND_DATA, kEverybody, nullptr, OPEN_ALWAYS, 0, nullptr));
    return Write(file, bytes);
}

bool ReplaceFileBy(const std::wstring& fileName, const std::string& bytes) {
    const std::wstring beside = fileName + L".new";
    FileHandle file(CreateFileW(beside.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    if (!Write(file, bytes)) return false;
    file.Reset();
    return MoveFileExW(beside.c_str(), fileName.c_str(), MOVEFILE_REPLACE_EXISTING);
}

}  // namespace kaz
