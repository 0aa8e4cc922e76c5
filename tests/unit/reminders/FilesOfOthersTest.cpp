#include "fakes/Matchers.h"
#include "resources/resource.h"
#include "unit/reminders/ReminderDesk.h"

namespace kaz {
namespace {

constexpr const char* kPath = "\\\\evil\\share\\run.bat";

// Ann, and what two others have written into their shared files.
class FilesOfOthers : public ::testing::Test {
protected:
    FilesOfOthers() {
        desk.settings.StoreSetting("Networked", true);
        desk.settings.StoreSetting("SharedDataPath", std::string("C:\\Share"));
        desk.machine.files.Put("C:\\Share\\KAZShared.ini", "Ann\r\nBob\r\nEve\r\n");
        desk.machine.files.looked = [this](const std::string& path) { looks += path == kPath; };
    }
    static clsEvent Runs(const std::string& file, const std::string& claimedOwner) {
        const clsEvent event = OneOff("000001", "Run\r\nme " + std::string(5000, 'x'), DateValue());
        return Running(Of(claimedOwner, WithAlarm(event, 9, 0)), file);
    }
    void Share(const std::string& user, const std::vector<clsEvent>& events) {
        desk.machine.files.Put("C:\\Share\\Shared_" + user + ".xml", FileOf(events));
        desk.shared.LoadMultiple("C:\\Share\\KAZShared.ini");
        desk.TakeLog();
    }
    void Ring() {
        desk.machine.clock.AdvanceDays(1);
        for (clsEvent& event : Changing(desk.shared))
            event.DueDate(desk.machine.clock.Today());
        for (int pass = 0; pass < 2; ++pass)
            desk.Engine().DisplayAlarms(desk.shared);
    }
    FakeWindow* Question() { return desk.machine.windows.Newest(IDD_RUNFILE); }
    void Answer(int button) {
        desk.machine.windows.Advance(1000);
        ASSERT_NE(Question(), nullptr);
        Question()->Click(button);
        desk.machine.windows.Advance(1);
    }

    ReminderDesk desk;
    int looks = 0;
};

TEST_F(FilesOfOthers, AreNeitherTouchedNorRunBeforeAYesToTheirTrueSource) {
    desk.settings.AddToSet("TrustedFiles", std::string("Bob|") + kPath);
    Share("Eve", {Runs(std::string(" ") + kPath, "Bob")});
    Ring();
    ASSERT_NE(Question(), nullptr);
    EXPECT_THAT(Question()->acts, ElementsAre("Show", "BringToFront"));
    EXPECT_EQ(Question()->Text(IDC_lblSource), "Eve");
    EXPECT_EQ(Question()->Text(IDC_lblEvent), "Run me " + std::string(93, 'x') + "...");
    EXPECT_EQ(Question()->Text(IDC_txtFile), kPath);

    const auto pressEverything = [this] {
        Question()->Click(IDC_cmdYes);
        Question()->Click(IDC_cmdNo);
        Question()->Raise(0, Raised::CloseBox, kByEscape);
        return Question()->IsVisible();
    };
    desk.machine.windows.Advance(999);
    EXPECT_TRUE(pressEverything());
    Question()->Raise(0, Raised::Activated);  // the window before has closed, and its user types on
    desk.machine.windows.Advance(999);
    EXPECT_TRUE(pressEverything());
    desk.machine.windows.Advance(1);
    Question()->Raise(0, Raised::Activated, kByMouse);
    Question()->CloseBox();
    desk.machine.windows.Advance(1);
    EXPECT_EQ(Question(), nullptr);
    EXPECT_EQ(looks, 0);
    EXPECT_THAT(desk.TakeLog(), ElementsAre(std::string("Not running ") + kPath + " of Eve - not allowed"));

    Ring();
    Answer(IDC_cmdYes);
    EXPECT_THAT(desk.TakeLog(), ElementsAre(std::string("Can't run ") + kPath + " - file not found"));
    EXPECT_TRUE(desk.settings.ValueInSet("TrustedFiles", std::string("Eve|") + kPath));
    desk.machine.files.Put(kPath, "");
    Ring();
    EXPECT_EQ(Question(), nullptr);
    EXPECT_THAT(desk.machine.shell.openedBehind, ElementsAre(kPath));
}

TEST_F(FilesOfOthers, AreAskedForOneAfterTheOtherUntilTheProgramEnds) {
    std::vector<clsEvent> many;
    for (int number = 1; number <= 22; ++number)
        many.push_back(Runs("C:\\" + std::to_string(number), "Bob"));
    many.push_back(many.front());
    for (std::size_t at = 0; at < many.size(); ++at)
        many[at].IDCode = std::to_string(100000 + at);
    Share("Bob", many);
    // With the owner and the code of another's event; and one that would be
    // Ann's own, which she does not see.
    Share("Eve", {many[0], Runs("C:\\own", "Ann")});
    Ring();
    EXPECT_THAT(desk.TakeLog(), ElementsAre("Not running C:\\22 of Bob - too many questions are open",
                                            "Not running C:\\1 of Eve - too many questions are open"));
    EXPECT_EQ(desk.machine.windows.All(IDD_RUNFILE).size(), 1U);
    EXPECT_EQ(Question()->Text(IDC_txtFile), "C:\\1");
    Answer(IDC_cmdNo);
    EXPECT_EQ(desk.machine.windows.All(IDD_RUNFILE).size(), 1U);
    EXPECT_EQ(Question()->Text(IDC_txtFile), "C:\\2");
    desk.machine.files.Put("C:\\2", "");
    desk.machine.windows.Advance(1000);
    desk.openWindows.UnloadAll();
    EXPECT_EQ(Question(), nullptr);
    EXPECT_THAT(desk.machine.shell.opened, IsEmpty());
}

TEST_F(FilesOfOthers, AreRefusedUnaskedWhenTheirNameIsNotWhatItLooksLike) {
    for (const std::string& file : {std::string("C:\\a\r\nTRUSTEDFILES_2,Eve"), std::string(40000, 'a')}) {
        Share("Bob", {Runs(file, "Bob")});
        Ring();
        EXPECT_EQ(Question(), nullptr);
        EXPECT_THAT(desk.machine.files.Text(desk.log.CurrentLogFilename()),
                    HasSubstr((file + " of Bob - malformed name").substr(0, 1900)));
    }
}

TEST_F(FilesOfOthers, TheSoundOfTheirAlarmIsTheDefaultOne) {
    desk.machine.files.Put("C:\\KAZ\\alarm.wav", SampleWave());
    Share("Bob", {Of("Bob", Loud(WithAlarm(OneOff("000001", "Loud", {}), 9, 0), kPath))});
    Ring();
    desk.machine.windows.Advance(2000);
    EXPECT_EQ(desk.machine.sound.calls.back().file, "C:\\KAZ\\alarm.wav");
    EXPECT_EQ(looks, 0);
}

}  // namespace
}  // namespace kaz
