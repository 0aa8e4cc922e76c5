#include "ui/options/Options.h"

#include "core/Application.h"
#include "platform/SystemInfo.h"
#include "storage/clsSounds.h"

namespace kaz {

Options Options::Of(const Application& application) {
    const cSHAREDSettings& settings = application.settings;
    Options options;
    options.dataPath = application.DataPath();
    options.alarmWav = DefaultAlarmSound(application.platform.files, settings, application.runtimePath);
    options.noSounds = settings.Flag("NoSounds");
    options.networked = application.Networked();
    options.sharedPath = settings.TextOr("SharedDataPath", "");
    options.owner = application.Owner();
    options.europeanDates = application.EuropeanDates();
    options.startsAtLogon = application.platform.system.StartsAtLogon(application.runtimePath);
    options.silentStart = settings.Flag("SilentStart");
    options.disableAutoUpdate = settings.Flag("DisableAutoUpdateCheck");
    options.noAutoBackups = settings.Flag("NoAutoBackups");
    options.secondBackup = settings.TextOr("SecondBackupFolder", "");
    options.quietScreen = settings.Flag("QuietFullScreen");
    options.quietFrom = settings.TextOr("QuietFrom", "");
    options.quietTo = settings.TextOr("QuietTo", "");
    options.wordsKey = settings.TextOr("WordsKey", "");
    return options;
}

}  // namespace kaz
