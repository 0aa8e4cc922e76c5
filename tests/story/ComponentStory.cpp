#include "fakes/Matchers.h"
#include "story/Story.h"
#include "support/Names.h"

using namespace kaz;

TEST(Component, FirstStartForcesSingleUserModeAndSavesItAtOnce) {
    Story story;
    EXPECT_TRUE(story.Start().SettingsInitialised());
    EXPECT_THAT(story.Saved("Kaz.ini"), HasSubstr("OWNER,Single\r\n"));
    EXPECT_THAT(story.Saved("Kaz.ini"), HasSubstr("DATAPATH,C:\\KAZ\r\n"));
    story.component->ScanEvents();
    EXPECT_THAT(story.host.raised, ElementsAre("TodaysEvents", "UpcomingEvents", "AllEvents"));
    EXPECT_THAT(story.host.todays, IsEmpty());
    EXPECT_THAT(story.host.upcoming, ElementsAre("None"));
    EXPECT_EQ(story.host.all, "");
    EXPECT_FALSE(story.Main()->IsVisible());

    std::string log = story.Log();
    std::size_t at = 0;
    for (const char* line :
         {"Log file created ", "Curdir: ", "KAZ Startup", "Options loaded", "Loading category names",
          "Forcing single user mode", "Shared DB file: Shared_Single.xml", "DB file: C:\\KAZ\\Events.xml",
          "Expired DB file: C:\\KAZ\\Expired.xml", "Local events loaded", "Expired events loaded",
          "Backup to C:\\KAZ\\Autobackups\\Wed Autobackup.zip complete",
          "Data automatically zipped to Autobackups folder in C:\\KAZ"}) {
        at = log.find("1 09:00:00, " + std::string(line), at);
        ASSERT_NE(at, std::string::npos) << line << "\n" << log;
    }
    story.component->ShutDown();
    story.component.reset();
    story.Start();
    EXPECT_THAT(story.Log(), HasSubstr("Not forcing single user mode"));
}

TEST(Component, DoesNothingBeforeItWasStartedAndTellsWhyAFolderWillNotDo) {
    for (const std::string folder : {"C:\\Nowhere", "", "C:\\KAZ\\Kaz.ini", "\x01?*"}) {
        Story story;
        story.Settings("OWNER,Ann\r\n");
        clsComponent early(story.machine.Services(), MakeMainWindow, story.host);
        for (const bool isStarted : {false, true}) {
            clsComponent& component = isStarted ? story.Start(folder) : early;
            component.RefreshDates();
            component.ShowMain();
            component.HideMain();
            component.SetOptions("");
            component.ScanEvents();
            component.ShutDown();
            EXPECT_FALSE(component.SettingsInitialised()) << folder;
            EXPECT_EQ(component.DLLVersion(), VersionText());
            EXPECT_THAT(story.host.raised, IsEmpty());
            EXPECT_EQ(story.machine.windows.made, isStarted ? 1 : 0);  // the report of the failure
            EXPECT_EQ(story.Saved("Kaz.ini"), "OWNER,Ann\r\n");
        }
        EXPECT_THAT(story.Log(),
                    HasSubstr("Error 76 (Path not found: \"" + folder + "\") in Startup of clsComponent"));
    }
    Story trailing;
    EXPECT_TRUE(trailing.Start("C:\\KAZ\\").SettingsInitialised());
    EXPECT_THAT(trailing.Saved("Kaz.ini"), HasSubstr("DATAPATH,C:\\KAZ\r\n"));
}

