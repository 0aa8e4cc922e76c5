#include "hosts/kaz2/TextFile.h"

#include "hosts/kaz2/Owned.h"

#include <algorithm>

namespace kaz {

namespace {

constexpr DWORD kLargestFile = 16 * 1024 * 1024;
constexpr DWORD kEverybody = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

}  // namespace

std::optional<std::string> BytesOfFile(const std::wstring& fileName) {
    const OwnedHandle file = FileHandle(
        CreateFileW(fileName.c_str(), GENERIC_READ, kEverybody, nullptr, OPEN_EXISTING, 0, nullptr));
    if (!file) {
        const DWORD error = GetLastError();
        if (error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND) return "";
        return std::nullopt;
    }
    std::string bytes(std::min(GetFileSize(file.get(), nullptr), kLargestFile), '\0');
    DWORD read = 0;
    if (!ReadFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr))
        return std::nullopt;
    bytes.resize(read);
    return bytes;
}

bool AppendToFile(const std::wstring& fileName, const std::string& bytes) {
    const OwnedHandle file = FileHandle(
        CreateFileW(fileName.c_str(), FILE_APPEND_DATA, kEverybody, nullptr, OPEN_ALWAYS, 0, nullptr));
    DWORD written = 0;
    return file && WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

}  // namespace kaz
