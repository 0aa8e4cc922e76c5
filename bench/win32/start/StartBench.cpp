// bench_start KAZ2.exe FOLDER [ROUNDS]
//
// From the start of a process until its window is painted and the process has ended: KAZ2 on an empty folder,
// on 10,000 events and on 10,000 events that nobody looked at for five years, and a bare window with an empty
// list. Prints the least time of the rounds of each and their ratio to the bare window. FOLDER is made and
// written into.
//
// bench_start once bare | bench_start once KAZ2.exe FOLDER
//
// One start and end of the bare window, or of KAZ2 on an empty folder, for a clock outside.
#include "model/clsEvent.h"
#include "storage/EventXml.h"

#include <windows.h>
#include <commctrl.h>
#include <shellapi.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <limits>
#include <string>

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

double TimeOf(std::wstring command, const wchar_t* title, bool& ended) {
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    const double begin = Now();
    if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                        &process)) {
        std::fprintf(stderr, "cannot start it: error %lu\n", GetLastError());
        std::exit(1);
    }
    HWND window = nullptr;
    while (!IsPainted(title, window) && Now() - begin < 20000)
        Sleep(1);
    // The main window only hides when it is closed; the host's own window, which nobody sees, ends the
    // program.
    EnumThreadWindows(
        process.dwThreadId, [](HWND each, LPARAM) { return PostMessageW(each, WM_CLOSE, 0, 0); }, 0);
    ended = WaitForSingleObject(process.hProcess, 20000) == WAIT_OBJECT_0;
    const double time = Now() - begin;
    if (!ended) TerminateProcess(process.hProcess, 1);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return time;
}

// `behind`: how many days ago the events fell due last.
void WriteFolder(const fs::path& folder, int events, int behind) {
    fs::remove_all(folder);
    fs::create_directories(folder);
    const auto today = std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now());
    const auto day = static_cast<std::int32_t>(today.time_since_epoch().count()) + 25569;
    std::ofstream(folder / "Kaz.ini", std::ios::binary)
        << "OWNER,Ann\r\nDATAPATH," << folder.string() << "\r\nNOSOUNDS,-1\r\nNOAUTOBACKUPS,-1\r\n";
    std::string text(kaz::EventXml::kProlog);
    for (int i = 0; i < events; ++i) {
        kaz::clsEvent event;
        event.IDCode = std::to_string(100000 + i).substr(0, 6);
        event.Desc("Event " + std::to_string(i) + ": pay the caf\xE9 rent, see the e-mail of 3.2.");
        event.Owner("Ann");
        event.Layer(static_cast<std::int16_t>(1 + i % 19));
        event.Recurring(true);
        event.RecurrenceType(kaz::RecurEveryNDays);
        event.Period(static_cast<std::int16_t>(2 + i % 90));
        event.StartDate(kaz::DateValue(day + 1 + i % 60 - behind));
        event.DueDate(event.StartDate());
        kaz::EventXml::AppendBlock(text, event);
    }
    std::ofstream(folder / "Events.xml", std::ios::binary) << text;
}

double TimeOfBareWindow(bool& ended) {
    wchar_t self[MAX_PATH]{};
    GetModuleFileNameW(nullptr, self, MAX_PATH);
    return TimeOf(L"\"" + std::wstring(self) + L"\" bare", kBareTitle, ended);
}

double TimeOfProgram(const std::wstring& program, const fs::path& folder, bool& ended) {
    return TimeOf(L"\"" + program + L"\" \"" + folder.wstring() + L"\"", L"KAZ", ended);
}

bool StartOnce(int count, wchar_t** arguments) {
    bool ended = false;
    if (count == 3) {
        TimeOfBareWindow(ended);
    } else {
        WriteFolder(arguments[3], 0, 0);
        TimeOfProgram(arguments[2], arguments[3], ended);
    }
    return ended;
}

}  // namespace

int main() {
    int count = 0;
    wchar_t** arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    if (count == 2 && std::wstring(arguments[1]) == L"bare") return ShowBareWindow();
    if (count < 3) return 2;
    if (std::wstring(arguments[1]) == L"once") return StartOnce(count, arguments) ? 0 : 1;
    const std::wstring program = arguments[1];
    const fs::path folder = arguments[2];
    const int rounds = count > 3 ? _wtoi(arguments[3]) : 9;
    struct Case {
        const char* name;
        int events, behind;
    };
    constexpr Case kCases[] = {
        {"empty folder", 0, 0}, {"10000 events", 10000, 0}, {"10000 events, 5 years behind", 10000, 1826}};
    double bare = std::numeric_limits<double>::max();
    double ours[3] = {bare, bare, bare};
    bool ended = true;
    bool allEnded = true;
    // In turn, so that a slow moment of the machine meets all of them.
    for (int round = 0; round < rounds; ++round) {
        bare = std::min(bare, TimeOfBareWindow(ended));
        allEnded = allEnded && ended;
        for (int i = 0; i < 3; ++i) {
            WriteFolder(folder, kCases[i].events, kCases[i].behind);
            ours[i] = std::min(ours[i], TimeOfProgram(program, folder, ended));
            allEnded = allEnded && ended;
        }
    }
    std::printf("bare window                    %9.1f ms\n", bare);
    for (int i = 0; i < 3; ++i)
        std::printf("KAZ2, %-28s %6.1f ms   ratio %5.2f   beyond the empty folder %6.1f ms\n", kCases[i].name,
                    ours[i], ours[i] / bare, ours[i] - ours[0]);
    if (!allEnded) std::printf("some processes did not end by themselves\n");
    return allEnded ? 0 : 1;
}
