#include "unit/storage/SavingProcess.h"

#include "win32/Handles.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <stdexcept>

namespace kaz {

namespace {

constexpr const char* kFolder = "KAZ_SAVE_IN";
constexpr const char* kGeneration = "KAZ_SAVE_FROM";

}  // namespace

struct SavingProcess::Process {
    PROCESS_INFORMATION running{};
    FileHandle told;
};

void SavingProcess::SaveIfStartedForThat(const Save& save) {
    const char* folder = std::getenv(kFolder);
    const char* from = std::getenv(kGeneration);
    if (!folder || !from) return;
    const HANDLE pipe = GetStdHandle(STD_ERROR_HANDLE);
    DWORD size = sizeof(int);
    for (int generation = std::atoi(from); save(folder, generation); ++generation)
        if (!WriteFile(pipe, &generation, size, &size, nullptr)) break;
    ExitProcess(1);
}

SavingProcess::SavingProcess(const Save& /*save*/, const std::string& folder, int generation)
    : process_(std::make_unique<Process>()) {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    HANDLE read = nullptr;
    HANDLE write = nullptr;
    if (!CreatePipe(&read, &write, &inherited, 0)) throw std::runtime_error("no pipe");
    process_->told.Reset(read);
    const FileHandle theirs(write);
    SetHandleInformation(read, HANDLE_FLAG_INHERIT, 0);

    SetEnvironmentVariableA(kFolder, folder.c_str());
    SetEnvironmentVariableA(kGeneration, std::to_string(generation).c_str());
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    char program[MAX_PATH];
    GetModuleFileNameA(nullptr, program, MAX_PATH);
    std::string command =
        std::string("\"") + program + "\" --gtest_filter=" + test->test_suite_name() + "." + test->name();
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdError = write;
    const BOOL started = CreateProcessA(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                                        &startup, &process_->running);
    SetEnvironmentVariableA(kFolder, nullptr);
    if (!started) throw std::runtime_error("not started: " + command);
}

SavingProcess::~SavingProcess() {
    Kill();
    CloseHandle(process_->running.hThread);
    CloseHandle(process_->running.hProcess);
}

int SavingProcess::NextSaved() {
    int generation = 0;
    DWORD size = 0;
    const BOOL read = ReadFile(process_->told.Get(), &generation, sizeof generation, &size, nullptr);
    return read && size == sizeof generation ? generation : 0;
}

void SavingProcess::Kill() {
    TerminateProcess(process_->running.hProcess, 9);
    WaitForSingleObject(process_->running.hProcess, INFINITE);
}

}  // namespace kaz
