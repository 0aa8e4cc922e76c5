#include "ui/options/OptionsSaving.h"

#include "base/DateText.h"
#include "base/Text.h"
#include "core/EventFiles.h"
#include "core/JournalScope.h"
#include "model/AlarmTime.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/SystemInfo.h"
#include "resources/resource.h"
#include "storage/Owner.h"
#include "ui/fields/FieldFault.h"

#include <optional>
#include <utility>

namespace kaz {

namespace {

// A folder as the program keeps its path.
std::string FolderForm(const std::string& typed) {
    return WithoutTrailingBackslash(ReplaceAll(Trim(typed), "/", "\\"));
}

}  // namespace

void OptionsSaving::Check(Options& options) {
    if (options.networked) options.sharedPath = FolderForm(options.sharedPath);
    if (!options.noSounds && !FileExists(app_.platform.files, options.alarmWav)) {
        app_.platform.dialogs.Message("Cannot find specified WAV file. Sounds disabled.");
        options.noSounds = true;
    }
    options.owner = Trim(options.owner);
    if (options.owner.empty()) throw FieldFault(IDC_txtOwner, "You must specify a user ID");
    if (options.networked) CheckSharing(options);
    CheckQuiet(options);
    CheckDataPath(options);
    CheckSecondBackup(options);
}

void OptionsSaving::CheckQuiet(Options& options) {
    const bool none = Trim(options.quietFrom).empty() && Trim(options.quietTo).empty();
    for (const auto& [text, control] :
         {std::pair{&options.quietFrom, IDC_txtQuietFrom}, std::pair{&options.quietTo, IDC_txtQuietTo}}) {
        const std::optional<DateValue> time = TypedTime(*text) ? TypedTime(*text) : TimeInShort(*text);
        if (!none && !time)
            throw FieldFault(control, "Quiet hours need two times, such as 22:00 and 07:00, or none.");
        *text = none ? std::string() : FormatDate(*time, "HH:NN", {});
    }
}

void OptionsSaving::CheckId(const std::string& id) {
    if (!SharedFolder::IsSafeName(id))
        throw FieldFault(IDC_txtOwner,
                         "\"" + id +
                             "\" cannot be used as an ID: it has to be usable as part of a file name.");
    // Both are what the program itself writes for a user without a name.
    if (StringsEqual(id, kSingleUser) || StringsEqual(id, kNoOwner))
        throw FieldFault(IDC_txtOwner,
                         "\"" + id + "\" cannot be used as an ID. Please choose a name of your own.");
}

void OptionsSaving::CheckSharing(const Options& options) {
    CheckId(options.owner);
    if (options.sharedPath.empty())
        throw FieldFault(IDC_txtSharedDBPath, "You need to supply the shared data path.");
    const bool changed =
        !before_.networked || options.sharedPath != before_.sharedPath || options.owner != before_.owner;
    if (changed && !FolderExists(app_.platform.files, options.sharedPath))
        throw FieldFault(IDC_txtSharedDBPath, "The shared data folder " + options.sharedPath +
                                                  " does not exist or cannot be reached.");
    if (changed && app_.platform.files.IsReadOnly(options.sharedPath))
        throw FieldFault(IDC_txtSharedDBPath,
                         "You have no right to write to the shared data folder " + options.sharedPath + ".");
}

void OptionsSaving::CheckDataPath(Options& options) {
    FileSystem& files = app_.platform.files;
    std::string& path = options.dataPath;
    path = FolderForm(path);
    if (path.empty()) path = app_.runtimePath;
    copyEvents_ = false;
    if (path == before_.dataPath) return;

    const auto fault = [](const std::string& text) { return FieldFault(IDC_txtDatapath, text); };
    const PathKind kind = files.Kind(path);
    if (kind == PathKind::Missing) {
        if (!app_.platform.dialogs.AskYesNo("The folder " + path +
                                            " does not exist.\r\nDo you want to create it?"))
            throw fault("");
        try {
            files.CreateFolder(path);
        } catch (const RuntimeError& error) {
            throw fault("The folder " + path + " could not be created: " + error.Description());
        }
    } else if (kind != PathKind::Folder) {
        throw fault(path + " is not a folder.");
    }
    if (files.IsReadOnly(path)) throw fault("You have no right to write to the folder " + path + ".");

    copyEvents_ = !EventFiles::AreIn(files, path) && EventFiles::AreIn(files, before_.dataPath) &&
                  app_.platform.dialogs.AskYesNo("There are no events in " + path +
                                                 " yet. Your events are in " + before_.dataPath +
                                                 " and stay there.\r\nDo you want a copy of them in the new "
                                                 "folder?");
}

void OptionsSaving::CheckSecondBackup(Options& options) {
    std::string& path = options.secondBackup;
    path = FolderForm(path);
    if (path.empty() || path == before_.secondBackup) return;
    try {
        app_.platform.files.CreateFolder(path);
    } catch (const RuntimeError& error) {
        throw FieldFault(IDC_txtSecondBackup,
                         "The folder " + path + " cannot be used for backups: " + error.Description());
    }
}

void OptionsSaving::Store(const Options& options) {
    cSHAREDSettings& settings = app_.settings;
    settings.StoreSetting("DisableAutoUpdateCheck", options.disableAutoUpdate);
    settings.StoreSetting("SilentStart", options.silentStart);
    settings.StoreSetting("NoAutoBackups", options.noAutoBackups);
    settings.StoreSetting("SecondBackupFolder", options.secondBackup);
    settings.StoreSetting("QuietFullScreen", options.quietScreen);
    settings.StoreSetting("QuietFrom", options.quietFrom);
    settings.StoreSetting("QuietTo", options.quietTo);
    settings.StoreSetting("WordsKey", options.wordsKey);
    settings.StoreSetting("SharedDataPath", options.sharedPath);
    StoreOwner(options);
    settings.StoreSetting("DateStyle", static_cast<std::int16_t>(options.europeanDates ? 1 : 2));
    settings.StoreSetting("Networked", options.networked);
    settings.StoreSetting("DataPath", CopiedDataPath(options));
    settings.StoreSetting("WavFile", options.alarmWav);
    settings.StoreSetting("NoSounds", options.noSounds);
    settings.SaveSettings(app_.settingsFileName);
    app_.settingsInitialised = true;
    StoreLogonStart(options);
}

// The system's, not a setting: it is as it was where the system refuses, and all else is stored.
void OptionsSaving::StoreLogonStart(const Options& options) {
    if (!options.startsAtLogon || options.startsAtLogon == before_.startsAtLogon) return;
    try {
        app_.platform.system.StartAtLogon(app_.runtimePath, *options.startsAtLogon);
    } catch (const RuntimeError& error) {
        app_.platform.dialogs.Message("\"Start with Windows\" could not be changed: " + error.Description() +
                                      ".");
    }
}

void OptionsSaving::StoreOwner(const Options& options) {
    // The saves in here would publish events under a name that is just going, and in the new folder what
    // has to leave the old one. Reopening the databases publishes.
    if (app_.events) app_.events->CopyToShared({});
    const JournalScope scope(app_, "change of the user");
    if (!options.networked) {
        app_.settings.StoreSetting("Owner", std::string(kSingleUser));
        if (app_.events) app_.events->SetAllToSingleUser();
        return;
    }
    if (app_.events) {
        app_.events->RenameOwner(before_.owner, options.owner);
        app_.events->RenameOwner(kSingleUser, options.owner);
    }
    // Without a file there is nothing of the previous owner's in it.
    if (app_.shared && !app_.shared->DBFilename().empty()) app_.shared->WipeRecordsByOwner(before_.owner);
    app_.settings.StoreSetting("Owner", options.owner);
}

// After the owner's change has been saved, so that it is in the copy. When there is no copy, the events stay
// in use where they are.
std::string OptionsSaving::CopiedDataPath(const Options& options) {
    if (!copyEvents_) return options.dataPath;
    try {
        EventFiles::Copy(app_.platform.files, before_.dataPath, options.dataPath);
        return options.dataPath;
    } catch (const RuntimeError& error) {
        app_.platform.dialogs.Message("Your events could not be copied to " + options.dataPath + ": " +
                                      error.Description() + "\r\nKAZ stays with the folder " +
                                      before_.dataPath + ".");
        return before_.dataPath;
    }
}

}  // namespace kaz
