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
    const char* told;  // in the bar
    std::function<void(FakePlatform&)> begin;
    std::function<void(FakePlatform&)> end;
};

constexpr char kData[] = "D:\\Data";

std::string Data(const std::string& name) { return std::string(kData) + "\\" + name; }

void MarkFiles(FakePlatform& machine, void (*mark)(MemoryFileSystem::Node&)) {
    for (const std::string& file : machine.files.Files())
        if (file.starts_with(kData)) mark(machine.files.At(file));
}

// What a stick takes along.
class Stick {
public:
    void Pull(FakePlatform& machine) {
        for (const std::string& file : machine.files.Files())
            if (file.starts_with(kData)) {
                texts_[file] = machine.files.Text(file);
                machine.files.Remove(file);
            }
        machine.files.Remove(kData);
    }
    void PutBack(FakePlatform& machine) {
        for (const auto& [file, text] : texts_)
            machine.files.Put(file, text);
        texts_.clear();
    }

private:
    std::map<std::string, std::string> texts_;
};

class Unsaved : public testing::Test {
protected:
    static std::vector<Fault> Faults() {
        const auto stick = std::make_shared<Stick>();
        return {
            {"disk full", "D: is full", [](FakePlatform& machine) { machine.files.fullFolder = kData; },
             [](FakePlatform& machine) { machine.files.fullFolder.clear(); }},
            {"read-only file", "is read-only",
             [](FakePlatform& machine) { MarkFiles(machine, [](auto& node) { node.readOnly = true; }); },
             [](FakePlatform& machine) { MarkFiles(machine, [](auto& node) { node.readOnly = false; }); }},
            {"locked", "nother program holds",
             [](FakePlatform& machine) { MarkFiles(machine, [](auto& node) { node.locked = true; }); },
             [](FakePlatform& machine) { MarkFiles(machine, [](auto& node) { node.locked = false; }); }},
            {"folder gone", "is not there", [stick](FakePlatform& machine) { stick->Pull(machine); },
             [stick](FakePlatform& machine) { stick->PutBack(machine); }}};
    }

    // The sound that is missing would be told at every start.
    void Begin() {
        story.emplace();
        story->machine.files.CreateFolder(kData);
        story->machine.files.Put(Story::Path("Kaz.ini"),
                                 "OWNER,Single\r\nDATAPATH,D:\\Data\r\nNOAUTOBACKUPS,-1\r\n");
        story->machine.files.Put(Data("Events.xml"), FileOf({OneOff("000001", "Tea", story->Today(3)),
                                                             OneOff("000002", "Walk", story->Today(4)),
                                                             OneOff("000003", "Bread", story->Today(5))}));
        story->machine.files.Put(Data("Expired.xml"), FileOf({}));
        story->machine.files.Put(Data("tasklist.xml"), "");
        Start();
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
    std::set<std::string> OnDisk() {
        std::set<std::string> found;
        const std::string text = story->machine.files.Text(Data("Events.xml"));
        for (const char* name : {"Tea", "Walk", "Bread", "Milk", "Run"})
            if (text.find(std::string(">") + name + "<") != std::string::npos) found.insert(name);
        return found;
    }
    std::string Bar() { return Main().ControlVisible(IDC_lblHealth) ? Main().Text(IDC_lblHealth) : ""; }
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
         {"Tea", "Walk", "Bread", "Milk"}},
        {"edit",
         [&] {
             Select("Walk");
             Type("Run");
             Main().Click(IDM_EDIT);
         },
         {"Tea", "Run", "Bread"}},
        {"delete",
         [&] {
             Select("Walk");
             story->machine.dialogs.yesNo = {true};
             Main().Click(IDM_DELETE);
         },
         {"Tea", "Bread"}},
        {"push",
         [&] {
             Select("Walk");
             Main().Click(IDM_PUSH);
         },
         {"Tea", "Walk", "Bread"}},
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
                EXPECT_EQ(deed.then, Shown());
                EXPECT_THAT(Bar(), testing::AllOf(HasSubstr("not saved"), HasSubstr(fault.told)));
                EXPECT_TRUE(Main().trayWarns);
                story->Advance(31);
                EXPECT_EQ(deed.then, Shown());

