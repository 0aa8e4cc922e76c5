#include "support/cSharedLogging.h"

#include "base/CodePage.h"
#include "base/DateText.h"
#include "base/Text.h"
#include "base/Utf8.h"
#include "platform/Files.h"

#include <utility>

namespace kaz {

namespace {

constexpr std::size_t kMostActions = 20;

// The number is that of the run-time file through which the line was once written. It never meant more, but
// every tool that reads such logs expects it.
constexpr std::string_view kFileNumber = "1 ";

// A description can be as long as a book, and be told with every line about its event.
constexpr std::size_t kLongestLine = 2000;
constexpr std::string_view kCut = " [cut]";

void AppendLine(std::string& lines, DateValue time, std::string_view text) {
    static const LocaleData kNoNames;
    std::string line(kFileNumber);
    line.append(FormatDate(time, "HH:NN:SS", kNoNames)).append(", ");
    const bool fits = line.size() + text.size() <= kLongestLine;
    const std::size_t room = fits ? text.size() : kLongestLine - line.size() - kCut.size();
    line.append(text.substr(0, fits ? room : BytesOfUtf16(text.substr(0, room), room)));
    lines.append(CodePage::OfSystem().Encode(line)).append(fits ? "" : kCut).append(kLineBreak);
}

}  // namespace

cSharedLogging::cSharedLogging(FileSystem& files, const Clock& clock, const SystemInfo& system, About about)
    : files_(files),
      clock_(clock),
      system_(system),
      about_(std::move(about)) {}

cSharedLogging::~cSharedLogging() { WriteActionsToLog(); }

void cSharedLogging::ApplicationFolder(const std::string& folder) noexcept {
    Quietly([&] { folder_ = folder; });
}

void cSharedLogging::OverrideLogFilename(const std::string& fileName) noexcept {
    if (noLogging_) return;
    Quietly([&] {
        const bool folderExists = FolderExists(files_, FolderOf(fileName));
        fileName_ = folderExists ? fileName : JoinPath(folder_, FileNameOf(fileName));
    });
}

void cSharedLogging::LogEvent(std::string_view text, bool newLog) noexcept {
    if (noLogging_) return;
    Quietly([&] {
        EnsureFileName();
        LogToFile(fileName_, text, newLog);
    });
}

void cSharedLogging::LogEvents(std::span<const std::string> texts) noexcept {
    if (noLogging_ || texts.empty()) return;
    Quietly([&] {
        EnsureFileName();
        std::string lines;
        const DateValue now = clock_.Now();
        for (const std::string& text : texts)
            AppendLine(lines, now, text);
        AppendText(files_, fileName_, lines);
    });
}

void cSharedLogging::LogToFile(const std::string& fileName, std::string_view text, bool newLog) noexcept {
    if (noLogging_) return;
    if (newLog) Quietly([&] { files_.Delete(fileName); });
    Quietly([&] {
        const bool fresh = newLog && files_.Kind(fileName) == PathKind::Missing;
        std::string lines = fresh ? Header() : std::string();
        AppendLine(lines, clock_.Now(), text);
        AppendText(files_, fileName, lines);
    });
}

void cSharedLogging::LogError(const ErrorInfo& error, std::string_view procedure,
                              std::string_view module) noexcept {
    Quietly([&] {
        std::string text = "Error " + std::to_string(error.number) + " (" + error.description + ") in ";
        LogEvent(text.append(procedure).append(" of ").append(module));
    });
    WriteActionsToLog();
}

void cSharedLogging::AddDebug(std::string_view text, std::string_view procedure,
                              std::string_view module) noexcept {
    Quietly([&] { AddToTrail("DBG: " + std::string(text), procedure, module); });
}

void cSharedLogging::AddAction(std::string_view text, std::string_view procedure,
                               std::string_view module) noexcept {
    Quietly([&] { AddToTrail(std::string(text), procedure, module); });
}

void cSharedLogging::WriteActionsToLog() noexcept {
    if (noLogging_ || trail_.empty()) return;
    Quietly([&] {
        // What cannot be written is gone, so that a log which stays closed does not fill the memory.
        const std::deque<Action> actions = std::exchange(trail_, {});
        EnsureFileName();
        std::string lines;
        for (const Action& action : actions)
            AppendLine(lines, action.time, action.text);
        AppendText(files_, fileName_, lines);
    });
}

std::string cSharedLogging::CurrentAction() const {
    return trail_.empty() ? std::string() : trail_.back().text;
}

void cSharedLogging::EnsureFileName() {
    if (fileName_.empty()) fileName_ = JoinPath(folder_, kDefaultName);
}

std::string cSharedLogging::Header() const {
    const DateValue now = clock_.Now();
    std::string lines;
    AppendLine(lines, now, "Log file created ");
    AppendLine(lines, now, "Operating System: " + system_.OperatingSystem());
    AppendLine(lines, now, "App: " + about_.name);
    AppendLine(lines, now, "Version: " + about_.version);
    AppendLine(lines, now, "Curdir: " + files_.CurrentFolder());
    AppendLine(lines, now, "App path: " + folder_);
    return lines;
}

void cSharedLogging::AddToTrail(std::string text, std::string_view procedure, std::string_view module) {
    if (noLogging_) return;
    if (!procedure.empty()) text.append(" in ").append(procedure);
    if (!module.empty()) text.append(" of module ").append(module);
    trail_.push_back({std::move(text), clock_.Now()});
    if (trail_.size() > kMostActions) WriteActionsToLog();
}

}  // namespace kaz
