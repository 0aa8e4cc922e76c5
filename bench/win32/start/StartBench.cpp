// bench_start ROUNDS PROGRAMS FOLDER CASE...
//
// From the start of a process until its list is painted and the process has ended. A case is a data folder
// that PROGRAMS\KAZ2.exe starts on, copied to FOLDER first, or "bare" or "controls" for the program
// PROGRAMS\bench_<case>.exe. The cases are run in turn; prints the least time of each, and the most memory
// that it has used until it was painted.
#define PSAPI_VERSION 2  // the functions of the system itself: one library less
#include <windows.h>
#include <commctrl.h>
#include <psapi.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <limits>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;
constexpr DWORD kLongest = 20000;  // milliseconds

double Now() {
    LARGE_INTEGER count, frequency;
    QueryPerformanceCounter(&count);
    QueryPerformanceFrequency(&frequency);
    return 1000.0 * static_cast<double>(count.QuadPart) / static_cast<double>(frequency.QuadPart);
}

// Whether the window or something in it has still to be painted.
bool IsUnpainted(HWND window) {
    if (GetUpdateRect(window, nullptr, FALSE)) return true;
    bool unpainted = false;
    const auto look = [](HWND child, LPARAM result) -> BOOL {
        if (IsWindowVisible(child) && GetUpdateRect(child, nullptr, FALSE))
            *reinterpret_cast<bool*>(result) = true;
        return !*reinterpret_cast<bool*>(result);
    };
    EnumChildWindows(window, look, reinterpret_cast<LPARAM>(&unpainted));
    return unpainted;
}

// Whether one of the thread's windows is to be seen, with a list and all painted.
bool HasPaintedList(DWORD thread) {
    bool found = false;
    const auto look = [](HWND window, LPARAM result) -> BOOL {
        if (!IsWindowVisible(window) || !FindWindowExW(window, nullptr, WC_LISTVIEWW, nullptr)) return TRUE;
        *reinterpret_cast<bool*>(result) = !IsUnpainted(window);
        return FALSE;
    };
    EnumThreadWindows(thread, look, reinterpret_cast<LPARAM>(&found));
    return found;
}

struct Case {
    std::wstring name;
    double time = std::numeric_limits<double>::max();
    double megabytes = 0;
};

// False when the process could not be started or did not end by itself.
bool Start(std::wstring command, Case& result) {
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    const double begin = Now();
    if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                        &process)) {
        std::fprintf(stderr, "cannot start it: error %lu\n", GetLastError());
        return false;
    }
    // KAZ2 goes on with its first tick at once. A look that falls into it comes too late, and only the least
    // of many rounds is without it.
    bool painted = false;
    while (!(painted = HasPaintedList(process.dwThreadId)) && Now() - begin < kLongest)
        Sleep(1);
    PROCESS_MEMORY_COUNTERS memory{};
    GetProcessMemoryInfo(process.hProcess, &memory, sizeof memory);
    PostThreadMessageW(process.dwThreadId, WM_QUIT, 0, 0);
    const bool ended = WaitForSingleObject(process.hProcess, kLongest) == WAIT_OBJECT_0;
    result.time = std::min(result.time, Now() - begin);
    result.megabytes = std::max(result.megabytes, static_cast<double>(memory.PeakWorkingSetSize) / 1048576.0);
    if (!ended) TerminateProcess(process.hProcess, 1);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return ended && painted;
}

std::wstring Quoted(const fs::path& path) { return L"\"" + path.wstring() + L"\""; }

bool Start(const fs::path& programs, const fs::path& folder, Case& result) {
    const fs::path own = programs / (L"bench_" + result.name + L".exe");
    if (fs::exists(own)) return Start(Quoted(own), result);
    fs::remove_all(folder);
    fs::copy(result.name, folder);
    return Start(Quoted(programs / "KAZ2.exe") + L" " + Quoted(folder), result);
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    if (count < 5) return 2;
    std::vector<Case> cases;
    for (int i = 4; i < count; ++i)
        cases.push_back({arguments[i]});
    // In turn, so that a slow moment of the machine meets all of them.
    for (int round = 0; round < _wtoi(arguments[1]); ++round)
        for (Case& each : cases)
            if (!Start(arguments[2], arguments[3], each)) {
                std::fprintf(stderr, "%ls did not start and end by itself\n", each.name.c_str());
                return 1;
            }
    for (const Case& each : cases) {
        const std::string name = fs::path(each.name).filename().string();
        std::printf("%-24s %10.3f ms\n%-24s %10.3f MB\n", name.c_str(), each.time, name.c_str(),
                    each.megabytes);
    }
    return 0;
}
