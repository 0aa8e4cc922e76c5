#pragma once

#include "core/ConflictCopies.h"
#include "core/ReminderWatch.h"
#include "core/RunMark.h"
#include "forms/OpenWindows.h"
#include "platform/Platform.h"
#include "reminders/MissedReminders.h"
#include "reminders/Outcomes.h"
#include "reminders/ReminderWindows.h"
#include "reminders/clsReminder.h"
#include "storage/ChangeJournal.h"
#include "storage/SharedFolder.h"
#include "storage/SideFile.h"
#include "storage/TaskFile.h"
#include "storage/cSharedSound.h"
#include "storage/clsDbXml.h"
#include "storage/clsLayers.h"
#include "storage/clsSounds.h"
#include "support/ErrorReports.h"
#include "support/Health.h"
#include "support/UndoHistory.h"
#include "support/cSHAREDSettings.h"
#include "support/cSHAREDShowError.h"
#include "support/cSharedLogging.h"

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>

namespace kaz {

class AwaitedFolder;
class ClockGuard;
class DataWatch;

// One occurrence of an event with an e-mail address: the event's code and day.
using RaisedMail = std::pair<std::string, DateValue>;

// All that is application-wide, in the order of its creation; destruction is the reverse. It exists from the
// making of the component to its end; the databases exist once a user has been chosen at start-up.
class Application {
public:
    // `services` outlive the application.
    explicit Application(const Platform& services);
    ~Application();
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    Platform platform;
    cSharedLogging log;
    cSHAREDShowError errors;
    Health health;  // what the bar above the list and the tray say
    ChangeJournal journal;
    UndoHistory undo;
    cSHAREDSettings settings;
    clsLayers layers;

    std::string runtimePath;  // the folder of the application's files, without trailing backslash
    std::string settingsFileName;
    std::string sharedFileName;  // a bare name; the shared folder is put before it where it is used
    bool settingsInitialised = false;
    // Events have come in since the main list was filled.
    bool mainListIsStale = false;

    clsSounds sounds;
    std::optional<cSharedSound> player;  // always there, and always in this place

    std::set<RaisedMail> mailsRaised;  // those that the host is just being asked for

    std::unique_ptr<clsDbXml> events;
    std::unique_ptr<clsDbXml> shared;
    std::unique_ptr<clsDbXml> expired;

    SideFile sideFile;  // beside the events, with what these have no room for
    Outcomes outcomes;

    OpenWindows openWindows;
    Quiet quiet;
    ReminderWindows reminderWindows;
    ErrorReports errorReports;

    RunMark runMark;
    const std::unique_ptr<ClockGuard> clockGuard;
    ConflictCopies conflictCopies{*this};
    const std::unique_ptr<AwaitedFolder> awaitedFolder;
    const std::unique_ptr<DataWatch> dataWatch;
    ReminderWatch reminderWatch{*this};

    // The folder of the event files: the setting "DataPath", by default the runtime path.
    std::string DataPath() const;
    // Whether the user writes the day before the month: the setting "DateStyle".
    bool EuropeanDates() const;
    // How the user writes dates, as a pattern of FormatDate.
    std::string DatePattern() const;
    // The current user: the setting "Owner", by default "Not Set".
    std::string Owner() const;
    bool Networked() const { return settings.Flag("Networked"); }

    // Switches the copying of shared events and the filter of others' files on
    // or off, as "Networked" says now.
    void ApplySharing();
    // Opens the databases anew after the settings have changed, and publishes this user's
    // shared events. While the old files cannot take the latest changes, the data folder stays
    // what it was, and the user is told.
    void ReopenDatabases();
    // Makes the three databases, without their files. What they read from then on is told to the main list,
    // and gets what every event has: a category, and of other users, dates that have not passed.
    void MakeDatabases();
    // Loads the other users' shared events anew when one of their files has changed since, or was never read,
    // after this user's own have been published if the shared folder could not take them before. Nothing
    // without sharing.
    void LoadShared();
    // Reads what others have saved meanwhile, in whichever file.
    void CatchUp();
    // Moves the other users' recurring events whose day has passed on to their next day, in memory alone:
    // their owner's program may not have run for days. A single event that is past stays past.
    void MoveSharedOn();
    SharedFolder Folder() { return SharedFolder(platform.files, settings, log); }

    // A player that asks anew for a sound device.
    void MakePlayer();

    Stores Storage();
    // The file of the user's tasks, in the data folder.
    TaskFile UserTasks();
    // An engine over the databases as they are now.
    clsReminder MakeReminder();

    // What fell due and was not answered, in the databases as they are now.
    MissedReminders Missed();
    // Where the program has never run, what is in the past was never its business. To be called once the
    // events are there, before anything moves them on.
    void BeginOutcomes();
    // Gives the events what another computer has noted beside them meanwhile, and tells the journal. To be
    // called behind the look for their files, with which that has mostly come.
    void CatchUpExtras();
    // Takes from the reminder windows what does not happen any more: a day that is skipped, or behind the end
    // of its series.
    void DropLeftOut();
    // Drops of that what nobody needs any more. Not by a clock that may be wrong.
    void TidyOutcomes();

    // The end of the program: closes every open window, from the last opened to
    // the first, and saves the settings.
    void EndProgram();

private:
    void Publish();
    std::string RunFileOf(const OccurrenceRef& occurrence);
    void Complete(clsDbXml& database);

    unsigned extrasVersion_ = 0;  // of the file beside the events, when they were last given what it says
    bool publishAgain_ = false;   // this user's shared events did not reach the shared folder
};

}  // namespace kaz
