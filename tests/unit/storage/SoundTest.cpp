#include "base/Text.h"
#include "fakes/Matchers.h"
#include "fakes/StorageDesk.h"
#include "storage/cSharedSound.h"
#include "storage/clsSounds.h"

namespace kaz {
namespace {

using namespace std::string_literals;

const std::string kTable = "C:\\Data\\EventWavs.ini";

class EventSounds : public testing::Test, protected StorageDesk {
protected:
    EventSounds() {
        machine.files.CreateFolder("C:\\Data");
        settings.sSet("DataPath", std::string("C:\\Data"));
    }

    clsSounds sounds{machine.files, settings, log, [] { return std::string("C:\\KAZ"); }};
};

TEST_F(EventSounds, ANewEntryIsSeenAfterTheNextInitialise) {
    EXPECT_EQ(sounds.GetWavName("000001"), "C:\\KAZ\\alarm.wav");
    sounds.AddorChange("000001", "C:\\a.wav");
    EXPECT_EQ(machine.files.Text(kTable), "000001,C:\\a.wav\r\n");
    EXPECT_EQ(sounds.GetWavName("000001"), "C:\\KAZ\\alarm.wav");
    sounds.Initialise();
    EXPECT_EQ(sounds.GetWavName("000001"), "C:\\a.wav");

    // What was appended meanwhile is in the file also after a change of what was known before.
    sounds.AddorChange("000002", "C:\\b,c.wav");
    sounds.AddorChange("000001", "C:\\d.wav");
    EXPECT_EQ(machine.files.Text(kTable), "000001,C:\\d.wav\r\n000002,C:\\b,c.wav\r\n");
    sounds.Initialise();
    EXPECT_EQ(sounds.GetWavName("000002"), "C:\\b");

    sounds.Delete("000001");
    sounds.Delete("000009");
    EXPECT_EQ(machine.files.Text(kTable), "\r\n000002,C:\\b,c.wav\r\n");
    settings.sSet("WavFile", std::string("C:\\default.wav"));
    EXPECT_EQ(sounds.GetWavName("000001"), "C:\\default.wav");

    // The usual sound went along when the folder was moved; a sound of the user's own choice is not given up.
    machine.files.Put("C:\\KAZ\\alarm.wav", SampleWave());
    EXPECT_EQ(sounds.GetWavName("000001"), "C:\\default.wav");
    settings.sSet("WavFile", std::string("E:\\KAZ\\Alarm.wav"));
    EXPECT_EQ(sounds.GetWavName("000001"), "C:\\KAZ\\alarm.wav");
    machine.files.Put("E:\\KAZ\\Alarm.wav", SampleWave());
    EXPECT_EQ(sounds.GetWavName("000001"), "E:\\KAZ\\Alarm.wav");
}

TEST_F(EventSounds, TheLastLineIsNotLookedAt) {
    machine.files.Put(kTable, "000001\r\n000002,\r\n000003,C:\\a.wav");
    EXPECT_EQ(sounds.GetWavName("000001"), "C:\\KAZ\\alarm.wav");
    EXPECT_EQ(sounds.GetWavName(" 000002 "), "");
    EXPECT_EQ(sounds.GetWavName("000003"), "C:\\KAZ\\alarm.wav");
    sounds.AddorChange("000004", "C:\\b.wav");
    sounds.AddorChange("000005", "C:\\c.wav");
    EXPECT_EQ(machine.files.Text(kTable),
              "000001\r\n000002,\r\n000003,C:\\a.wav\r\n000004,C:\\b.wav\r\n000005,C:\\c.wav\r\n");
}

TEST_F(EventSounds, ATableThatCannotBeReadIsNotWrittenOver) {
    const std::string text = "000001,C:\\a.wav\r\n";
    machine.files.Put(kTable, text);
    sounds.Initialise();
    machine.files.At(kTable).locked = true;
    sounds.Initialise();
    machine.files.At(kTable).locked = false;
    machine.files.Put(kTable, text + "000002,C:\\b.wav\r\n");
    sounds.AddorChange("000001", "C:\\c.wav");
    EXPECT_EQ(machine.files.Text(kTable), "000001,C:\\c.wav\r\n000002,C:\\b.wav\r\n");
    machine.files.At(kTable).locked = true;
    sounds.Delete("000001");
    EXPECT_EQ(machine.files.Text(kTable), "000001,C:\\c.wav\r\n000002,C:\\b.wav\r\n");
    EXPECT_THAT(Log(), AllOf(HasSubstr("in Initialise of clsSounds"), HasSubstr("in Delete of clsSounds")));
    const std::string zeros(500, '\0');
    machine.files.Put(kTable, zeros);
    sounds.Initialise();
    sounds.AddorChange("000009", "C:\\a.wav");
    EXPECT_EQ(machine.files.Text(kTable), zeros);
}

TEST(SoundPlayer, WhatCannotBePlayedIsToldOnceAndGivesWayToTheOtherAndThatToABeep) {
    const std::string good = SampleWave();
    const auto with = [&](std::size_t at, const std::string& bytes) {
        std::string wave = good;
        return wave.replace(at, bytes.size(), bytes);
    };
    const struct {
        std::string file, otherwise, plays, toldOfFile;
    } rows[] = {
        {good, "", "own", ""},
        {"(none)", good, "other", ""},
        {"(none)", "(none)", "", ""},
        {"RIFF", good, "other", "is not a wave sound"},
        {"", "RIFF", "", "is not a wave sound"},
        {with(8, "AVI "), good, "other", "is not a wave sound"},
        {with(16, "\x0F"), good, "other", "is not a wave sound"},
        {with(16, "\xFF\xFF\xFF\xFF"), good, "other", "is not a wave sound"},
        {with(40, std::string(4, '\0')), good, "other", "is not a wave sound"},
        {good.substr(0, 36), good, "other", "is not a wave sound"},
        {SampleWave(7), good, "other", "is in a format that cannot be played"},
        {SampleWave(7), SampleWave(7), "", "is in a format that cannot be played"},
        {good.substr(0, 12) + "LIST\x03\0\0\0abc\0"s + good.substr(12), "", "own", ""},
        {good.substr(0, 36) + "LIST\0\0\x01\0"s + std::string(70000, ' '), "", "own", ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.file.substr(0, 50)));
        StorageDesk desk;
        FakePlatform& machine = desk.machine;
        cSharedSound player(machine.sound, machine.files, desk.log);
        machine.sound.refusedFormat = SampleWave(7).substr(20, 16);
        if (row.file != "(none)") machine.files.Put("C:\\own", row.file);
        if (row.otherwise != "(none)") machine.files.Put("C:\\other", row.otherwise);
        for (int time = 0; time < 2; ++time)
            player.PlayWav("C:\\own", "C:\\other");

        std::vector<FakeSound::Call> calls;
        for (int time = 0; time < 2; ++time) {
            calls.push_back({"", 64});
            if (!row.plays.empty()) calls.push_back({"C:\\" + row.plays, 0x20013});
        }
        EXPECT_EQ(machine.sound.calls, calls);
        EXPECT_EQ(machine.sound.beeps, row.plays.empty() ? 2 : 0);
        const std::size_t times = Split(desk.Log(), "C:\\own " + row.toldOfFile).size() - 1;
        EXPECT_EQ(times, row.toldOfFile.empty() ? 0U : 1U) << desk.Log();
    }
}

TEST(SoundPlayer, LeavesSomebodyElsesSoundAndBeeps) {
    StorageDesk desk;
    FakeSound& sound = desk.machine.sound;
    cSharedSound player(sound, desk.machine.files, desk.log);
    desk.machine.files.Put("C:\\a.wav", SampleWave());
    sound.busy = true;
    player.PlayWav("C:\\a.wav", "C:\\a.wav");
    EXPECT_EQ(sound.calls.size(), 2U);
    EXPECT_EQ(sound.beeps, 1);
}

}  // namespace
}  // namespace kaz
