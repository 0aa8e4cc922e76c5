#include "story/Story.h"
#include "ui/list/EventRows.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <set>

using namespace kaz;
using testing::Contains;
using testing::HasSubstr;
using testing::Not;

namespace {

// A disk that takes nothing for a while, and a user who goes on.
struct Fault {
    const char* name;
    const char* told;  // in the bar; "" when the change is saved all the same
    std::function<void(FakePlatform&)> begin;
    std::function<void(FakePlatform&)> end;
    bool another = false;  // another program has saved
};

constexpr char kData[] = "D:\\Data";

constexpr int kFirstDay = 45000;  // 15 March 2023

std::string Data(const std::string& name) { return std::string(kData) + "\\" + name; }

std::string BlockOf(const clsEvent& event) {
    std::string text;
    EventXml::AppendBlock(text, event);
    return text;
}

// Another program has added something to each file.
void WriteAsAnother(FakePlatform& machine) {
    for (const char* name : {"Events.xml", "Expired.xml"})
        machine.files.Put(Data(name), machine.files.Text(Data(name)) +
                                          BlockOf(OneOff(name[1] == 'v' ? "000009" : "000008", "Other",
                                                         machine.clock.Today().PlusDays(9))));
    machine.files.Put(Data("tasklist.xml"), "<KAZ2><TASK><DETAILS>Other</DETAILS></TASK></KAZ2>");
}

void MarkFiles(FakePlatform& machine, const std::string& folder, void (*mark)(MemoryFileSystem::Node&)) {
    for (const std::string& file : machine.files.Files())
        if (file.starts_with(folder)) mark(machine.files.At(file));
}

// What a stick takes along.
class Stick {
public:
    explicit Stick(std::string folder = kData) : folder_(std::move(folder)) {}

    void Pull(FakePlatform& machine) {
        for (const std::string& file : machine.files.Files())
            if (file.starts_with(folder_)) {
                texts_[file] = machine.files.Text(file);
                machine.files.Remove(file);
            }
        machine.files.Remove(folder_);
    }
    void Copy(FakePlatform& machine) {
        for (const std::string& file : machine.files.Files())
            if (file.starts_with(folder_)) texts_[file] = machine.files.Text(file);
    }
    void PutBack(FakePlatform& machine) {
        for (const auto& [file, text] : texts_)
            machine.files.Put(file, text);
        texts_.clear();
    }

private:
    std::string folder_;
    std::map<std::string, std::string> texts_;
};

class Unsaved : public testing::Test {
protected:
    static std::vector<Fault> Faults(const std::string& folder = kData) {
        const auto stick = std::make_shared<Stick>();
        return {{"disk full", ": is full", [=](FakePlatform& machine) { machine.files.fullFolder = folder; },
                 [](FakePlatform& machine) { machine.files.fullFolder.clear(); }},
                {"read-only file", "is read-only",
                 [=](FakePlatform& machine) {
                     MarkFiles(machine, folder, [](auto& node) { node.readOnly = true; });
                 },
                 [=](FakePlatform& machine) {
                     MarkFiles(machine, folder, [](auto& node) { node.readOnly = false; });
                 }},
                {"locked", "nother program holds",
                 [=](FakePlatform& machine) {
                     MarkFiles(machine, folder, [](auto& node) { node.locked = true; });
                 },
                 [=](FakePlatform& machine) {
                     MarkFiles(machine, folder, [](auto& node) { node.locked = false; });
                 }},
                {"folder gone", "is not there", [stick](FakePlatform& machine) { stick->Pull(machine); },
                 [stick](FakePlatform& machine) { stick->PutBack(machine); }},
                {"folder emptied", "is not there", [](FakePlatform& machine) { Stick().Pull(machine); },
                 [](FakePlatform& machine) { machine.files.CreateFolder(kData); }},
                {"damaged", "is damaged",
                 [stick](FakePlatform& machine) {
                     stick->Pull(machine);
                     for (const char* name : {"Events.xml", "Expired.xml", "tasklist.xml"})
                         machine.files.Put(Data(name), std::string(3000, '\0'));
                 },
                 [stick](FakePlatform& machine) { stick->PutBack(machine); }},
                {"vanished", "",
                 [](FakePlatform& machine) {
                     for (const char* name : {"Events.xml", "Expired.xml", "tasklist.xml"})
                         machine.files.Remove(Data(name));
                 },
                 [](FakePlatform&) {}},
                {"newer on disk", "", WriteAsAnother, [](FakePlatform&) {}, true}};
    }

