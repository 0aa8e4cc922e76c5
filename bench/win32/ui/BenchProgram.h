#pragma once

#include "core/Application.h"
#include "core/MainWindow.h"
#include "forms/Form.h"
#include "forms/win32/Win32Platform.h"

#include <windows.h>

#include <memory>

namespace kaz {

// The program's own main window over events in memory; the log is written as it is in the program.
class BenchProgram : public MainWindowEvents {
public:
    BenchProgram();
    ~BenchProgram();
    BenchProgram(const BenchProgram&) = delete;
    BenchProgram& operator=(const BenchProgram&) = delete;

    HWND List() const { return list_; }
    HWND Window() const { return GetParent(list_); }
    Application& App() { return app_; }
    MainWindow& Main() { return *main_; }
    void Raise(int control, Raised what, int detail) {
        dynamic_cast<Form&>(*main_).OnRaised(control, what, detail);
    }

    // Puts so many events into memory. None of them is due, coming up or past, and none has an alarm: nothing
    // of them is shown but in the list.
    void Events(int count);

private:
    void fMain_ShutDownKAZ() override {}
    void fMain_Rescan() override {}
    void fMain_WindowClosed() override {}

    Win32Platform machine_{GetModuleHandleW(nullptr)};
    Application app_{machine_.Services()};
    std::shared_ptr<MainWindow> main_;
    HWND list_ = nullptr;
};

}  // namespace kaz
