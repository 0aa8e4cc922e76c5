#include "core/DataWatch.h"

#include "base/DateText.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/Application.h"
#include "core/JournalScope.h"
#include "core/NamedEvents.h"
#include "core/Reason.h"
#include "platform/Clock.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
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

std::shared_ptr<TaskList> DataWatch::Tasks() const {
    return tasks_ ? tasks_ : std::make_shared<TaskList>(app_.UserTasks());
}

void DataWatch::SaveTasks(const std::shared_ptr<TaskList>& tasks) {
    ErrorTrap trap(app_.log, "SaveTasks", kModule);
    trap([&] { tasks->Save(); });
    if (tasks->Unsaved() && !tasks_) tasks_ = tasks;
    if (tasksSaved_) tasksSaved_();
    Tell();
}

bool DataWatch::IsAllSaved() const {
    const bool events = !app_.events || !app_.events->HasUnsaved();
    const bool expired = !app_.expired || !app_.expired->HasUnsaved();
    return events && expired && !app_.sideFile.HasUnsaved() && !app_.settings.SaveFault() &&
           !(tasks_ && tasks_->Unsaved());
}

bool DataWatch::IsAllSeen() const {
    const auto isSeen = [](const clsDbXml* database) {
        return !database || (!database->DatabaseChanged() && database->Unseen().empty());
    };
    return IsAllSaved() && isSeen(app_.events.get()) && isSeen(app_.expired.get()) && IsAllTaken();
}

Rescued DataWatch::Collect() const {
    Rescued rescued;
    if (app_.events) rescued.events.changes = app_.events->Unsaved();
    if (app_.expired) rescued.expired.changes = app_.expired->Unsaved();
    if (app_.sideFile.HasUnsaved()) rescued.beside = app_.sideFile.UnsavedText();
    if (app_.settings.SaveFault()) rescued.settings = app_.settings.UnsavedText();
    if (tasks_ && tasks_->Unsaved()) rescued.tasks = tasks_->Tasks();
    return rescued;
}

std::string DataWatch::Unsaved() const { return NamesOf(Collect()); }

std::string DataWatch::NamesOf(const Rescued& rescued) {
    std::vector<std::string> names;
    EventChanges all = rescued.events.changes;
    all.stored.insert(all.stored.end(), rescued.expired.changes.stored.begin(),
                      rescued.expired.changes.stored.end());
    NameChanges(all, names);
    if (all.Empty() && !rescued.expired.changes.removed.empty()) NameChanges(rescued.expired.changes, names);
    if (!rescued.beside.empty()) names.emplace_back("answers to reminders");
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
    if (app_.sideFile.HasUnsaved() && app_.sideFile.Fault())
        return Fault{app_.sideFile.Path(), *app_.sideFile.Fault()};
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
    trap([&] { TakeKept(); });
    trap([&] { states_.TellDamagedSettings(); });
    trap([&] {
        for (clsDbXml* database : {app_.events.get(), app_.expired.get()})
            if (database) states_.Tell(*database);
        states_.Tell(tasks_, tasksSaved_);
        // All events are looked at for this, so once is enough on a tick.
        const bool isAllSaved = IsAllSaved();
        // What waits for the next look at the file has met no failure.
        if (isAllSaved || !FirstFault()) {
            app_.health.Clear(kNotSaved);
        } else {
            app_.health.Tell({kNotSaved,
                              Health::Weight::Alarm,
                              Sentence(),
                              {{"Try again", [this] { TryAgain(); }},
                               {"Save a copy elsewhere...", [this] { SaveCopy(); }}},
                              Health::Sign::NotSaved});
        }
        if (isAllSaved && IsAllTaken()) rescues_.Delete();
    });
}

void DataWatch::TryAgain() {
    ErrorTrap trap(app_.log, "TryAgain", kModule);
    for (clsDbXml* database : {app_.events.get(), app_.expired.get()})
        if (database && database->HasUnsaved()) trap([&] { database->SaveDB(); });
    if (app_.sideFile.HasUnsaved()) trap([&] { app_.sideFile.Save(); });
    if (app_.settings.SaveFault())
        trap([&] { app_.settings.SaveSettings(app_.settingsFileName, cSHAREDSettings::Failure::Quiet); });
    if (tasks_ && tasks_->Unsaved())
        trap([&] {
            tasks_->Save();
            if (tasksSaved_) tasksSaved_();
        });
    else if (tasks_ && tasks_->IsDamaged())
        ReadTasksAgain();
    Tell();
}