    // The sound that is missing would be told at every start.
    void Begin() {
        story.emplace();
        story->machine.files.CreateFolder(kData);
        story->machine.files.Put(Story::Path("Kaz.ini"),
                                 "OWNER,Ann\r\nNETWORKED,-1\r\nSHAREDDATAPATH,C:\\Share\r\n"
                                 "DATAPATH,D:\\Data\r\nNOAUTOBACKUPS,-1\r\n");
        story->machine.files.Put("C:\\Share\\KAZShared.ini", "Ann\r\n");
        story->machine.files.Put(Data("Events.xml"),
                                 FileOf({Anns(OneOff("000001", "Tea", story->Today())),
                                         Anns(OneOff("000002", "Walk", story->Today(4))),
                                         Anns(Daily("000003", "Bread", story->Today()))}));
        story->machine.files.Put(Data("Expired.xml"), FileOf({}));
        story->machine.files.Put(Data("tasklist.xml"), "");
        Start();
    }
    static clsEvent Anns(clsEvent event) {
        event.Owner("Ann");
        return event;
    }
    void Start() {
        story->Start().ShowMain();
        story->Advance(40);
    }
    FakeWindow& Main() { return *story->Main(); }
    std::set<std::string> Shown() {
        const auto rows = Main().Report(IDC_ListEvents).Column(kEventColumn);
        return {rows.begin(), rows.end()};
    }
    // Each with the days until it is due, "*" when it is shared and "E" when it has expired.
    std::set<std::string> OnDisk() {
        std::set<std::string> found;
        FakePlatform reader;
        Application app(reader.Services(story->machine.files));
        for (const char* name : {"Events.xml", "Expired.xml"}) {
            clsDbXml database(app.Storage());
            database.LoadDB(Data(name));
            for (const clsEvent& event : std::as_const(database).AllEvents())
                found.insert(event.Desc() + " " + std::to_string(event.DueDate().Day() - kFirstDay) +
                             (event.SharedEvent ? "*" : "") + (name[1] == 'x' ? "E" : ""));
        }
        return found;
    }
    // The current ones of them, as the list shows them.
    static std::set<std::string> NamesOf(const std::set<std::string>& events) {
        std::set<std::string> names;
        for (const std::string& event : events)
            if (!event.ends_with('E')) names.insert(event.substr(0, event.find(' ')));
        return names;
    }
    std::string Bar() { return Main().ControlVisible(IDC_lblHealth) ? Main().Text(IDC_lblHealth) : ""; }
    // One notice after the other.
    std::string Bars() {
        std::string text = Bar();
        for (int i = 0; i < 3; ++i) {
            Main().Click(IDC_cmdHealthNext);
            text += Bar();
        }
        return text;
    }
    void Select(const std::string& name) {
        const auto rows = Main().Report(IDC_ListEvents).Column(kEventColumn);
        const auto at = std::find(rows.begin(), rows.end(), name);
        Main().Report(IDC_ListEvents).UserSelects({static_cast<int>(at - rows.begin())});
    }
    void Type(const std::string& name) {
        story->machine.windows.OnModal([name](FakeWindow& editor) {
            editor.Type(IDC_txtDesc, name);
            editor.Click(IDC_cmdSave);
        });
    }

