#include "reminders/frmReminder.h"

#include "unit/reminders/ReminderDesk.h"

#include <gmock/gmock.h>

namespace kaz {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class frmReminderTest : public ::testing::Test {
protected:
    frmReminderTest() : form(desk.windows.Open(ReminderKind::Today)) {
        form.Heading("TODAY!");
        window = desk.Window("TODAY!");
        desk.machine.files.Put("C:\\KAZ\\alarm.wav", SampleWave());
    }
    void Pass(int seconds) { desk.machine.windows.Advance(seconds * 1000); }
    void Sleep(const std::string& minutes) {
        window->Type(IDC_txtSleep, minutes);
        window->Click(IDC_cmdRemindMe);
    }
    // The names of what was played so far; a stop before each sound does not count.
    std::vector<std::string> Played() const {
        std::vector<std::string> files;
        for (const auto& call : desk.machine.sound.calls)
            if (!call.file.empty()) files.push_back(call.file);
        return files;
    }

    ReminderDesk desk;
    frmReminder& form;
    FakeWindow* window = nullptr;
};

TEST_F(frmReminderTest, AppearsAfterTwoSecondsAndComesBackEveryThirty) {
    EXPECT_EQ(window->Text(IDC_lblHeading), "TODAY!");
    EXPECT_EQ(window->Interval(IDT_Timer1), 2000);
    Pass(1);
    form.Heading("TODAY!");  // only the first heading starts the timer
    Pass(1);
    EXPECT_THAT(window->acts, ElementsAre("Show", "BringToFront"));
    Pass(60);
    EXPECT_THAT(window->acts, ElementsAre("Show", "BringToFront", "BringToFront", "BringToFront"));
    EXPECT_THAT(Played(), IsEmpty());
}

TEST_F(frmReminderTest, SleepsForWholeMinutesAndComesBackOnce) {
    form.PlaySound = true;
    Pass(2);
    Sleep("2");
    EXPECT_FALSE(window->IsVisible());
    Pass(119);
    EXPECT_FALSE(window->IsVisible());
    EXPECT_EQ(Played().size(), 1U);
    Pass(1);
    EXPECT_TRUE(window->IsVisible());
    EXPECT_EQ(Played().size(), 2U);
    EXPECT_EQ(window->Interval(IDT_Timer1), 0);

    Sleep("1");
    Pass(60);
    EXPECT_TRUE(window->IsVisible());
}

TEST_F(frmReminderTest, MinutesThatAreNoNumberWakeAtTheFirstFullMinute) {
    for (const char* minutes : {"soon", "-5", "", "0.5"}) {
        Sleep(minutes);
        Pass(59);
        EXPECT_FALSE(window->IsVisible()) << minutes;
        Pass(1);
        EXPECT_TRUE(window->IsVisible()) << minutes;
    }
}

TEST_F(frmReminderTest, TakesNoMoreMinutesThanFourDigitsWhoeverWritesThem) {
    window->Type(IDC_txtSleep, "99999");
    EXPECT_EQ(window->Text(IDC_txtSleep), "9999");
    window->SetText(IDC_txtSleep, "1e300");
    window->Click(IDC_cmdRemindMe);
    EXPECT_THAT(desk.errors.told, IsEmpty());
    Pass(9998 * 60);
    EXPECT_FALSE(window->IsVisible());
    Pass(60);
    EXPECT_TRUE(window->IsVisible());
}

TEST_F(frmReminderTest, StaysClosedWhenTheUserClosesItAsItAppears) {
    form.PlaySound = true;
    desk.machine.pump.waiting = [&] {
        desk.machine.pump.waiting = nullptr;
        window->Click(IDC_cmdContinue);
    };
    Pass(300);
    EXPECT_EQ(desk.openWindows.Count(), 0U);
    EXPECT_EQ(desk.machine.windows.Newest(IDD_REMINDER), nullptr);
    EXPECT_THAT(Played(), IsEmpty());
}

TEST_F(frmReminderTest, SleepsWhenTheUserSaysSoAsItAppears) {
    desk.machine.pump.waiting = [&] {
        desk.machine.pump.waiting = nullptr;
        Sleep("1");
    };
    Pass(2);
    EXPECT_EQ(window->Interval(IDT_Timer1), 1000);
    EXPECT_FALSE(window->IsVisible());
}

TEST_F(frmReminderTest, PlaysTheDefaultSoundForOneThatIsGone) {
    form.PlaySound = true;
    form.SoundFile = "C:\\gone.wav";
    Pass(2);
    desk.machine.files.Remove("C:\\KAZ\\alarm.wav");
    Pass(30);
    EXPECT_THAT(Played(), ElementsAre("C:\\KAZ\\alarm.wav"));
    EXPECT_EQ(desk.machine.sound.beeps, 1);
    desk.settings.StoreSetting("NoSounds", true);
    Pass(30);
    EXPECT_EQ(desk.machine.sound.beeps, 1);
}

TEST_F(frmReminderTest, IsSilentOnAMachineWithoutSound) {
    desk.machine.sound.devices = 0;
    form.PlaySound = true;
    Pass(60);
    EXPECT_THAT(Played(), IsEmpty());
    EXPECT_EQ(desk.machine.sound.beeps, 0);
}

}  // namespace
}  // namespace kaz
