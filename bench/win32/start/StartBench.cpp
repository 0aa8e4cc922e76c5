// bench_start ROUNDS KAZ2.exe FOLDER CASE...
//
// From the start of a process until its list is painted and the process has ended. A case is a data folder
// that KAZ2 starts on, copied to FOLDER first, or "bare": a window with an empty list. The cases are run in
// turn; prints the least time of each, and the most memory that it has used until it was painted.
#include <windows.h>
#include <commctrl.h>
#include <psapi.h>
#include <shellapi.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <limits>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;
constexpr wchar_t kBareTitle[] = L"bench_start bare";

double Now() {
    LARGE_INTEGER count, frequency;
    QueryPerformanceCounter(&count);
    QueryPerformanceFrequency(&frequency);
    return 1000.0 * static_cast<double>(count.QuadPart) / static_cast<double>(frequency.QuadPart);
}

// The child's part of the bare window: it ends when it is closed.
int ShowBareWindow() {
    InitCommonControls();
    const HWND window =
        CreateWindowExW(0, L"#32770", kBareTitle, WS_OVERLAPPEDWINDOW, CW_USEDEFAULT, CW_USEDEFAULT, 776, 464,
                        nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    CreateWindowExW(0, WC_LISTVIEWW, L"", WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_OWNERDATA, 0, 0, 760, 430,
                    window, nullptr, GetModuleHandleW(nullptr), nullptr);
    ShowWindow(window, SW_SHOW);
    UpdateWindow(window);
    MSG message;
    while (IsWindow(window) && GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (message.message == WM_CLOSE || message.message == WM_SYSCOMMAND) break;
        DispatchMessageW(&message);
    }
    return 0;
}

// The list of the first window of the process that is to be seen under that title, once it has nothing left
// to paint.
bool IsPainted(const wchar_t* title, HWND& window) {
    window = FindWindowW(nullptr, title);
    if (!window || !IsWindowVisible(window)) return false;
    const HWND list = FindWindowExW(window, nullptr, WC_LISTVIEWW, nullptr);
    return list && !GetUpdateRect(list, nullptr, FALSE);
}

struct Case {
    std::wstring folder;  // empty for the bare window
    double time = std::numeric_limits<double>::max();
    double megabytes = 0;
};

// False when the process could not be started or did not end by itself.
bool Start(std::wstring command, const wchar_t* title, Case& result) {
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    const double begin = Now();
    if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                        &process)) {
        std::fprintf(stderr, "cannot start it: error %lu\n", GetLastError());
        return false;
    }
    HWND window = nullptr;
    while (!IsPainted(title, window) && Now() - begin < 20000)
        Sleep(1);
    PROCESS_MEMORY_COUNTERS memory{};
    GetProcessMemoryInfo(process.hProcess, &memory, sizeof memory);
    // The main window only hides when it is closed; the host's own window, which nobody sees, ends the
    // program.
    EnumThreadWindows(
        process.dwThreadId, [](HWND each, LPARAM) { return PostMessageW(each, WM_CLOSE, 0, 0); }, 0);
    const bool ended = WaitForSingleObject(process.hProcess, 20000) == WAIT_OBJECT_0;
    result.time = std::min(result.time, Now() - begin);
    result.megabytes = std::max(result.megabytes, static_cast<double>(memory.PeakWorkingSetSize) / 1048576.0);
    if (!ended) TerminateProcess(process.hProcess, 1);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return ended && window;
}

bool StartBareWindow(Case& result) {
    wchar_t self[MAX_PATH]{};
    GetModuleFileNameW(nullptr, self, MAX_PATH);
    return Start(L"\"" + std::wstring(self) + L"\" bare", kBareTitle, result);
}

bool StartProgram(const std::wstring& program, const fs::path& folder, Case& result) {
    fs::remove_all(folder);
    fs::copy(result.folder, folder);
    return Start(L"\"" + program + L"\" \"" + folder.wstring() + L"\"", L"KAZ", result);
}

}  // namespace

int main() {
    int count = 0;
    wchar_t** arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    if (count == 2 && std::wstring(arguments[1]) == L"bare") return ShowBareWindow();
    if (count < 5) return 2;
    std::vector<Case> cases;
    for (int i = 4; i < count; ++i)
        cases.push_back({std::wstring(arguments[i]) == L"bare" ? L"" : arguments[i]});
    // In turn, so that a slow moment of the machine meets all of them.
    for (int round = 0; round < _wtoi(arguments[1]); ++round)
        for (Case& each : cases)
            if (!(each.folder.empty() ? StartBareWindow(each)
                                      : StartProgram(arguments[2], arguments[3], each))) {
                std::fprintf(stderr, "%ls did not start and end by itself\n", each.folder.c_str());
                return 1;
            }
    for (const Case& each : cases) {
        const std::string name = each.folder.empty() ? "bare" : fs::path(each.folder).filename().string();
        std::printf("%-24s %10.3f ms\n%-24s %10.3f MB\n", name.c_str(), each.time, name.c_str(),
                    each.megabytes);
    }
    return 0;
}
