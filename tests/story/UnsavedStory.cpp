#include "fakes/Matchers.h"
#include "story/Unsaved.h"

namespace kaz {
namespace {

// Whatever fails, and whatever the user does: it is told, it stays in memory, it is on the disk once the
// fault is over, or after a restart, and there is never less than before.
TEST_F(Unsaved, IsToldAndKeptAndOnTheDiskWhenTheFaultIsOver) {
    const auto onWalk = [&](int command) {
        Select("Walk");
        Main().Click(command);
    };
    const struct {
        const char* name;
        std::function<void()> act;
        std::set<std::string> then;
        const char* mine;    // of these, the event that somebody else may change
        const char* merged;  // what it is then
    } deeds[] = {
        {"add", [&] { Add("Milk"); }, {"Tea 0", "Walk 4", "Bread 0", "Milk 0"}, "Walk 4", "Hike 4"},
        {"edit", [&] { Type("Run"), onWalk(IDM_EDIT); }, {"Tea 0", "Run 4", "Bread 0"}, "Run 4", "Run 4"},
        {"delete",
         [&] { story->machine.dialogs.yesNo = {true}, onWalk(IDM_DELETE); },
         {"Tea 0", "Bread 0"},
         "",
         "Hike 4"},
        {"push", [&] { onWalk(IDM_PUSH); }, {"Tea 0", "Walk 5", "Bread 0"}, "Walk 5", "Hike 5"},
        {"share",
         [&] {
             story->machine.windows.OnModal([](FakeWindow& editor) {
                 editor.SetChecked(IDC_chkShared, true);
                 editor.Click(IDC_cmdSave);
             });
             onWalk(IDM_SHAREWITH);
         },
         {"Tea 0", "Walk 4*", "Bread 0"},
         "Walk 4*",
         "Hike 4*"},
        {"day change",
         [&] { story->Jump(1), story->Advance(31); },
         {"Tea 0E", "Walk 4", "Bread 1"},
         "Walk 4",
         "Hike 4"},
    };
    enum Ending { Over, Exit, Quit, SessionEnd, ShutDown };
    for (const Fault& fault : Faults())
        for (const auto& deed : deeds)
            for (const Ending ending : {Over, Exit, Quit, SessionEnd, ShutDown}) {
                SCOPED_TRACE(std::string(fault.name) + ", " + deed.name + ", ending " +
                             std::to_string(ending));
                Begin();
                fault.begin(story->machine);
                deed.act();
                const bool told = *fault.told != '\0';
                std::set<std::string> then = deed.then;
                if (fault.another) then.insert({"Other 9", "Other 9E"});
                if (fault.same) then.erase(deed.mine), then.insert(deed.merged);
                if (told) {
                    EXPECT_THAT(Bars(), AllOf(HasSubstr("not saved"), HasSubstr(fault.told)));
                    EXPECT_EQ(IDI_KAZUNSAVED, Main().trayIcon);
                }
                story->Advance(31);
                EXPECT_THAT(Shown(), testing::IsSupersetOf(NamesOf(then)));

                if (told && (ending == Exit || ending == Quit)) {
                    story->machine.windows.OnModal([&](FakeWindow& question) {
                        EXPECT_THAT(question.Text(IDC_lblUnsaved), HasSubstr("not saved"));
                        ending == Exit ? question.Click(IDC_cmdUnsavedCancel) : question.CloseBox();
                    });
                    Main().Click(ending == Exit ? IDM_EXIT : IDM_QUIT);
                    EXPECT_THAT(story->host.raised, Not(Contains("ShutDownKAZ")));
                    ASSERT_NE(nullptr, story->Main());
                }
                const bool ends = ending == SessionEnd || ending == ShutDown;
                if (ending == SessionEnd) Main().Raise(0, Raised::SessionEnd);
                if (ending == ShutDown) story->component->ShutDown();
                if (ends) {
                    story->component.reset();
                    EXPECT_EQ(told, story->Saved("KAZ rescue.txt").find("===") != std::string::npos);
                }
                // A start and an end while it lasts change nothing.
                if (told && ending == ShutDown) Start(), EndProgram();
                fault.end(story->machine);
                if (ends) Start();
                if (ends && told) {
                    EXPECT_THAT(Bars(), HasSubstr("taken over"));
                }
                story->Advance(70);
                EXPECT_EQ(NamesOf(then), Shown());
                EXPECT_EQ(then, OnDisk());
                if (fault.same && then.contains("Run 4")) {
                    EXPECT_THAT(story->machine.files.Files(), Contains(HasSubstr("(changed by another")));
                }
                EXPECT_THAT(Bar(), Not(HasSubstr("not saved")));
                EXPECT_EQ("", story->Saved("KAZ rescue.txt"));
            }
}

// What only the memory has at the end is not lost either, although nothing of it was left to save.
TEST_F(Unsaved, WhatTheFileNoLongerHoldsAtTheEndComesBack) {
    const std::set<std::string> all{"Tea 0", "Walk 4", "Bread 0"};
    Stick stick;
    const auto pull = [&](FakePlatform& machine) { stick.Pull(machine); };
    const auto empty = [](FakePlatform& machine) { machine.files.CreateFolder(kData); };
    const auto zeros = [](FakePlatform& machine) {
        machine.files.Put(Data("Events.xml"), std::string(3000, '\0'));
    };
    const auto shorter = [&](FakePlatform& machine) {
        stick.PutBack(machine);
        machine.files.Put(Data("Events.xml"),
                          FileOf({Of("Ann", Daily("000003", "Bread", DateValue(kStartDay)))}));
    };
    const struct {
        const char* name;
        OnMachine begin;  // after the last tick
        OnMachine end;    // before the next start
        OnMachine later;  // before a tick of that
        const char* told;
        const char* button;  // that the user presses then
        bool rescued;
        std::set<std::string> then;
    } cases[] = {
        {"emptied", [&](FakePlatform& machine) { pull(machine), empty(machine); }, Nothing, Nothing, "", "",
         false, all},
        {"away for two ticks, and empty",
         [&](FakePlatform& machine) {
             pull(machine), story->Advance(31);
             empty(machine), story->Advance(31);
         },
         Nothing, Nothing, "", "", false, all},
        {"away, and empty when it is back", pull, empty, Nothing, "3 events of a file", "OK", true, all},
        {"away, and whole when it is back", pull, [&](FakePlatform& machine) { stick.PutBack(machine); },
         Nothing, "", "", true, all},
        {"away, and shorter when it is back",
         pull,
         shorter,
         Nothing,
         "2 events are gone",
         "Leave it so",
         true,
         {"Bread 0"}},
        {"away for longer, and whole", pull, Nothing, [&](FakePlatform& machine) { stick.PutBack(machine); },
         "", "", true, all},
        {"away for longer, and empty", pull, Nothing, empty, "not in the folder", "Begin with the 3 events",
         true, all},
        {"without a byte", [](FakePlatform& machine) { machine.files.Put(Data("Events.xml"), ""); }, Nothing,
         Nothing, "3 events of a file", "OK", true, all},
        {"damaged", zeros, Nothing, Nothing, "is damaged", "Save the 3 events", true, all},
        {"damaged, and repaired", zeros, shorter, Nothing, "2 events are gone", "Take them back", true, all},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        Begin();
        stick.Copy(story->machine);
        row.begin(story->machine);
        EndProgram();
        EXPECT_EQ(row.rescued, story->Saved("KAZ rescue.txt").find("Bread") != std::string::npos);
        row.end(story->machine);
        Start();
        row.later(story->machine);
        story->Advance(31);
        EXPECT_THAT(Bars(), HasSubstr(row.told));
        for (int button = 0; button < 3 && *row.button != '\0'; ++button)
            if (Main().Text(IDC_cmdHealth + button).find(row.button) != std::string::npos)
                Main().Click(IDC_cmdHealth + button);
        story->Advance(61);
        EXPECT_EQ(row.then, OnDisk());
        EXPECT_EQ(NamesOf(row.then), Shown());
        EXPECT_EQ("", story->Saved("KAZ rescue.txt"));
        EXPECT_THAT(Bars(), AnyOf("", HasSubstr("taken over")));
    }
}

TEST_F(Unsaved, TheSettingsAndTheTasksHaveTheSamePromise) {
    std::vector<Fault> ofSettings = Faults(Story::kFolder);
    ofSettings.resize(3);
    const std::string ini = Story::Path("Kaz.ini");
    const auto stick = std::make_shared<Stick>(Story::kFolder);
    ofSettings.insert(
        ofSettings.end(),
        {{"folder gone", "is not there", [stick](FakePlatform& machine) { stick->Pull(machine); },
          [stick](FakePlatform& machine) { stick->PutBack(machine); }},
         {"vanished", "", [=](FakePlatform& machine) { machine.files.Remove(ini); }, Nothing},
         {"damaged", "damaged",
          [=](FakePlatform& machine) { machine.files.Put(ini, std::string(3000, '\0')); }, Nothing},
         {"cut", "",
          [=](FakePlatform& machine) {
              const std::string text = machine.files.Text(ini);
              machine.files.Put(ini, text.substr(0, text.find("\\Data") + 2));
          },
          Nothing},
         {"newer on disk", "",
          [=](FakePlatform& machine) {
              machine.files.Put(ini, ReplaceAll(machine.files.Text(ini), "OWNER,", "LAYER7,Other\r\nOWNER,"));
          },
          Nothing, true}});
    const struct {
        const char* named;
        std::vector<Fault> faults;
        std::string file;
        const char* entered;
        const char* rest;  // of the file
        std::function<void()> act;
    } deeds[] = {
        {"the settings", ofSettings, ini, "Garden", "DATAPATH,D:\\Data\r\n",
         [&] {
             story->machine.windows.OnModal([](FakeWindow& categories) {
                 categories.Type(IDC_txtLayer + 3, "Garden");
                 categories.Click(IDC_cmdAccept);
             });
             Main().Click(IDM_EDITLAYERS);
         }},
        {"the settings", ofSettings, ini, "NOSOUNDS,-1", "DATAPATH,D:\\Data\r\n",
         [&] {
             story->machine.windows.OnModal([](FakeWindow& options) {
                 options.SetChecked(IDC_chkNoSound, true);
                 options.Click(IDC_cmdSaveOptions);
             });
             Main().Click(IDM_SETTINGS);
         }},
        {"the task list", Faults(), Data("tasklist.xml"), "Paint the fence", "",
         [&] {
             Main().Click(IDM_TASKLIST);
             story->machine.dialogs.inputs = {"Paint the fence"};
             story->machine.windows.Newest(IDD_TASKS)->Click(IDC_cmd_add);
         }},
    };
    for (const auto& deed : deeds)
        for (const Fault& fault : deed.faults)
            for (const bool restarted : {false, true}) {
                SCOPED_TRACE(std::string(fault.name) + ", " + deed.entered + ", ending " +
                             std::to_string(restarted));
                Begin();
                FakePlatform& machine = story->machine;
                fault.begin(machine);
                deed.act();
                if (*fault.told != '\0') {
                    EXPECT_THAT(Bars(), AllOf(HasSubstr(deed.named), HasSubstr(fault.told)));
                }
                const std::size_t messages = machine.dialogs.messages.size();
                story->Advance(65);
                EXPECT_EQ(messages, machine.dialogs.messages.size());  // no box comes by itself
                if (restarted) {
                    EndProgram();
                }
                fault.end(machine);
                if (restarted) Start();
                story->Advance(65);
                EXPECT_THAT(machine.files.Text(deed.file),
                            AllOf(HasSubstr(deed.entered), HasSubstr(deed.rest)));
                if (fault.another) {
                    EXPECT_THAT(machine.files.Text(deed.file), HasSubstr("Other"));
                }
                EXPECT_THAT(Bars(), Not(HasSubstr("not saved")));
                EXPECT_EQ("", story->Saved("KAZ rescue.txt"));
            }
}

}  // namespace
}  // namespace kaz
