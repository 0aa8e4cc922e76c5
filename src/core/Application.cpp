#include "core/Application.h"

#include "core/AwaitedFolder.h"
#include "core/Backup.h"
#include "core/ClockGuard.h"
#include "core/DataWatch.h"
#include "core/EventFiles.h"
#include "core/Links.h"
#include "platform/Files.h"
#include "platform/SystemInfo.h"
#include "reminders/AlarmFiles.h"
#include "reminders/OccurrenceEvents.h"
#include "storage/ChangesBetween.h"
#include "storage/Owner.h"
#include "storage/SharedCopy.h"
#include "support/Names.h"

#include <string_view>
#include <unordered_map>

namespace kaz {

Application::Application(const Platform& services)
    : platform(services),
      log(platform.files, platform.clock, platform.system, {std::string(kApplicationName), VersionText()}),
      errors(log),
      journal(platform.files, platform.clock, log, [this] { return runtimePath; }),
      settings(platform.files, platform.locale, platform.dialogs, log),
      layers(settings, platform.locale),
      runtimePath(platform.system.ModuleFolder()),
      sounds(platform.files, settings, log, [this] { return runtimePath; }),
      player(std::in_place, platform.sound, platform.files, log),
      sideFile(platform.files, log),
      outcomes(sideFile),
      quiet(platform, settings, settingsFileName),
      reminderWindows({platform, settings, openWindows, errors, *player, outcomes, runtimePath, quiet}),
      errorReports(platform, openWindows, log),
      runMark(platform.files, platform.system, platform.clock),
      clockGuard(std::make_unique<ClockGuard>(*this)),
      awaitedFolder(std::make_unique<AwaitedFolder>(*this)),
      dataWatch(std::make_unique<DataWatch>(*this)) {
    log.ApplicationFolder(runtimePath);
    openWindows.AnswerHelp([this] { ShowHelp(platform); });
    errors.ShowThrough(
        [this](const std::string& text, const std::string& extra) { errorReports.Show(text, extra); });
    sideFile.AskForBackup([this] { return SideFileOfBackup(*this); });
    reminderWindows.requests.eventOf = [this](const OccurrenceRef& of) { return Missed().EventOf(of); };
    reminderWindows.requests.runFile = [this](const OccurrenceRef& of) { return RunFileOf(of); };
}

Application::~Application() { errors.ShowThrough({}); }

std::string Application::DataPath() const { return settings.TextOr("DataPath", runtimePath); }

bool Application::EuropeanDates() const { return ToNumber(settings.sGet("DateStyle", std::int16_t{0})) == 1; }

std::string Application::DatePattern() const { return EuropeanDates() ? "DD/MM/YYYY" : "MM/DD/YYYY"; }

std::string Application::Owner() const { return CurrentOwner(settings); }

void Application::ApplySharing() {
    const bool on = Networked();
    shared->ForeignFileFilter(on);
    if (!on) {
        events->CopyToShared({});
        return;
    }
    events->CopyToShared([this] { Publish(); });
}

void Application::Publish() { publishAgain_ = !SharedCopy(*events, *shared, Storage()).Run(); }

void Application::ReopenDatabases() { EventFiles(*this).Reopen(); }

void Application::MakeDatabases() {
    for (std::unique_ptr<clsDbXml>* database : {&events, &shared, &expired}) {
        *database = std::make_unique<clsDbXml>(Storage());
        if (database != &shared) (*database)->KeepBeside(sideFile);
        (*database)->OnLoad([this, database](bool changed) {
            Complete(**database);
            mainListIsStale = mainListIsStale || changed;
        });
    }
    for (const bool ofExpired : {false, true})
        (ofExpired ? expired : events)->OnReload([this, ofExpired](const auto& before, const auto& now) {
            journal.Write("another program", "", ChangesBetween(before, now, ofExpired));
        });
}

void Application::Complete(clsDbXml& database) {
    database.ChangeEach([](clsEvent& event) { event.Layer(clsLayers::OwnOr(event.Layer())); });
    if (&database == shared.get()) MoveSharedOn();
}

void Application::LoadShared() {
    if (!shared || !Networked()) return;
    if (publishAgain_ && FolderExists(platform.files, Folder().Path()))
        Publish();
    else if (shared->DBFilename().empty() || shared->DatabaseChanged())
        shared->LoadMultiple(Folder().ListFile());
}

void Application::CatchUp() {
    sideFile.Refresh();
    for (clsDbXml* database : {events.get(), expired.get()})
        if (database) database->CatchUp();
    CatchUpExtras();
    LoadShared();
}

void Application::MoveSharedOn() {
    if (!shared || !Networked()) return;
    const DateValue today = platform.clock.Today();
    shared->ChangeEach([&](clsEvent& event) {
        if (event.Recurring() && event.DueDate() < today) event.CalcNextDueDate(today, log);
    });
    if (outcomes.IsKnown()) Missed().NoteShared(platform.clock.Now(), reminderWindows.Ringing());
}

void Application::MakePlayer() { player.emplace(platform.sound, platform.files, log); }

Stores Application::Storage() { return {platform, log, settings, layers, &journal}; }

TaskFile Application::UserTasks() {
    TaskFile file(platform.files, DataPath());
    file.AskForBackup([this] { return NewestBackup(*this, JoinPath(DataPath(), kTaskFile)).has_value(); });
    return file;
}

clsReminder Application::MakeReminder() {
    return clsReminder(Storage(), reminderWindows, events.get(), expired.get(),
                       [this] { settings.SaveSettings(settingsFileName); });
}

MissedReminders Application::Missed() {
    return MissedReminders(VisibleEvents(settings), outcomes, events.get(), expired.get(),
                           Networked() ? shared.get() : nullptr);
}

std::string Application::RunFileOf(const OccurrenceRef& occurrence) {
    EventSource source = EventSource::Local;
    const clsEvent* event = Missed().EventOf(occurrence, &source);
    if (!event || !event->ExecFile) return "This event runs no file any more.";
    AlarmFiles files(Storage(), reminderWindows, [this] { settings.SaveSettings(settingsFileName); });
    return files.Run(*event, source == EventSource::Shared ? shared->SourceOf(*event) : "");
}

void Application::BeginOutcomes() {
    if (events && sideFile.WasRead() && !sideFile.WasThere() && !ClockGuard::HasEverTicked(settings))
        Missed().BeginAnew(platform.clock.Now());
}

void Application::CatchUpExtras() {
    if (!events || !expired || extrasVersion_ == sideFile.Version()) return;
    extrasVersion_ = sideFile.Version();
    for (const bool ofExpired : {false, true}) {
        const auto changes = TakeChangedExtras(ofExpired ? *expired : *events, ofExpired);
        journal.Write("another program", "", changes);
        mainListIsStale = mainListIsStale || !changes.empty();
    }
}

void Application::DropLeftOut() {
    OccurrenceEvents all(events.get(), expired.get(), Networked() ? shared.get() : nullptr);
    reminderWindows.DropLines([&](const OccurrenceRef& of) {
        const clsEvent* event = all.Find(of);
        return event && event->Recurring() &&
               (event->Extras().Skips(of.day) || event->Extras().EndsBefore(of.day));
    });
}

void Application::TidyOutcomes() {
    if (!outcomes.IsKnown() || !events || clockGuard->IsInDoubt()) return;
    std::unordered_map<std::string_view, DateValue> due;
    for (const clsDbXml* database : {events.get(), shared.get(), expired.get()})
        for (const clsEvent& event : database->AllEvents())
            if (!event.Deleted) due.emplace(event.IDCode, event.DueDate());
    outcomes.Tidy(platform.clock.Now(), [&](const SideLine& line) {
        const auto found = due.find(line.key.code);
        const bool isOthers = line.key.file != kOwnEvents;
        if (!Outcomes::IsOfDay(line)) return isOthers || found != due.end();
        return found != due.end() && found->second <= *line.day;
    });
}

void Application::EndProgram() {
    // From here on there is nobody to read a report.
    errors.ShowThrough({});
    openWindows.UnloadAll();
    if (settingsInitialised) {
        settings.SaveSettings(settingsFileName);
        dataWatch->Rescue();
    }
    runMark.End();
}

}  // namespace kaz
