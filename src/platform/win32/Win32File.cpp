#include "platform/win32/Win32File.h"

#include "win32/SystemError.h"

#include <algorithm>

namespace kaz {

namespace {

DWORD Piece(std::size_t size) {
    constexpr std::size_t kMost = 64U * 1024U * 1024U;
    return static_cast<DWORD>(std::min(size, kMost));
}

}  // namespace

Win32InputFile::Win32InputFile(FileHandle file) : file_(std::move(file)) {
    if (GetFileType(file_.Get()) != FILE_TYPE_DISK) throw RuntimeError(ErrorNumber::PathFileAccess);
    LARGE_INTEGER size{};
    if (GetFileSizeEx(file_.Get(), &size)) size_ = static_cast<std::uint64_t>(size.QuadPart);
}

std::size_t Win32InputFile::Read(char* buffer, std::size_t capacity) {
    DWORD read = 0;
    if (!ReadFile(file_.Get(), buffer, Piece(capacity), &read, nullptr)) ThrowSystemError(GetLastError());
    return read;
}

void Win32OutputFile::Write(std::string_view text) {
    while (!text.empty()) {
        DWORD written = 0;
        if (!WriteFile(file_.Get(), text.data(), Piece(text.size()), &written, nullptr))
            ThrowSystemError(GetLastError());
        if (written == 0) throw RuntimeError(ErrorNumber::DiskFull);
        text.remove_prefix(written);
    }
}

void Win32OutputFile::Flush() {
    if (!FlushFileBuffers(file_.Get())) ThrowSystemError(GetLastError());
}

void Win32OutputFile::Close() {
    if (file_ && !CloseHandle(file_.Release())) ThrowSystemError(GetLastError());
}

}  // namespace kaz
