#include "hosts/kaz2/CommandOutput.h"

#include "win32/Handles.h"
#include "win32/Text.h"

#include <windows.h>

namespace kaz {

void TellOutcome(const std::wstring& text, bool isFailure) {
    const std::wstring line = text + L"\r\n";
    const std::string bytes = ToUtf8(line);
    DWORD written = 0;
    // Where the output goes into a file or to another program, it was handed over.
    const HANDLE handed = GetStdHandle(isFailure ? STD_ERROR_HANDLE : STD_OUTPUT_HANDLE);
    if (handed && handed != INVALID_HANDLE_VALUE && GetFileType(handed) != FILE_TYPE_CHAR &&
        WriteFile(handed, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr))
        return;
    if (AttachConsole(ATTACH_PARENT_PROCESS) || GetLastError() == ERROR_ACCESS_DENIED) {
        const FileHandle console(CreateFileW(L"CONOUT$", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_WRITE,
                                             nullptr, OPEN_EXISTING, 0, nullptr));
        if (console &&
            WriteConsoleW(console.Get(), line.data(), static_cast<DWORD>(line.size()), &written, nullptr))
            return;
    }
    if (isFailure) MessageBoxW(nullptr, text.c_str(), L"KAZ", MB_OK | MB_ICONINFORMATION | MB_SETFOREGROUND);
}

}  // namespace kaz
