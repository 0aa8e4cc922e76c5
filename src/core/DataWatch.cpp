#include "core/DataWatch.h"

#include "base/DateText.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/Application.h"
#include "core/NamedEvents.h"
#include "core/Reason.h"
#include "platform/Clock.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/SystemInfo.h"
#include "support/Names.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace kaz {

namespace {

constexpr std::string_view kModule = "DataWatch";
constexpr const char* kNotSaved = "Not saved";
constexpr const char* kTakenOver = "Taken over";

std::string Joined(const std::vector<std::string>& parts) {
    std::string text;
    for (std::size_t i = 0; i < parts.size(); ++i)
        text += (i == 0 ? "" : i + 1 == parts.size() ? " and " : ", ") + parts[i];
    return text;
}

void NameChanges(const EventChanges& changes, std::vector<std::string>& names) {
    if (!changes.stored.empty()) names.push_back(NameOf(changes.stored));
    if (!changes.removed.empty()) {
        const bool known = !changes.removed.front().Desc().empty();
        names.push_back("the deletion of " +
                        (known ? NameOf(changes.removed) : Counted(changes.removed.size(), "event")));
    }
}

}  // namespace

void DataWatch::WatchTasks(std::shared_ptr<TaskList> tasks, std::function<void()> saved) {
    tasks_ = std::move(tasks);
    tasksSaved_ = std::move(saved);
}

bool DataWatch::IsAllSaved() const {
    const bool events = !app_.events || !app_.events->HasUnsaved();
    const bool expired = !app_.expired || !app_.expired->HasUnsaved();
    return events && expired && !app_.settings.SaveFault() && !(tasks_ && tasks_->Unsaved());
}

Rescued DataWatch::Collect() const {
    Rescued rescued;
    if (app_.events) rescued.events = app_.events->Unsaved();
    if (app_.expired) rescued.expired = app_.expired->Unsaved();
    if (app_.settings.SaveFault()) rescued.settings = app_.settings.FileText();
    if (tasks_ && tasks_->Unsaved()) rescued.tasks = tasks_->Tasks();
    return rescued;
}

std::string DataWatch::Unsaved() const {
    const Rescued rescued = Collect();
    std::vector<std::string> names;
    EventChanges all = rescued.events;
    all.stored.insert(all.stored.end(), rescued.expired.stored.begin(), rescued.expired.stored.end());
    NameChanges(all, names);
    if (all.Empty() && !rescued.expired.removed.empty()) NameChanges(rescued.expired, names);
    if (!rescued.tasks.empty()) names.emplace_back("the task list");
    if (!rescued.settings.empty()) names.emplace_back("the settings");
    return Joined(names);
}

std::optional<DataWatch::Fault> DataWatch::FirstFault() const {
    for (const clsDbXml* database : {app_.events.get(), app_.expired.get()})
        if (database && database->HasUnsaved()) {
            if (database->SaveFault()) return Fault{database->DBFilename(), *database->SaveFault()};
            if (database->ReadFault()) return Fault{database->DBFilename(), *database->ReadFault()};
        }
    if (app_.settings.SaveFault()) return Fault{app_.settingsFileName, *app_.settings.SaveFault()};
    if (tasks_ && tasks_->Unsaved() && tasks_->SaveFault())
        return Fault{JoinPath(app_.DataPath(), kTaskFile), *tasks_->SaveFault()};
    return std::nullopt;
}

std::string DataWatch::Sentence() const {
    const std::optional<Fault> fault = FirstFault();
    std::string text = "Your latest changes are not saved: " + Unsaved() + ". ";
    if (fault) {
        std::string why = Reason(app_.platform.files, fault->file, fault->error);
        if (!why.empty() && why.front() >= 'a' && why.front() <= 'z')
            why.front() = static_cast<char>(why.front() - 'a' + 'A');
        text += why + ". ";
    }
    return text + "KAZ tries again every half minute.";
}

void DataWatch::Tell() {
    ErrorTrap trap(app_.log, "Tell", kModule);
    trap([&] {
        for (clsDbXml* database : {app_.events.get(), app_.expired.get()})
            if (database) states_.Tell(*database);
        // What waits for the next look at the file has met no failure.
        if (IsAllSaved() || !FirstFault()) {
            app_.health.Clear(kNotSaved);
        } else {
            app_.health.Tell({kNotSaved,
                              Health::Weight::Alarm,
                              Sentence(),
                              {{"Try again", [this] { TryAgain(); }},
                               {"Save a copy elsewhere...", [this] { SaveCopy(); }}}});
        }
        if (IsAllSaved()) DeleteRescues();
    });
}

void DataWatch::TryAgain() {
    ErrorTrap trap(app_.log, "TryAgain", kModule);
    for (clsDbXml* database : {app_.events.get(), app_.expired.get()})
        if (database && database->HasUnsaved()) trap([&] { database->SaveDB(); });
    if (app_.settings.SaveFault())
        trap([&] { app_.settings.SaveSettings(app_.settingsFileName, cSHAREDSettings::Failure::Quiet); });
    if (tasks_ && tasks_->Unsaved())
        trap([&] {
            tasks_->Save();
            if (tasksSaved_) tasksSaved_();
        });
    Tell();
}