                switch (ending) {
                case Ending::Over: break;
                case Ending::Exit:
                    story->machine.windows.OnModal(
                        [](FakeWindow& question) { question.Click(IDC_cmdUnsavedCancel); });
                    Main().Click(IDM_EXIT);
                    EXPECT_THAT(story->host.raised, Not(Contains("ShutDownKAZ")));
                    break;
                case Ending::Quit:
                    story->machine.windows.OnModal([](FakeWindow& question) {
                        EXPECT_THAT(question.Text(IDC_lblUnsaved), HasSubstr("not saved"));
                        question.CloseBox();
                    });
                    Main().Click(IDM_QUIT);
                    EXPECT_NE(nullptr, story->Main());
                    break;
                case Ending::SessionEnd: Main().Raise(0, Raised::SessionEnd); [[fallthrough]];
                case Ending::ShutDown:
                    if (ending == Ending::ShutDown) story->component->ShutDown();
                    story->component.reset();
                    EXPECT_THAT(story->Saved("KAZ rescue.txt"), HasSubstr("==="));
                }
                fault.end(story->machine);
                if (ending == Ending::SessionEnd || ending == Ending::ShutDown) {
                    Start();
                    EXPECT_THAT(Bar(), HasSubstr("taken over"));
                }
                story->Advance(70);
                EXPECT_EQ(deed.then, Shown());
                EXPECT_EQ(deed.then, OnDisk());
                EXPECT_THAT(Bar(), Not(HasSubstr("not saved")));
                EXPECT_EQ("", story->Saved("KAZ rescue.txt"));
            }
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
    EXPECT_THAT(OnDisk(), Contains("Run"));
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
        std::set<std::string> whole{"Tea", "Walk", "Bread"};
        if (restarted) whole.insert("Milk");
        EXPECT_EQ(whole, Shown());
        EXPECT_EQ(whole, OnDisk());
        EXPECT_THAT(Bar(), Not(HasSubstr("damaged")));
        const std::vector<std::string> files = machine.files.Files();
        EXPECT_EQ(restarted ? 2 : 1, std::count_if(files.begin(), files.end(), [](const std::string& file) {
                      return file.find("(damaged, ") != std::string::npos;
                  }));
    }
}

TEST_F(Unsaved, TheSettingsAndTheTasksHaveTheSamePromise) {
    Begin();
    FakePlatform& machine = story->machine;
    machine.files.At(Story::Path("Kaz.ini")).readOnly = true;
    machine.windows.OnModal([](FakeWindow& categories) {
        categories.Type(IDC_txtLayer + 3, "Garden");
        categories.Click(IDC_cmdAccept);
    });
    Main().Click(IDM_EDITLAYERS);
    EXPECT_THAT(Bar(), testing::AllOf(HasSubstr("the settings"), HasSubstr("read-only")));
    const std::size_t messages = machine.dialogs.messages.size();
    story->Advance(65);
    EXPECT_EQ(messages, machine.dialogs.messages.size());  // no box comes by itself
    machine.files.At(Story::Path("Kaz.ini")).readOnly = false;
    story->Advance(31);
    EXPECT_THAT(story->Saved("Kaz.ini"), HasSubstr("Garden"));
    EXPECT_EQ("", Bar());

    Faults().front().begin(machine);
    Main().Click(IDM_TASKLIST);
    machine.dialogs.inputs = {"Paint the fence"};
    machine.windows.Newest(IDD_TASKS)->Click(IDC_cmd_add);
    EXPECT_THAT(Bar(), HasSubstr("the task list"));
    story->component->ShutDown();
    story->component.reset();
    Faults().front().end(machine);
    Start();
    story->Advance(31);
    EXPECT_THAT(machine.files.Text(Data("tasklist.xml")), HasSubstr("Paint the fence"));
    EXPECT_EQ("", story->Saved("KAZ rescue.txt"));
}

}  // namespace
