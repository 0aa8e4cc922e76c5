#pragma once

#include <windows.h>

#include <filesystem>
#include <string>

namespace kaz::test {

// KAZ2.exe, started for one test and stopped at its end if it still runs.
class RunningHost {
public:
    // `arguments` as on a command line; `program` is by default the one beside the test. What it prints goes
    // to `output`, an inheritable handle.
    explicit RunningHost(const std::wstring& arguments, const std::filesystem::path& program = Program(),
                         HANDLE output = nullptr);
    ~RunningHost();
    RunningHost(const RunningHost&) = delete;
    RunningHost& operator=(const RunningHost&) = delete;

    static std::filesystem::path Program();

    HANDLE Process() const { return process_.hProcess; }

    // The host's own window that nobody sees; null when it did not come within some seconds.
    HWND HostWindow() const;
    // The window of this process that the user sees under that title now, or null.
    HWND VisibleWindow(const wchar_t* title) const;
    // What a cell of a report list of its windows shows, in the system's code page.
    std::string CellText(HWND list, int row, int column) const;
    // The exit code, or -1 when the process does not end within some seconds.
    int ExitCode() const;

private:
    PROCESS_INFORMATION process_{};
};

// Has the clock of KAZ_CLOCK be that far ahead of the machine's. The file is looked at when more than a
// second has passed, in whole seconds.
void SetClockAhead(int seconds);

// Asks until the answer is yes, ten seconds at most; false when it stays no.
template <class Question>
bool Eventually(Question&& question) {
    for (int attempt = 0; attempt < 200; ++attempt, Sleep(50))
        if (question()) return true;
    return false;
}

}  // namespace kaz::test
