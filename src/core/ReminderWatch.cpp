#include "core/ReminderWatch.h"

#include "base/DateText.h"
#include "core/Application.h"
#include "core/NamedEvents.h"
#include "platform/Locale.h"
#include "platform/Sound.h"

#include <array>
#include <string>
#include <string_view>
#include <utility>

namespace kaz {

namespace {

constexpr std::string_view kModule = "ReminderWatch";
constexpr const char* kMissed = "Missed reminders";
constexpr const char* kSilence = "No sound";
constexpr const char* kQuiet = "Quiet";
constexpr std::string_view kNoSounds = "NoSounds";
constexpr std::string_view kSilenceKnown = "SilenceIsKnown";  // the user has read why it is silent
constexpr int kDeviceLooks = 20;                              // ten minutes

}  // namespace

void ReminderWatch::Look() {
    ErrorTrap trap(app_.log, "Look", kModule);
    trap([&] { TellMissed(); });
    trap([&] { LookForDevice(); });
    trap([&] { TellSilence(); });
}

void ReminderWatch::LookAtQuiet() {
    ErrorTrap trap(app_.log, "LookAtQuiet", kModule);
    trap([&] { TellQuiet(); });
}

void ReminderWatch::TellQuiet() {
    const Quiet::State state = app_.quiet.Look();
    if (state.isOn) {
        const std::string until = FormatDate(state.until, "HH:NN", app_.platform.locale.Data());
        app_.health.Tell({kQuiet,
                          Health::Weight::Note,
                          state.isByScreen ? "Quiet while another program fills the screen, until " + until +
                                                 " at the latest. Reminders wait."
                                           : "Quiet until " + until + ". Reminders wait until then.",
                          {{"End quiet", [this] { EndQuiet(); }}},
                          Health::Sign::Quiet});
    } else {
        app_.health.Clear(kQuiet);
    }
    if (std::exchange(wasQuiet_, state.isOn) && !state.isOn) app_.reminderWindows.QuietEnded();
}

void ReminderWatch::EndQuiet() {
    app_.quiet.End();
    TellQuiet();
}

void ReminderWatch::TellMissed() {
    const std::size_t count = app_.reminderWindows.Missed().size();
    if (count == 0) {
        app_.health.Clear(kMissed);
        return;
    }
    app_.health.Tell(
        {kMissed,
         Health::Weight::Warning,
         Counted(count, "missed reminder") + (count == 1 ? " waits" : " wait") + " for your answer.",
         {{"Show them", [this] { app_.reminderWindows.OpenMissed(); }}},
         Health::Sign::Missed});
}

// Not in the first tick, since the libraries of sound take as long to load as the rest of a start.
void ReminderWatch::LookForDevice() {
    if (looks_++ % kDeviceLooks != 1) return;
    hasDevice_ = app_.platform.sound.OutputDevices() >= 1;
    // A player asks for a device once and for all: one that came after the logon, or was plugged in, gets a
    // player of its own.
    if (hasDevice_ && !app_.player->HasSound()) app_.MakePlayer();
}

void ReminderWatch::TellSilence() {
    const bool off = app_.settings.Flag(kNoSounds);
    if (hasDevice_ && !off) {
        if (app_.settings.IsSettingPresent(kSilenceKnown)) {
            app_.settings.DeleteSetting(kSilenceKnown);
            app_.settings.SaveOnly(app_.settingsFileName, std::array{kSilenceKnown});
        }
        app_.health.Clear(kSilence);
        return;
    }
    if (app_.settings.Flag(kSilenceKnown)) {
        app_.health.Clear(kSilence);
        return;
    }
    Health::Notice notice{kSilence,
                          Health::Weight::Note,
                          hasDevice_
                              ? "Reminders come without a sound: sounds are off in the settings."
                              : "Reminders come without a sound: this computer has no sound device just "
                                "now.",
                          {},
                          Health::Sign::Silent};
    if (hasDevice_)
        notice.actions.push_back({"Sounds on", [this] {
                                      app_.settings.StoreSetting(kNoSounds, false);
                                      app_.settings.SaveSettings(app_.settingsFileName);
                                      TellSilence();
                                  }});
    notice.actions.push_back({"OK", [this] {
                                  app_.settings.StoreSetting(kSilenceKnown, true);
                                  app_.settings.SaveOnly(app_.settingsFileName, std::array{kSilenceKnown});
                                  TellSilence();
                              }});
    app_.health.Tell(std::move(notice));
}

}  // namespace kaz
