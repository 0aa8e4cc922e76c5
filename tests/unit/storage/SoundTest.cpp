#include "base/Text.h"
#include "fakes/StorageDesk.h"
#include "storage/cSharedSound.h"
#include "storage/clsSounds.h"

#include <gmock/gmock.h>

namespace kaz {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

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
    EXPECT_THAT(Log(),
                testing::AllOf(HasSubstr("in Initialise of clsSounds"), HasSubstr("in Delete of clsSounds")));
    const std::string zeros(500, '\0');
    machine.files.Put(kTable, zeros);
    sounds.Initialise();
    sounds.AddorChange("000009", "C:\\a.wav");
    EXPECT_EQ(machine.files.Text(kTable), zeros);
}

TEST(SoundPlayer, PlaysAFileOrBeeps) {
    FakePlatform machine;
    cSharedLogging log(machine.files, machine.clock, machine.system, {"KAZ", "1.0"});
    cSharedSound player(machine.sound, machine.files, log);
    machine.files.Put("C:\\a.wav", "RIFF");
    player.PlayWav("C:\\a.wav");
    EXPECT_THAT(machine.sound.calls,
                ElementsAre(FakeSound::Call{"", 64}, FakeSound::Call{"C:\\a.wav", 0x20013}));
    player.PlayWav("C:\\KAZ");
    EXPECT_THAT(machine.sound.calls, testing::SizeIs(3));
    EXPECT_EQ(machine.sound.beeps, 1);

    machine.sound.devices = 0;
    EXPECT_FALSE(player.HasSound());
    machine.sound.devices = 2;
    EXPECT_FALSE(player.HasSound());
}

}  // namespace
}  // namespace kaz