    std::optional<Story> story;
};

// Whatever fails, and whatever the user does: it is told, it stays in memory, it is on the disk once the
// fault is over, or after a restart, and there is never less than before.
TEST_F(Unsaved, IsToldAndKeptAndOnTheDiskWhenTheFaultIsOver) {
    const struct {
        const char* name;
        std::function<void()> act;
        std::set<std::string> then;
    } deeds[] = {
        {"add",
         [&] {
             Type("Milk");
             Main().Click(IDM_ADD);
         },
         {"Tea 0", "Walk 4", "Bread 0", "Milk 0"}},
        {"edit",
         [&] {
             Select("Walk");
             Type("Run");
             Main().Click(IDM_EDIT);
         },
         {"Tea 0", "Run 4", "Bread 0"}},
        {"delete",
         [&] {
             Select("Walk");
             story->machine.dialogs.yesNo = {true};
             Main().Click(IDM_DELETE);
         },
         {"Tea 0", "Bread 0"}},
        {"push",
         [&] {
             Select("Walk");
             Main().Click(IDM_PUSH);
         },
         {"Tea 0", "Walk 5", "Bread 0"}},
        {"share",
         [&] {
             Select("Walk");
             story->machine.windows.OnModal([](FakeWindow& editor) {
                 editor.SetChecked(IDC_chkShared, true);
                 editor.Click(IDC_cmdSave);
             });
             Main().Click(IDM_SHAREWITH);
         },
         {"Tea 0", "Walk 4*", "Bread 0"}},
        {"day change",
         [&] {
             story->Jump(1);
             story->Advance(31);
         },
         {"Tea 0E", "Walk 4", "Bread 1"}},
    };
    enum class Ending { Over, Exit, Quit, SessionEnd, ShutDown };
    for (const Fault& fault : Faults())
        for (const auto& deed : deeds)
            for (const Ending ending :
                 {Ending::Over, Ending::Exit, Ending::Quit, Ending::SessionEnd, Ending::ShutDown}) {
                SCOPED_TRACE(std::string(fault.name) + ", " + deed.name + ", ending " +
                             std::to_string(static_cast<int>(ending)));
                Begin();
                fault.begin(story->machine);
                deed.act();
                const bool told = *fault.told != '\0';
                std::set<std::string> then = deed.then;
                if (fault.another) then.insert({"Other 9", "Other 9E"});
                if (told) {
                    EXPECT_THAT(Bars(), testing::AllOf(HasSubstr("not saved"), HasSubstr(fault.told)));
                    EXPECT_TRUE(Main().trayWarns);
                }
                story->Advance(31);
                EXPECT_THAT(Shown(), testing::IsSupersetOf(NamesOf(then)));

                switch (ending) {
                case Ending::Over: break;
                case Ending::Exit:
                    if (!told) break;
                    story->machine.windows.OnModal(
                        [](FakeWindow& question) { question.Click(IDC_cmdUnsavedCancel); });
                    Main().Click(IDM_EXIT);
                    EXPECT_THAT(story->host.raised, Not(Contains("ShutDownKAZ")));
                    break;
                case Ending::Quit:
                    if (!told) break;
                    story->machine.windows.OnModal([](FakeWindow& question) {
                        EXPECT_THAT(question.Text(IDC_lblUnsaved), HasSubstr("not saved"));
                        question.CloseBox();
                    });
                    Main().Click(IDM_QUIT);
                    ASSERT_NE(nullptr, story->Main());
                    break;
                case Ending::SessionEnd: Main().Raise(0, Raised::SessionEnd); [[fallthrough]];
                case Ending::ShutDown:
                    if (ending == Ending::ShutDown) story->component->ShutDown();
                    story->component.reset();
                    EXPECT_EQ(told, story->Saved("KAZ rescue.txt").find("===") != std::string::npos);
                }
                fault.end(story->machine);
                if (ending == Ending::SessionEnd || ending == Ending::ShutDown) {
                    Start();
                    if (told) {
                        EXPECT_THAT(Bar(), HasSubstr("taken over"));
                    }
                }
                story->Advance(70);
                EXPECT_EQ(NamesOf(then), Shown());
                EXPECT_EQ(then, OnDisk());
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
    const auto nothing = [](FakePlatform&) {};
    const auto shorter = [&](FakePlatform& machine) {
        stick.PutBack(machine);
        machine.files.Put(Data("Events.xml"), FileOf({Anns(Daily("000003", "Bread", DateValue(kFirstDay)))}));
    };
    const struct {
        const char* name;
        std::function<void(FakePlatform&)> begin;  // after the last tick
        std::function<void(FakePlatform&)> end;    // before the next start
        std::function<void(FakePlatform&)> later;  // before a tick of that
        const char* told;
        const char* button;  // that the user presses then
        bool rescued;
        std::set<std::string> then;
    } cases[] = {
        {"emptied", [&](FakePlatform& machine) { pull(machine), empty(machine); }, nothing, nothing, "", "",
         false, all},
        {"away, and empty when it is back", pull, empty, nothing, "3 events of a file", "OK", true, all},
        {"away, and whole when it is back", pull, [&](FakePlatform& machine) { stick.PutBack(machine); },
         nothing, "", "", true, all},
        {"away, and shorter when it is back",
         pull,
         shorter,
         nothing,
         "2 events are gone",
         "Leave it so",
         true,
         {"Bread 0"}},
        {"away for longer, and whole", pull, nothing, [&](FakePlatform& machine) { stick.PutBack(machine); },
         "", "", true, all},
        {"away for longer, and empty", pull, nothing, empty, "not in the folder", "Begin with the 3 events",
         true, all},
        {"without a byte", [](FakePlatform& machine) { machine.files.Put(Data("Events.xml"), ""); }, nothing,
         nothing, "3 events of a file", "OK", true, all},
        {"damaged", zeros, nothing, nothing, "is damaged", "Save the 3 events", true, all},
        {"damaged, and repaired", zeros, shorter, nothing, "2 events are gone", "Take them back", true, all},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        Begin();
        stick.Copy(story->machine);
        row.begin(story->machine);
        story->component->ShutDown();
        story->component.reset();
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
        EXPECT_THAT(Bars(), testing::AnyOf("", HasSubstr("taken over")));
    }
}

// A rescue in the folder that all programs of the user share belongs to one data folder.
TEST_F(Unsaved, ARescueWaitsForItsOwnDataFolder) {
    Begin();
    FakePlatform& machine = story->machine;
    const std::string local = "C:\\Local\\KAZ\\KAZ rescue";
    machine.files.fullFolder = kData;
    machine.files.At(Story::kFolder).readOnly = true;
    Type("Milk");
    Main().Click(IDM_ADD);
    story->component->ShutDown();
    story->component.reset();
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
    Type("Jam");
    Main().Click(IDM_ADD);
    story->component->ShutDown();
    story->component.reset();
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
    Type("Milk");
    Main().Click(IDM_ADD);
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
    Type("Run");
    Main().Click(IDM_ADD);
    story->component->ShutDown();
    story->component.reset();
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
            story->component->ShutDown();
            story->component.reset();
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
            Type("Milk");
            Main().Click(IDM_ADD);
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

// What another program removes can be had back, and what it saves leaves the selection with the event.
TEST_F(Unsaved, EventsThatAnotherRemovesCanBeTakenBack) {
    for (const bool back : {true, false}) {
        Begin();
        Select("Bread");
        const FakeReportList& list = Main().Report(IDC_ListEvents);
        const int row = list.Selection().at(0);
        FakePlatform& machine = story->machine;
        machine.files.Put(Data("Events.xml"), FileOf({Anns(Daily("000003", "Bread", story->Today())),
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

TEST_F(Unsaved, TheSettingsAndTheTasksHaveTheSamePromise) {
    std::vector<Fault> ofSettings = Faults(Story::kFolder);
    ofSettings.resize(3);
    const std::string ini = Story::Path("Kaz.ini");
    const auto nothing = [](FakePlatform&) {};
    const auto stick = std::make_shared<Stick>(Story::kFolder);
    ofSettings.insert(
        ofSettings.end(),
        {{"folder gone", "is not there", [stick](FakePlatform& machine) { stick->Pull(machine); },
          [stick](FakePlatform& machine) { stick->PutBack(machine); }},
         {"vanished", "", [=](FakePlatform& machine) { machine.files.Remove(ini); }, nothing},
         {"damaged", "damaged",
          [=](FakePlatform& machine) { machine.files.Put(ini, std::string(3000, '\0')); }, nothing},
         {"cut", "",
          [=](FakePlatform& machine) {
              const std::string text = machine.files.Text(ini);
              machine.files.Put(ini, text.substr(0, text.find("\\Data") + 2));
          },
          nothing},
         {"newer on disk", "",
          [=](FakePlatform& machine) {
              machine.files.Put(ini, ReplaceAll(machine.files.Text(ini), "OWNER,", "LAYER7,Other\r\nOWNER,"));
          },
          nothing, true}});
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
                    EXPECT_THAT(Bars(), testing::AllOf(HasSubstr(deed.named), HasSubstr(fault.told)));
                }
                const std::size_t messages = machine.dialogs.messages.size();
                story->Advance(65);
                EXPECT_EQ(messages, machine.dialogs.messages.size());  // no box comes by itself
                if (restarted) {
                    story->component->ShutDown();
                    story->component.reset();
                }
                fault.end(machine);
                if (restarted) Start();
                story->Advance(65);
                EXPECT_THAT(machine.files.Text(deed.file),
                            testing::AllOf(HasSubstr(deed.entered), HasSubstr(deed.rest)));
                if (fault.another) {
                    EXPECT_THAT(machine.files.Text(deed.file), HasSubstr("Other"));
                }
                EXPECT_THAT(Bars(), Not(HasSubstr("not saved")));
                EXPECT_EQ("", story->Saved("KAZ rescue.txt"));
            }
}

}  // namespace