bool DataWatch::SaveCopy() {
    const std::string time =
        FormatDate(app_.platform.clock.Now(), "YYYY-MM-DD HH.NN", app_.platform.locale.Data());
    const auto file = app_.platform.dialogs.SaveFile(
        "Save what KAZ could not save", "Text files (*.txt)|*.txt", "KAZ unsaved " + time + ".txt");
    if (!file) return false;
    try {
        WriteWholeFile(app_.platform.files, *file, RescueFile::TextOf(Collect()));
        app_.log.LogEvent("Saved a copy of what is not saved to " + *file);
        return true;
    } catch (...) {
        app_.platform.dialogs.Message(
            "The copy could not be saved: " + Reason(app_.platform.files, *file, CurrentError()) + ".");
        return false;
    }
}

std::vector<std::string> DataWatch::RescueFolders() const {
    const std::string local = app_.platform.system.LocalFolder();
    if (local.empty()) return {app_.runtimePath};
    return {app_.runtimePath, JoinPath(local, kApplicationName)};
}

void DataWatch::Rescue() {
    TryAgain();
    if (IsAllSaved()) return;
    const std::string text = RescueFile::TextOf(Collect());
    if (text == givenUp_) {
        app_.log.LogEvent("Not saved, as the user wished: " + Unsaved());
        DeleteRescues();
        return;
    }
    ErrorTrap trap(app_.log, "Rescue", kModule);
    for (const std::string& folder : RescueFolders()) {
        const std::string file = JoinPath(folder, RescueFile::kName);
        const bool done = trap([&] {
            app_.platform.files.CreateFolder(folder);
            WriteWholeFile(app_.platform.files, file, text);
        });
        if (!done) continue;
        app_.log.LogEvent("Not saved: " + Unsaved() + ". Kept in " + file);
        // An older one elsewhere held no more than this one does.
        std::erase(takenOver_, file);
        DeleteRescues();
        return;
    }
    app_.log.LogEvent("Not saved, and no rescue file could be written: " + Unsaved());
}

void DataWatch::TakeOver() {
    if (!app_.events) return;
    rescued_ = 0;
    ErrorTrap trap(app_.log, "TakeOver", kModule);
    for (const std::string& folder : RescueFolders()) {
        const std::string file = JoinPath(folder, RescueFile::kName);
        trap([&] {
            if (FileExists(app_.platform.files, file)) TakeOver(file);
        });
    }
    if (takenOver_.empty()) return;
    trap([&] {
        for (clsDbXml* database : {app_.events.get(), app_.expired.get()})
            if (database->HasUnsaved()) database->SaveDB();
    });
    if (rescued_ > 0)
        app_.health.Tell({kTakenOver,
                          Health::Weight::Note,
                          "KAZ could not save everything when it ended last time. What it had kept has been "
                          "taken over (" +
                              Counted(static_cast<std::size_t>(rescued_), "change") + ").",
                          {{"OK", [this] { app_.health.Clear(kTakenOver); }}}});
    Tell();
}

void DataWatch::TakeOver(const std::string& file) {
    bool whole = false;
    const Rescued rescued =
        RescueFile::Read(ReadWholeFile(app_.platform.files, file), app_.platform.locale, app_.log, whole);
    Merge(rescued);
    app_.log.LogEvent("Took over what " + file + " had kept" + (whole ? "" : ", as far as it can be read"));
    std::string taken = file;
    if (!whole) {
        const std::string time =
            FormatDate(app_.platform.clock.Now(), "YYYY-MM-DD HH.NN.SS", app_.platform.locale.Data());
        // Somebody may read more in it.
        app_.platform.files.Replace(file, WithExtension(file, " (damaged, " + time + ").txt"));
        return;
    }
    takenOver_.push_back(std::move(taken));
}

void DataWatch::Merge(const Rescued& rescued) {
    app_.events->PutOnTop(rescued.events);
    app_.expired->PutOnTop(rescued.expired);
    rescued_ += static_cast<int>(rescued.events.stored.size() + rescued.events.removed.size() +
                                 rescued.expired.stored.size() + rescued.expired.removed.size());
    if (!rescued.settings.empty()) {
        app_.settings.TakeLines(rescued.settings);
        app_.layers.LoadLayers();
        app_.settings.SaveSettings(app_.settingsFileName, cSHAREDSettings::Failure::Quiet);
        ++rescued_;
    }
    if (rescued.tasks.empty()) return;
    const auto tasks = std::make_shared<TaskList>(TaskFile(app_.platform.files, app_.DataPath()));
    tasks->AddMissing(rescued.tasks);
    tasks_ = tasks;
    ++rescued_;
    ErrorTrap trap(app_.log, "Merge", kModule);
    trap([&] { tasks->Save(); });
}

// Only once what they held is on the disk.
void DataWatch::DeleteRescues() {
    for (const std::string& file : std::exchange(takenOver_, {})) {
        ErrorTrap trap(app_.log, "DeleteRescues", kModule);
        trap([&] { app_.platform.files.Delete(file); });
    }
}

}  // namespace kaz
