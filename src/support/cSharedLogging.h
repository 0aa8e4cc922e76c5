#pragma once

#include "base/DateValue.h"
#include "base/ErrorTrap.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "platform/SystemInfo.h"

#include <deque>
#include <span>
#include <string>
#include <string_view>

namespace kaz {

// The diagnostic log: plain lines of a number, the time and a text, and a short trail of recent actions that
// reaches the file in batches. No operation throws; a line that cannot be written is lost.
class cSharedLogging : public ErrorSink {
public:
    static constexpr std::string_view kDefaultName = "log.txt";

    struct About {
        std::string name;
        std::string version;
    };

    cSharedLogging(FileSystem& files, const Clock& clock, const SystemInfo& system, About about);
    // Writes what is left of the action trail.
    ~cSharedLogging() override;
    cSharedLogging(const cSharedLogging&) = delete;
    cSharedLogging& operator=(const cSharedLogging&) = delete;

    // Promised: the program itself never calls these.
    bool NOLOGGING() const noexcept { return noLogging_; }
    void NOLOGGING(bool off) noexcept { noLogging_ = off; }

    // The folder whose "log.txt" is the default log, without trailing backslash.
    void ApplicationFolder(const std::string& folder) noexcept;

    std::string CurrentLogFilename() const { return fileName_; }
    void OverrideLogFilename(const std::string& fileName) noexcept;

    void LogEvent(std::string_view text, bool newLog = false) noexcept;
    // Several lines with one opening of the file; for steps that have thousands of lines to tell.
    void LogEvents(std::span<const std::string> texts) noexcept;
    void LogToFile(const std::string& fileName, std::string_view text, bool newLog) noexcept;
    void LogError(const ErrorInfo& error, std::string_view procedure, std::string_view module) noexcept;

    // Promised: the program itself adds nothing to the trail, and so never asks for it.
    void AddDebug(std::string_view text, std::string_view procedure, std::string_view module) noexcept;
    void AddAction(std::string_view text, std::string_view procedure, std::string_view module) noexcept;
    void WriteActionsToLog() noexcept;
    std::string CurrentAction() const;

    void Report(const ErrorInfo& error, std::string_view procedure,
                std::string_view module) noexcept override {
        LogError(error, procedure, module);
    }

private:
    struct Action {
        std::string text;
        DateValue time;
    };

    void EnsureFileName();
    std::string Header() const;
    void AddToTrail(std::string text, std::string_view procedure, std::string_view module);

    FileSystem& files_;
    const Clock& clock_;
    const SystemInfo& system_;
    About about_;
    std::string folder_;
    std::string fileName_;
    std::deque<Action> trail_;
    bool noLogging_ = false;
};

}  // namespace kaz
