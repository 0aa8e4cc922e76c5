#pragma once

#include "story/Story.h"
#include "ui/list/EventRows.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <set>

namespace kaz {

inline constexpr char kData[] = "D:\\Data";
inline constexpr int kStartDay = 45000;  // 15 March 2023

inline std::string Data(const std::string& name) { return std::string(kData) + "\\" + name; }

using OnMachine = std::function<void(FakePlatform&)>;

inline void Nothing(FakePlatform& /*machine*/) {}

// A disk that takes nothing for a while.
struct Fault {
    const char* name;
    const char* told;  // in the bar; "" when the change is saved all the same
    OnMachine begin, end;
    bool another = false;  // another program has saved
    bool same = false;     // and changed the event that the user changes
};

// What a stick takes along.
class Stick {
public:
    explicit Stick(std::string folder = kData) : folder_(std::move(folder)) {}

    void Pull(FakePlatform& machine) {
        Copy(machine);
        for (const auto& [file, text] : texts_)
            machine.files.Remove(file);
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

// A user whose changes cannot be saved, and who goes on.
class Unsaved : public testing::Test {
protected:
    static std::vector<Fault> Faults(const std::string& folder = kData) {
        const auto stick = std::make_shared<Stick>();
        const OnMachine pull = [=](FakePlatform& machine) { stick->Pull(machine); };
        const OnMachine putBack = [=](FakePlatform& machine) { stick->PutBack(machine); };
        const auto mark = [&](bool MemoryFileSystem::Node::*flag, bool value) -> OnMachine {
            return [=](FakePlatform& machine) {
                for (const std::string& file : machine.files.Files())
                    if (file.starts_with(folder)) machine.files.At(file).*flag = value;
            };
        };
        const auto fill = [](const std::string& path) -> OnMachine {
            return [=](FakePlatform& machine) { machine.files.fullFolder = path; };
        };
        using Node = MemoryFileSystem::Node;
        return {{"disk full", ": is full", fill(folder), fill("")},
                {"read-only file", "is read-only", mark(&Node::readOnly, true), mark(&Node::readOnly, false)},
                {"locked", "nother program holds", mark(&Node::locked, true), mark(&Node::locked, false)},
                {"folder gone", "is not there", pull, putBack},
                {"folder emptied", "is not there", pull,
                 [](FakePlatform& machine) { machine.files.CreateFolder(kData); }},
                {"damaged", "is damaged",
                 [=](FakePlatform& machine) {
                     pull(machine);
                     for (const char* name : {"Events.xml", "Expired.xml", "tasklist.xml"})
                         machine.files.Put(Data(name), std::string(3000, '\0'));
                 },
                 putBack},
                {"vanished", "",
                 [](FakePlatform& machine) {
                     for (const char* name : {"Events.xml", "Expired.xml", "tasklist.xml"})
                         machine.files.Remove(Data(name));
                 },
                 Nothing},
                {"newer on disk", "", WriteAsAnother, Nothing, true},
                {"newer on disk, the same event", "",
                 [](FakePlatform& machine) {
                     WriteAsAnother(machine);
                     const std::string file = Data("Events.xml");
                     machine.files.Put(file, ReplaceAll(machine.files.Text(file), "Walk", "Hike"));
                 },
                 Nothing, true, true}};
    }
    // Another program has added something to each file.
    static void WriteAsAnother(FakePlatform& machine) {
        for (const auto& [name, code] : {std::pair{"Events.xml", "000009"}, {"Expired.xml", "000008"}}) {
            std::string text = machine.files.Text(Data(name));
            EventXml::AppendBlock(text, OneOff(code, "Other", machine.clock.Today().PlusDays(9)));
            machine.files.Put(Data(name), text);
        }
        machine.files.Put(Data("tasklist.xml"), "<KAZ2><TASK><DETAILS>Other</DETAILS></TASK></KAZ2>");
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
                                 FileOf({Of("Ann", OneOff("000001", "Tea", story->Today())),
                                         Of("Ann", OneOff("000002", "Walk", story->Today(4))),
                                         Of("Ann", Daily("000003", "Bread", story->Today()))}));
        story->machine.files.Put(Data("Expired.xml"), FileOf({}));
        story->machine.files.Put(Data("tasklist.xml"), "");
        Start();
    }
    void Start() {
        story->Start().ShowMain();
        story->Advance(40);
    }
    void EndProgram() {
        story->component->ShutDown();
        story->component.reset();
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
            for (const clsEvent& event : database.AllEvents())
                found.insert(event.Desc() + " " + std::to_string(event.DueDate().Day() - kStartDay) +
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
    // What the user does next in the editor.
    void Type(const std::string& name) {
        story->machine.windows.OnModal([name](FakeWindow& editor) {
            editor.Type(IDC_txtDesc, name);
            editor.Click(IDC_cmdSave);
        });
    }
    void Add(const std::string& name) {
        Type(name);
        Main().Click(IDM_ADD);
    }

    std::optional<Story> story;
};

}  // namespace kaz
