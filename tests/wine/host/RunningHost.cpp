#include "RunningHost.h"

#include <commctrl.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

namespace kaz::test {

namespace {

std::wstring TextOf(HWND window) {
    wchar_t text[100] = L"";
    InternalGetWindowText(window, text, 100);
    return text;
}

struct Search {
    DWORD process;
    const wchar_t* title;
    HWND found = nullptr;
};

BOOL CALLBACK Look(HWND window, LPARAM parameter) {
    auto& wanted = *reinterpret_cast<Search*>(parameter);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process == wanted.process && IsWindowVisible(window) && TextOf(window) == wanted.title)
        wanted.found = window;
    return TRUE;
}

}  // namespace

RunningHost::RunningHost(const std::wstring& arguments, const std::filesystem::path& program, HANDLE output) {
    STARTUPINFOW start{};
    start.cb = sizeof start;
    if (output) {
        start.dwFlags = STARTF_USESTDHANDLES;
        start.hStdOutput = start.hStdError = output;
    }
    std::wstring line = L"\"" + program.wstring() + L"\" " + arguments;
    EXPECT_TRUE(CreateProcessW(nullptr, line.data(), nullptr, nullptr, output != nullptr, 0, nullptr, nullptr,
                               &start, &process_));
}

RunningHost::~RunningHost() {
    TerminateProcess(process_.hProcess, 99);
    WaitForSingleObject(process_.hProcess, 5000);
    CloseHandle(process_.hThread);
    CloseHandle(process_.hProcess);
}

std::filesystem::path RunningHost::Program() {
    wchar_t program[MAX_PATH];
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    return std::filesystem::path(program).replace_filename("KAZ2.exe");
}

HWND RunningHost::HostWindow() const {
    HWND window = nullptr;
    Eventually([&] {
        while ((window = FindWindowExW(nullptr, window, L"KAZ2Host", nullptr))) {
            DWORD process = 0;
            GetWindowThreadProcessId(window, &process);
            if (process == process_.dwProcessId) return true;
        }
        return false;
    });
    return window;
}

HWND RunningHost::VisibleWindow(const wchar_t* title) const {
    Search search{process_.dwProcessId, title};
    EnumWindows(Look, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

std::string RunningHost::CellText(HWND list, int row, int column) const {
    // The list looks for the text's place in its own process.
    struct Cell {
        LVITEMA item{};
        char text[200] = "";
    } cell;
    void* const there =
        VirtualAllocEx(process_.hProcess, nullptr, sizeof cell, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE);
    cell.item.iSubItem = column;
    cell.item.pszText = static_cast<Cell*>(there)->text;
    cell.item.cchTextMax = sizeof cell.text;
    WriteProcessMemory(process_.hProcess, there, &cell, sizeof cell, nullptr);
    SendMessageA(list, LVM_GETITEMTEXTA, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(there));
    ReadProcessMemory(process_.hProcess, there, &cell, sizeof cell, nullptr);
    VirtualFreeEx(process_.hProcess, there, 0, MEM_RELEASE);
    return cell.text;
}

int RunningHost::ExitCode() const {
    if (WaitForSingleObject(process_.hProcess, 20000) != WAIT_OBJECT_0) return -1;
    DWORD code = 0;
    GetExitCodeProcess(process_.hProcess, &code);
    return static_cast<int>(code);
}

void SetClockAhead(int seconds) {
    std::ofstream(std::getenv("KAZ_CLOCK")) << (seconds < 0 ? "" : "+") << seconds << "\n";
    Sleep(2100);
}

}  // namespace kaz::test
