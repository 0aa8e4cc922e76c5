#include "hosts/kaz2/HostLog.h"

#include "hosts/kaz2/DataFolder.h"
#include "hosts/kaz2/TextFile.h"

#include <windows.h>

#include <cstdio>

namespace kaz {

namespace {

constexpr ULONGLONG kLargest = 256 * 1024;  // bytes; then the log begins anew, beside the old one

ULONGLONG SizeOf(const std::wstring& fileName) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (!GetFileAttributesExW(fileName.c_str(), GetFileExInfoStandard, &data)) return 0;
    return (static_cast<ULONGLONG>(data.nFileSizeHigh) << 32) | data.nFileSizeLow;
}

}  // namespace

HostLog::HostLog(const std::wstring& folder) : fileName_(InFolder(folder, L"KAZ2.log")) {}

void HostLog::Write(std::string_view line) const {
    if (SizeOf(fileName_) > kLargest)
        MoveFileExW(fileName_.c_str(), (fileName_ + L".old").c_str(), MOVEFILE_REPLACE_EXISTING);
    SYSTEMTIME now;
    GetLocalTime(&now);
    char time[32];
    std::snprintf(time, sizeof time, "%04d-%02d-%02d %02d:%02d:%02d, ", now.wYear, now.wMonth, now.wDay,
                  now.wHour, now.wMinute, now.wSecond);
    AppendToFile(fileName_, std::string(time).append(line).append("\r\n"));
}

}  // namespace kaz
