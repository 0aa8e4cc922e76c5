#pragma once

#include "core/Application.h"
#include "core/ComponentEvents.h"
#include "core/MainWindow.h"

#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace kaz {

// The whole program as its host sees it. The operations stand in the order of the public interface. None of
// them lets an exception out: failures end in the error report or the log.
class clsComponent : public MainWindowEvents {
public:
    // `host` receives the events; it and the platform outlive the component.
    clsComponent(const Platform& platform, MainWindowFactory mainWindows, ComponentEvents& host);
    ~clsComponent() override;

    bool SettingsInitialised() const noexcept;
    std::string DLLVersion() const noexcept;
    // `runtimePath`: the folder of the application's files. Call it first and
    // once; nothing else works before.
    void Startup(const std::string& runtimePath) noexcept;
    void SetOptions(const std::string& runtimePath) noexcept;
    void RefreshDates() noexcept;
    void ScanEvents() noexcept;
    void ShowMain() noexcept;
    void HideMain() noexcept;
    void ShutDown() noexcept;

    // Stores the event that a line in words says, such as "dentist tomorrow 15:30".
    LineAnswer AddInWords(const std::string& line) noexcept;

    void fMain_ShutDownKAZ() override;
    void fMain_Rescan() override;
    void fMain_WindowClosed() override;

private:
    static constexpr std::string_view kModule = "clsComponent";

    // Shared for the time of the call: a host may end the program while a dialog of the main window is open.
    std::shared_ptr<MainWindow> EnsureMainWindow();

    Application application_;
    MainWindowFactory mainWindows_;
    ComponentEvents& host_;
    std::weak_ptr<MainWindow> fMain_;  // it lives among the open windows; the user can end it in the tray
};

}  // namespace kaz
