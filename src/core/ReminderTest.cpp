#include "core/ReminderTest.h"

#include "base/DateText.h"
#include "base/RuntimeError.h"
#include "core/Application.h"
#include "core/Backup.h"
#include "core/NamedEvents.h"
#include "core/Reason.h"
#include "platform/Clock.h"
#include "platform/Files.h"
#include "platform/Locale.h"
#include "platform/Sound.h"
#include "platform/WaveFile.h"
#include "reminders/ReminderDay.h"
#include "storage/clsSounds.h"

namespace kaz {

namespace {

constexpr int kDaysAhead = 60;
constexpr int kOldBackup = 7;  // days

}  // namespace

std::vector<ReminderTest::Finding> ReminderTest::Run() {
    std::vector<Finding> findings;
    ErrorTrap trap(app_.log, "Run", "ReminderTest");
    for (Finding (ReminderTest::*const look)() :
         {&ReminderTest::Sound, &ReminderTest::Folder, &ReminderTest::Backup, &ReminderTest::NextAlarm}) {
        bool found = false;
        trap([&] {
            findings.push_back((this->*look)());
            found = true;
        });
        if (!found) findings.push_back({Result::Wrong, "A part of the test failed. The log says why."});
    }
    trap([&] { AddNotices(findings); });
    return findings;
}

// Straight at the device: the player gives way to other sounds without a word.
ReminderTest::Finding ReminderTest::Sound() {
    kaz::Sound& sound = app_.platform.sound;
    if (app_.settings.Flag("NoSounds")) return {Result::Note, "Sound: off, as chosen in the settings."};
    if (sound.OutputDevices() == 0)
        return {Result::Wrong, "Sound: this computer has no sound device just now."};
    const std::string device = sound.DeviceName();
    const std::string on = device.empty() ? std::string() : " on " + device;
    const std::string file = DefaultAlarmSound(app_.platform.files, app_.settings, app_.runtimePath);
    if (!FileExists(app_.platform.files, file))
        return {Result::Wrong, "Sound: the file " + file + " is not there, and alarms only beep" + on + "."};
    try {
        if (!sound.Plays(WaveFormatOf(app_.platform.files, file)))
            return {Result::Wrong, "Sound: " + file + " is in a format that cannot be played" + on + "."};
    } catch (const RuntimeError& error) {
        return {Result::Wrong, "Sound: " + file + " cannot be played: " + error.Description() + "."};
    }
    constexpr std::uint32_t kFlags = kaz::Sound::kAsync | kaz::Sound::kNoDefault | kaz::Sound::kFileName;
    if (!sound.Play(file, kFlags)) return {Result::Wrong, "Sound: " + file + " does not play" + on + "."};
    return {Result::Fine, "Sound: you should hear " + file + on + " now."};
}

ReminderTest::Finding ReminderTest::Folder() {
    const std::string folder = app_.DataPath();
    const std::string file = JoinPath(folder, "KAZ test.tmp");
    const std::string text = "KAZ wrote this to try the folder, and deletes it again.";
    try {
        WriteWholeFile(app_.platform.files, file, text);
        const bool same = ReadWholeFile(app_.platform.files, file) == text;
        app_.platform.files.Delete(file);
        if (same) return {Result::Fine, "Data folder: " + folder + " takes what is written there."};
        return {Result::Wrong, "Data folder: " + folder + " does not keep what is written there."};
    } catch (...) {
        return {Result::Wrong, "Data folder: " + folder + " cannot be written: " +
                                   Reason(app_.platform.files, file, CurrentError()) + "."};
    }
}

ReminderTest::Finding ReminderTest::Backup() {
    if (!app_.events) return {Result::Wrong, "Backup: there are no events yet that could be backed up."};
    const auto newest = NewestBackup(app_, app_.events->DBFilename());
    if (!newest) {
        const bool none = app_.events->RecordCount() == 0;
        return {none ? Result::Note : Result::Wrong, "Backup: there is none with events in it."};
    }
    const int age = app_.platform.clock.Today().Day() - newest->made.Day();
    const std::string text = "Backup: of " +
                             GeneralDateText(newest->made.DateOnly(), app_.platform.locale.Data()) +
                             ", with " + Counted(newest->count, "event") + ", in " + newest->archive + ".";
    if (age <= kOldBackup) return {Result::Fine, text};
    return {Result::Wrong, text + " That is " + Counted(static_cast<std::size_t>(age), "day") + " ago."};
}

ReminderTest::Finding ReminderTest::NextAlarm() {
    const DateValue now = app_.platform.clock.Now();
    const LocaleData& locale = app_.platform.locale.Data();
    for (std::int32_t day = now.Day(); day <= now.Day() + kDaysAhead && day <= kLastDay; ++day) {
        ReminderDay told(VisibleEvents(app_.settings), DateValue(day));
        told.AddAlarms(app_.events.get(), EventSource::Local);
        if (app_.Networked()) told.AddAlarms(app_.shared.get(), EventSource::Shared);
        for (const ReminderDay::Alarm& alarm : told.Alarms()) {
            if (alarm.minute <= now) continue;
            const std::vector<clsEvent> named{*alarm.event};
            return {Result::Fine,
                    "Next alarm: " + FormatDate(alarm.minute, "DDD " + app_.DatePattern(), locale) + " at " +
                        FormatDate(alarm.minute, "HH:NN", locale) + ", " + NameOf(named) + "."};
        }
    }
    return {Result::Note, "Next alarm: none in the next " + std::to_string(kDaysAhead) + " days."};
}

// What is wrong with the files, missed or quiet is known already.
void ReminderTest::AddNotices(std::vector<Finding>& findings) {
    for (const Health::Notice& notice : app_.health.Notices())
        findings.push_back(
            {notice.weight == Health::Weight::Note ? Result::Note : Result::Wrong, notice.text});
}

}  // namespace kaz