void DataWatch::ReadTasksAgain() {
    try {
        if (tasks_->Refresh() && tasksSaved_) tasksSaved_();
    } catch (...) {
        return;  // it has been told
    }
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

void DataWatch::Rescue() {
    ErrorTrap trap(app_.log, "Rescue", kModule);
    // A file may have gone since the last tick.
    for (clsDbXml* database : {app_.events.get(), app_.expired.get()})
        if (database) trap([&] { database->CatchUp(); });
    TryAgain();
    Rescued rescued = Collect();
    if (!rescued.Empty() && RescueFile::TextOf(rescued) == givenUp_) {
        app_.log.LogEvent("Not saved, as the user wished: " + NamesOf(rescued));
        rescued = {};
    }
    std::string what = rescued.Empty() ? std::string() : "Not saved: " + NamesOf(rescued) + ". ";
    if (app_.events) rescued.events.unseen = app_.events->Unseen();
    if (app_.expired) rescued.expired.unseen = app_.expired->Unseen();
    rescued.events.Add(keptEvents_);
    rescued.expired.Add(keptExpired_);
    if (rescued.Empty()) {
        rescues_.Delete();
        return;
    }
    if (const std::size_t unseen = rescued.events.unseen.size() + rescued.expired.unseen.size())
        what += "Saved once, and not to be seen now: " + Counted(unseen, "event") + ". ";
    const std::string file = rescues_.Write(std::move(rescued));
    app_.log.LogEvent(what + (file.empty() ? "No rescue file could be written" : "Kept in " + file));
}

void DataWatch::TakeOver(const std::string& movedFrom) {
    if (!app_.events) return;
    changesTaken_ = eventsPutBack_ = 0;
    ErrorTrap trap(app_.log, "TakeOver", kModule);
    bool any = false;
    trap([&] {
        rescues_.Read(movedFrom, [&](const Rescued& rescued) {
            any = true;
            Merge(rescued);
        });
    });
    if (!any) return;
    trap([&] {
        for (clsDbXml* database : {app_.events.get(), app_.expired.get()})
            if (database->HasUnsaved()) database->SaveDB();
    });
    TellTakenOver();
    Tell();
}

void DataWatch::Merge(const Rescued& rescued) {
    keptFolder_ = app_.DataPath();
    keptEvents_.Add(rescued.events);
    keptExpired_.Add(rescued.expired);
    keptBeside_ += rescued.beside;
    TakeKept();
    if (!rescued.beside.empty()) {
        TakeKeptBeside();
        app_.sideFile.Save();
        ++changesTaken_;
    }
    if (!rescued.settings.empty()) {
        app_.settings.TakeLines(rescued.settings);
        app_.layers.LoadLayers();
        app_.settings.SaveSettings(app_.settingsFileName, cSHAREDSettings::Failure::Quiet);
        ++changesTaken_;
    }
    if (rescued.tasks.empty()) return;
    const auto tasks = std::make_shared<TaskList>(app_.UserTasks());
    tasks->AddMissing(rescued.tasks);
    tasks_ = tasks;
    ++changesTaken_;
    ErrorTrap trap(app_.log, "Merge", kModule);
    trap([&] { tasks->Save(); });
}

std::size_t DataWatch::Kept(const clsDbXml& database) const {
    return (&database == app_.events.get() ? keptEvents_ : keptExpired_).unseen.size();
}

// Again behind each event that is put back, since it comes without what its file has no room for.
void DataWatch::TakeKeptBeside() {
    if (keptBeside_.empty()) return;
    app_.sideFile.TakeUnsaved(keptBeside_);
    for (clsDbXml* database : {app_.events.get(), app_.expired.get()})
        database->TakeExtras();
}

// As soon as it is known what is in the file: before, it could not be told what of it has changed.
void DataWatch::TakeKept() {
    if (IsAllTaken()) return;
    if (keptFolder_ != app_.DataPath()) {
        // The user has chosen another folder. They wait for the next start in theirs.
        keptEvents_ = keptExpired_ = {};
        keptBeside_.clear();
        rescues_.Leave();
        return;
    }
    for (const auto& [database, kept] :
         {std::pair{app_.events.get(), &keptEvents_}, std::pair{app_.expired.get(), &keptExpired_}}) {
        if (!database->WasRead() || kept->Empty()) continue;
        const RescuedEvents rescued = std::exchange(*kept, {});
        const JournalScope scope(app_, "taking over from the last end");
        eventsPutBack_ += database->GiveBack(rescued.unseen);
        database->PutOnTop(rescued.changes);
        changesTaken_ += rescued.changes.stored.size() + rescued.changes.removed.size();
        TakeKeptBeside();
        if (database->HasUnsaved()) database->SaveDB();
        app_.mainListIsStale = true;
    }
    TellTakenOver();
}

void DataWatch::TellTakenOver() {
    std::vector<std::string> what;
    if (changesTaken_ > 0) what.push_back(Counted(changesTaken_, "change"));
    if (eventsPutBack_ > 0) what.push_back(Counted(eventsPutBack_, "event") + " of a file that is empty now");
    if (what.empty()) return;
    app_.health.Tell({kTakenOver,
                      Health::Weight::Note,
                      "KAZ could not save everything when it ended last time. What it had kept has been "
                      "taken over (" +
                          Joined(what) + ").",
                      {{"OK", [this] { app_.health.Clear(kTakenOver); }}}});
}

}  // namespace kaz
