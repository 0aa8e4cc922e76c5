#include "core/clsComponent.h"

#include "base/RuntimeError.h"
#include "core/ClockGuard.h"
#include "core/EventMail.h"
#include "core/HostLists.h"
#include "core/Startup.h"
#include "platform/Files.h"
#include "platform/MessagePump.h"
#include "support/Names.h"

namespace kaz {

namespace {

// The folder as all later file names need it. A host that hands over something else hears of it in the log.
std::string CheckedRuntimePath(Application& app, const std::string& given) {
    std::string folder = WithoutTrailingBackslash(given);
    if (FolderExists(app.platform.files, folder)) return folder;
    throw RuntimeError(ErrorNumber::PathNotFound, "Path not found: \"" + given + "\"");
}

}  // namespace

clsComponent::clsComponent(const Platform& platform, MainWindowFactory mainWindows, ComponentEvents& host)
    : application_(platform),
      mainWindows_(std::move(mainWindows)),
      host_(host) {
    application_.reminderWindows.requests.sendMail = [this](const OccurrenceRef& of) {
        return EventMail(application_, host_).SendMissed(of);
    };
    application_.reminderWindows.requests.missedChanged = [this](std::size_t missed) {
        host_.MissedEvents(static_cast<std::int32_t>(missed));
    };
}

clsComponent::~clsComponent() = default;

bool clsComponent::SettingsInitialised() const noexcept { return application_.settingsInitialised; }

std::string clsComponent::DLLVersion() const noexcept {
    try {
        return VersionText();
    } catch (...) {
        return {};
    }
}

void clsComponent::Startup(const std::string& runtimePath) noexcept {
    ErrorTrap trap(application_.errors, "Startup", kModule);
    trap([&] {
        const bool named = !runtimePath.empty();
        application_.log.OverrideLogFilename(named ? JoinPath(runtimePath, kLogFile) : std::string(kLogFile));
        application_.runtimePath = CheckedRuntimePath(application_, runtimePath);
        application_.log.ApplicationFolder(application_.runtimePath);
        kaz::Startup(application_).Run();
    });
    // A start that failed is not one that died.
    if (!SettingsInitialised()) application_.runMark.End();
}

void clsComponent::SetOptions(const std::string& /*runtimePath*/) noexcept {
    if (!SettingsInitialised()) return;
    ErrorTrap trap(application_.errors, "SetOptions", kModule);
    trap([&] { EnsureMainWindow()->EditOptions(); });
}

void clsComponent::RefreshDates() noexcept {
    if (!SettingsInitialised()) return;
    ErrorTrap trap(application_.log, "RefreshDates", kModule);
    trap([&] {
        application_.clockGuard->Look();
        application_.MakeReminder().UpdateAllEvents();
    });
}

void clsComponent::ScanEvents() noexcept {
    if (!SettingsInitialised()) return;
    ErrorTrap trap(application_.errors, "ScanEvents", kModule);
    trap([&] {
        if (fMain_.expired()) EnsureMainWindow()->FillEvents(clsLayers::kAll);
        application_.MoveSharedOn();
        const HostLists lists(application_, host_);
        host_.TodaysEvents(lists.todays);
        host_.UpcomingEvents(lists.upcoming);
        host_.AllEvents(lists.all);
    });
}

void clsComponent::ShowMain() noexcept {
    if (!SettingsInitialised()) return;
    ErrorTrap trap(application_.errors, "ShowMain", kModule);
    trap([&] {
        const auto main = EnsureMainWindow();
        if (main->IsShown())
            main->BringForward();
        else
            main->ShowWindow();
    });
}

void clsComponent::HideMain() noexcept {
    const auto main = fMain_.lock();
    if (!main) return;
    ErrorTrap trap(application_.log, "HideMain", kModule);
    trap([&] {
        main->HideWindow();
        application_.platform.pump.ProcessPending();
    });
}

void clsComponent::ShutDown() noexcept {
    ErrorTrap trap(application_.errors, "ShutDown", kModule);
    trap([&] {
        const auto main = fMain_.lock();
        // Released first, so that nothing reaches a window that is going.
        fMain_.reset();
        if (main) main->Unload();
    });
    trap([&] { application_.EndProgram(); });
}

LineAnswer clsComponent::AddInWords(const std::string& line) noexcept {
    LineAnswer answer;
    ErrorTrap trap(application_.errors, "AddInWords", kModule);
    trap([&] { answer.told = "The event could not be stored. The reason is in the log."; });
    if (SettingsInitialised()) trap([&] { answer = EnsureMainWindow()->AddInWords(line); });
    return answer;
}

void clsComponent::fMain_ShutDownKAZ() { host_.ShutDownKAZ(); }

void clsComponent::fMain_Rescan() { ScanEvents(); }

void clsComponent::fMain_WindowClosed() { host_.Closed(); }

std::shared_ptr<MainWindow> clsComponent::EnsureMainWindow() {
    auto main = fMain_.lock();
    if (!main) fMain_ = main = mainWindows_(application_, *this);
    return main;
}

}  // namespace kaz
