#include "fakes/Matchers.h"
#include "story/Unsaved.h"

namespace kaz {
namespace {

// A rescue in the folder that all programs of the user share belongs to one data folder.
TEST_F(Unsaved, ARescueWaitsForItsOwnDataFolder) {
    Begin();
    FakePlatform& machine = story->machine;
    const std::string local = "C:\\Local\\KAZ\\KAZ rescue";
    machine.files.fullFolder = kData;
    machine.files.At(Story::kFolder).readOnly = true;
    Add("Milk");
    EndProgram();
    machine.files.fullFolder.clear();
    const std::string rescue = machine.files.Text(local + ".txt");
    ASSERT_THAT(rescue, HasSubstr("Milk"));

    machine.files.At(Story::kFolder).readOnly = false;
    const std::string settings = story->Saved("Kaz.ini");
    story->Settings(ReplaceAll(settings, kData, "D:\\Other"));
    Start();
    EXPECT_EQ(std::set<std::string>(), Shown());
    EXPECT_THAT(story->Log(), HasSubstr("belongs to the data folder D:\\Data"));
    // What this one cannot save stands beside it.
    machine.files.fullFolder = "D:\\Other";
    machine.files.At(Story::kFolder).readOnly = true;
    Add("Jam");
    EndProgram();
    EXPECT_EQ(rescue, machine.files.Text(local + ".txt"));
    EXPECT_THAT(machine.files.Text(local + " 2.txt"), HasSubstr("Jam"));

    machine.files.At(Story::kFolder).readOnly = false;
    story->Settings(settings);
    Start();
    EXPECT_EQ((std::set<std::string>{"Tea 0", "Walk 4", "Bread 0", "Milk 0"}), OnDisk());
    EXPECT_EQ("", machine.files.Text(local + ".txt"));
    EXPECT_THAT(machine.files.Text(local + " 2.txt"), HasSubstr("Jam"));
}

TEST_F(Unsaved, CanBeLostOrCopiedByChoiceOnly) {
    Begin();
    const Fault full = Faults().front();
    full.begin(story->machine);
    Add("Milk");
    story->machine.dialogs.files = {"E:\\copy.txt"};
    story->machine.files.CreateFolder("E:\\");
    Main().Click(IDC_cmdHealth + 1);
    EXPECT_THAT(story->machine.files.Text("E:\\copy.txt"), HasSubstr("Milk"));

    story->machine.windows.OnModal([](FakeWindow& question) { question.Click(IDC_cmdUnsavedLose); });
    Main().Click(IDM_EXIT);
    EXPECT_THAT(story->host.raised, Contains("ShutDownKAZ"));
    story->component->ShutDown();
    EXPECT_EQ("", story->Saved("KAZ rescue.txt"));

    // A rescue that is cut short gives what can be read, and stays.
    full.end(story->machine);
    story->component.reset();
    Start();
    full.begin(story->machine);
    Add("Run");
    EndProgram();
    full.end(story->machine);
    const std::string rescue = story->Saved("KAZ rescue.txt");
    story->machine.files.Put(Story::Path("KAZ rescue.txt"), rescue.substr(0, rescue.size() - 9));
    Start();
    EXPECT_THAT(OnDisk(), Contains("Run 0"));
    EXPECT_THAT(story->machine.files.Files(), Contains(HasSubstr("(damaged")));
}

// A damaged file is kept, and the memory or a backup takes its place when the user wants it.
TEST_F(Unsaved, ADamagedFileIsReplacedByTheListOrABackup) {
    Begin();
    FakePlatform& machine = story->machine;
    ASSERT_NE(std::string::npos, story->Saved("Kaz.ini").find("NOAUTOBACKUPS"));
    Main().Click(IDM_BACKUP);
    const std::string nothing(3000, '\0');
    for (const bool restarted : {false, true}) {
        SCOPED_TRACE(restarted);
        if (restarted) {
            EndProgram();
        }
        machine.files.Put(Data("Events.xml"), nothing);
        if (restarted)
            Start();
        else
            story->Advance(31);
        EXPECT_THAT(Bar(), HasSubstr("is damaged"));
        EXPECT_EQ(nothing, machine.files.Text(Data("Events.xml")));
        // While the program runs, the list is the last good copy.
        EXPECT_THAT(Main().Text(restarted ? IDC_cmdHealth : IDC_cmdHealth + 1), HasSubstr("3 events"));
        if (restarted) {
            Add("Milk");
            // A backup for which there is no room changes nothing.
            machine.files.fullFolder = kData;
            Main().Click(IDC_cmdHealth);
            EXPECT_EQ(nothing, machine.files.Text(Data("Events.xml")));
            machine.files.fullFolder.clear();
            story->Advance(31);
        }
        Main().Click(restarted ? IDC_cmdHealth : IDC_cmdHealth + 1);
        story->Advance(31);
        std::set<std::string> whole{"Tea 0", "Walk 4", "Bread 0"};
        if (restarted) whole.insert("Milk 0");
        EXPECT_EQ(NamesOf(whole), Shown());
        EXPECT_EQ(whole, OnDisk());
        EXPECT_THAT(Bar(), Not(HasSubstr("damaged")));
        const std::vector<std::string> files = machine.files.Files();
        EXPECT_EQ(restarted ? 2 : 1, std::count_if(files.begin(), files.end(), [](const std::string& file) {
                      return file.find("(damaged, ") != std::string::npos;
                  }));
    }
}

TEST_F(Unsaved, ADamagedTaskListIsReplacedByTheListOrABackup) {
    for (const std::string& damaged : {std::string(3000, '\0'), std::string()})
        for (const bool wasOpen : {true, false}) {
            SCOPED_TRACE((damaged.empty() ? "without a byte" : "zeros") +
                         std::string(wasOpen ? ", open" : ""));
            Begin();
            FakePlatform& machine = story->machine;
            const std::string file = Data("tasklist.xml");
            machine.files.Put(file, "<TASK><DETAILS>Milk</DETAILS><DETAILS>Jam</DETAILS></TASK>");
            Main().Click(IDM_BACKUP);
            if (wasOpen) Main().Click(IDM_TASKLIST);
            machine.files.Put(file, damaged);
            Main().Click(IDM_TASKLIST);
            FakeWindow& tasks = *machine.windows.Newest(IDD_TASKS);
            machine.dialogs.inputs = {"Tea"};
            tasks.Click(IDC_cmd_add);
            story->Advance(31);
            EXPECT_EQ(damaged, machine.files.Text(file));
            EXPECT_THAT(Bars(), HasSubstr("is damaged"));
            // The first notice is of what is not saved.
            Main().Click(IDC_cmdHealthNext);
            const int button = IDC_cmdHealth + (wasOpen ? 1 : 0);
            EXPECT_THAT(Main().Text(button), HasSubstr(wasOpen ? "3 tasks of the list" : "(2 tasks)"));
            Main().Click(button);
            EXPECT_EQ((std::vector<std::string>{"Milk", "Jam", "Tea"}), tasks.Items(IDC_lst_tasks));
            EXPECT_THAT(machine.files.Text(file), AllOf(HasSubstr("Jam"), HasSubstr("Tea")));
            EXPECT_THAT(machine.files.Files(), Contains(HasSubstr("tasklist (damaged, ")));
            EXPECT_EQ("", Bars());
        }
}

// What another program removes can be had back, and what it saves leaves the selection with the event.
TEST_F(Unsaved, EventsThatAnotherRemovesCanBeTakenBack) {
    for (const bool back : {true, false}) {
        Begin();
        Select("Bread");
        const FakeReportList& list = Main().Report(IDC_ListEvents);
        const int row = list.Selection().at(0);
        FakePlatform& machine = story->machine;
        machine.files.Put(Data("Events.xml"), FileOf({Of("Ann", Daily("000003", "Bread", story->Today())),
                                                      OneOff("000008", "Other", story->Today(9))}));
        story->Advance(31);
        ASSERT_EQ(1U, list.Selection().size());
        EXPECT_NE(row, list.Selection()[0]);
        EXPECT_EQ("Bread", list.Cell(list.Selection()[0], kEventColumn));
        EXPECT_EQ((std::set<std::string>{"Bread", "Other"}), Shown());
        EXPECT_THAT(Bar(), HasSubstr("2 events are gone"));
        Main().Click(back ? IDC_cmdHealth : IDC_cmdHealth + 1);
        story->Advance(31);
        std::set<std::string> then{"Bread 0", "Other 9"};
        if (back) then.insert({"Tea 0", "Walk 4"});
        EXPECT_EQ(then, OnDisk());
        EXPECT_EQ(NamesOf(then), Shown());
        EXPECT_EQ("", Bar());
    }
}

}  // namespace
}  // namespace kaz