TEST(Component, ScanListsTodayUpcomingAndAll) {
    Story story;
    story.Settings("OWNER,Ann\r\n");
    story.Events({WithAlarm(OneOff("000001", "Tea\r\nwith Bob", story.Today()), 14, 5),
                  Warned(OneOff("000002", "Dentist", story.Today(1)), 1),
                  Warned(OneOff("000003", "Trip", story.Today(3)), 3),
                  Warned(OneOff("000004", "Far", story.Today(4)), 3),
                  Running(OneOff("000005", "Runs", story.Today()), "")});
    story.Start().ScanEvents();
    EXPECT_THAT(story.host.todays, ElementsAre("Tea\r\nwith Bob at 14:05"));
    EXPECT_THAT(story.host.upcoming, ElementsAre("In 1 day: Dentist", "In 3 days: Trip"));
    EXPECT_EQ(story.host.all,
              "0000,3/15/2023,Tea with Bob\r\n0001,3/16/2023,Dentist\r\n0003,3/18/2023,Trip\r\n"
              "0004,3/19/2023,Far\r\n");
}

TEST(Component, MailsOnceForEachDueDateAndRemembersIt) {
    Story story;
    story.Settings("OWNER,Ann\r\n");
    story.Events(
        {OneOff("000001", "Quiet", story.Today()),
         Mailed(OneOff("000002", "Bill", story.Today()), "  ann@example.org" + std::string(1, '\0') + " ")});
    clsComponent& component = story.Start();
    // A host may look around in the middle of it.
    story.host.onMail = [&] {
        component.RefreshDates();
        component.ScanEvents();
    };
    component.ScanEvents();
    component.ScanEvents();
    const std::string mail = "MailEvent ann@example.org|KAZ Alert - Event 2|Bill";
    EXPECT_EQ(std::count(story.host.raised.begin(), story.host.raised.end(), mail), 1);
    EXPECT_THAT(story.Saved("Events.xml"), HasSubstr("<MailSent>-1</MailSent>"));
}

TEST(Component, AHostThatThrowsEndsTheScanButNotTheProgram) {
    Story story;
    story.Settings("OWNER,Ann\r\n");
    story.Events({Mailed(OneOff("000002", "Bill", story.Today()), "ann@example.org")});
    clsComponent& component = story.Start();
    story.host.onMail = [] { throw std::runtime_error("host"); };
    component.ScanEvents();
    EXPECT_THAT(story.host.raised, Not(Contains("TodaysEvents")));
    EXPECT_THAT(story.Log(), HasSubstr("ScanEvents of clsComponent"));
    component.ShowMain();
    EXPECT_TRUE(story.Main()->IsVisible());
}

TEST(Component, ClosingTheMainWindowHidesItTellsTheHostAndKeepsTheAlarms) {
    Story story;
    story.Settings("OWNER,Ann\r\n");
    story.Events({WithAlarm(OneOff("000001", "Tea", story.Today()), 9, 2)});
    story.Start().ShowMain();
    story.Main()->Raise(0, Raised::CloseBox, kByEscape);
    EXPECT_TRUE(story.Main()->IsVisible());
    story.Main()->CloseBox();
    EXPECT_THAT(story.host.raised, ElementsAre("Closed"));
    EXPECT_FALSE(story.Main()->IsVisible());
    story.Advance(180);
    EXPECT_THAT(story.Lines("ALARM!"), ElementsAre("Tea"));
    story.component->ShutDown();
    EXPECT_EQ(story.Main(), nullptr);
    EXPECT_EQ(story.Reminder("ALARM!"), nullptr);
}

TEST(Component, AStartWithoutNewsLeavesTheEventFilesAlone) {
    Story story;
    story.Settings("OWNER,Single\r\nNOAUTOBACKUPS,-1\r\n");
    story.Events({Daily("000001", "Each week", story.Today(), 7)});
    story.Start();
    const auto times = [&] {
        return std::pair{story.machine.files.ModificationTime(Story::Path("Events.xml")),
                         story.machine.files.ModificationTime(Story::Path("Expired.xml"))};
    };
    const auto before = times();
    ASSERT_TRUE(before.first && before.second);
    story.component.reset();
    story.Start().RefreshDates();
    story.Advance(100);
    EXPECT_EQ(times(), before);
}
