#include "core/Application.h"
#include "fakes/FakePlatform.h"
#include "fakes/Sample.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <functional>
#include <random>
#include <set>

using namespace kaz;

namespace {

constexpr const char* kFile = "C:\\KAZ\\Events.xml";

// One disk for both programs, on which one can save in the middle of a save of the other: after that has
// looked at the file, and before it writes its own or before it puts that in the place.
class SharedDisk : public MemoryFileSystem {
public:
    void Replace(const std::string& from, const std::string& to) override {
        if (const auto other = std::exchange(meanwhile, {})) other();
        MemoryFileSystem::Replace(from, to);
    }
    std::unique_ptr<OutputFile> Create(const std::string& path) override {
        if (const auto other = std::exchange(before, {})) other();
        return MemoryFileSystem::Create(path);
    }
    std::function<void()> before, meanwhile;
};

// One of two programs on the same data folder.
class Writer {
public:
    // Both draw the same codes.
    explicit Writer(MemoryFileSystem& disk) {
        app_.emplace(machine_.Services(disk));
        app_->log.NOLOGGING(true);
        app_->settings.StoreSetting("Owner", std::string("Ann"));
        database_.emplace(app_->Storage());
        database_->LoadDB(kFile);
    }
    void Add(const std::string& what) {
        database_->StoreRecord(OneOff("", what, DateValue(45000)));
        EXPECT_TRUE(database_->SaveDB());
    }
    void Delete(const std::string& what) {
        for (const clsEvent& event : database_->AllEvents())
            if (event.Desc() == what) {
                database_->DeleteRecord(std::string(event.IDCode));
                return;
            }
    }
    // True when there was something to do.
    bool Tick() {
        const bool changed = database_->DatabaseChanged() || database_->HasUnsaved();
        database_->LoadDBIfChanged(kFile);
        if (database_->HasUnsaved()) database_->SaveDB();
        return changed;
    }
    std::vector<std::string> Seen() const {
        std::vector<std::string> seen;
        for (const clsEvent& event : database_->AllEvents())
            if (!event.Deleted) seen.push_back(event.Desc());
        std::sort(seen.begin(), seen.end());
        return seen;
    }
    std::vector<std::string> OnDisk() {
        clsDbXml reader(app_->Storage());
        reader.LoadDB(kFile);
        std::vector<std::string> found = DescriptionsOf(reader.AllEvents());
        std::sort(found.begin(), found.end());
        return found;
    }

private:
    FakePlatform machine_;
    std::optional<Application> app_;
    std::optional<clsDbXml> database_;
};

}  // namespace

// Nothing is locked, so a save can hide another one. In the end each event is there that was added, once, and
// none that was deleted.
TEST(TwoWriters, LoseNothingOfEachOther) {
    // A second's worth; KAZ_STEPS=10000 for the long run.
    const char* wanted = std::getenv("KAZ_STEPS");
    const int steps = wanted ? std::atoi(wanted) : 1000;
    SharedDisk disk;
    disk.Put(kFile, FileOf({}));
    Writer first(disk), second(disk);
    const std::array writers{&first, &second};
    std::mt19937 random(20260302);
    std::vector<std::string> added;  // those that both have had the time to see may be deleted
    std::size_t deleted = 0;
    int hidden = 0;
    const auto work = [&](Writer& writer) {
        if (added.size() - deleted > 40)
            writer.Delete(added[deleted++]);
        else
            writer.Add(added.emplace_back("Event " + std::to_string(added.size())));
    };
    for (int step = 0; step < steps; ++step) {
        const std::size_t who = random() % 2;
        if (random() % 4 == 0) {
            disk.meanwhile = [&] {
                ++hidden;
                work(*writers[1 - who]);
            };
        }
        if (random() % 3 == 0)
            writers[who]->Tick();
        else
            work(*writers[who]);
        disk.meanwhile = {};
    }
    int rounds = 0;
    for (int quiet = 0; quiet < 2 && rounds < 20; ++rounds)
        quiet = writers[static_cast<std::size_t>(rounds % 2)]->Tick() ? 0 : quiet + 1;
    EXPECT_LT(rounds, 20);
    EXPECT_GT(hidden, steps / 10);
    std::vector<std::string> expected(added.begin() + static_cast<std::ptrdiff_t>(deleted), added.end());
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(first.OnDisk(), expected);
    EXPECT_EQ(first.Seen(), expected);
    EXPECT_EQ(second.Seen(), expected);
    EXPECT_EQ(disk.OpenFiles(), 0);
}

// What one adds the other deletes at once, before either knows that its save
// has stayed: that comes to an end.
TEST(TwoWriters, ComeToAnEndWhenTheyDisagree) {
    SharedDisk disk;
    disk.Put(kFile, FileOf({}));
    Writer first(disk), second(disk);
    const std::array writers{&first, &second};
    first.Add("Now");
    second.Delete("Now");
    second.Add("Other");
    second.Delete("Now");
    int saves = disk.written;
    for (int round = 0; round < 20; ++round)
        writers[static_cast<std::size_t>(round % 2)]->Tick();
    saves = disk.written - saves;
    EXPECT_LT(saves, 12);
    EXPECT_EQ(first.Seen(), (std::vector<std::string>{"Other"}));
    EXPECT_EQ(second.Seen(), first.Seen());
}

TEST(TwoWriters, WhoJoinAtOnceAreBothInTheListOfUsers) {
    SharedDisk disk;
    disk.Put("C:\\Share\\KAZShared.ini", "Ann\r\nBob\r\n");
    FakePlatform machine;
    Application app(machine.Services());
    SharedFolder folder(disk, "C:\\Share", app.log);
    disk.before = [&] { folder.RemoveUsers({"Ann"}); };
    folder.AddUser("Cleo");
    EXPECT_THAT(folder.Users(), testing::ElementsAre("Bob", "Cleo"));
}

// An event that is different in a copy stays what it is until the user has chosen.
TEST(TwoWriters, AnEventThatAConflictCopyHasOtherwiseIsTheUsersChoice) {
    const std::string name = "Events.sync-conflict-20230315-090000-ABC.xml";
    const DateValue day(45000);
    const struct {
        std::vector<int> buttons;  // for the lost one, and then for "B" and "A"
        bool changesMeanwhile;
        std::vector<std::string> then;
    } cases[] = {
        {{0, 0, 0}, false, {"Mine 1", "Swim 0", "New 0", "B2 0", "A 3"}},
        {{1, 1, 1}, false, {"A 0", "B 0", "Mine 1", "Swim 0"}},
        {{1, 2, 1}, false, {"A 0", "B 0", "Mine 1", "Swim 0", "B2 0"}},
        // The answer was for what was shown, so it is asked for again.
        {{1, 0, 1, 0}, true, {"B3 0", "Mine 1", "Swim 0", "A 3"}},
    };
    for (const auto& [buttons, changesMeanwhile, then] : cases) {
        SCOPED_TRACE(testing::PrintToString(buttons));
        FakePlatform machine;
        machine.files.Put(kFile,
                          FileOf({OneOff("000001", "A", day), OneOff("000002", "B", day),
                                  OneOff("000003", "Mine", day.PlusDays(1)), Daily("000004", "Swim", day)}));
        machine.files.Put("C:\\KAZ\\" + name,
                          FileOf({OneOff("000001", "A", day.PlusDays(3)), OneOff("000002", "B2", day),
                                  Daily("000004", "Swim", day.PlusDays(1)), OneOff("000005", "New", day)}));
        Application app(machine.Services());
        app.settings.StoreSetting("DataPath", std::string("C:\\KAZ"));
        app.events = std::make_unique<clsDbXml>(app.Storage());
        app.expired = std::make_unique<clsDbXml>(app.Storage());
        app.events->LoadDB(kFile);
        app.conflictCopies.Look();
        for (std::size_t i = 0; i < buttons.size(); ++i) {
            const Health::Notice* notice = app.health.Find("Conflict copy " + name);
            ASSERT_TRUE(notice);
            EXPECT_THAT(notice->text, testing::HasSubstr(i == 0 ? "\"New\"" : "is different in"));
            if (changesMeanwhile && i == 1) {
                Changing(*app.events)[1].Desc("B3");
                app.events->SaveDB();
            }
            const auto press = notice->actions.at(static_cast<std::size_t>(buttons[i])).run;
            press();
        }
        EXPECT_TRUE(app.health.Notices().empty());
        clsDbXml reader(app.Storage());
        reader.LoadDB(kFile);
        std::vector<std::string> events;
        for (const clsEvent& event : reader.AllEvents())
            events.push_back(event.Desc() + " " + std::to_string(event.DueDate().Day() - day.Day()));
        EXPECT_THAT(events, testing::UnorderedElementsAreArray(then));
        app.conflictCopies.Look();
        EXPECT_TRUE(app.health.Notices().empty());
    }
}

// Of a copy that a synchronising program leaves, the user is offered what is only there, once.
TEST(TwoWriters, AConflictCopyIsOfferedOnce) {
    const std::array<std::string, 2> names{"Events (Ann's conflicted copy 2023-03-15).xml",
                                           "events.sync-conflict-20230315-090000-ABC.xml"};
    const clsEvent both = OneOff("000001", "Both", DateValue(45000));
    FakePlatform machine;
    machine.files.Put(kFile, FileOf({both}));
    machine.files.Put("C:\\KAZ\\Events of others.xml", FileOf({OneOff("000003", "No", {})}));
    for (const std::string& name : names)
        machine.files.Put("C:\\KAZ\\" + name, FileOf({both, OneOff("000002", name, DateValue(45000))}));
    Application app(machine.Services());
    app.settings.StoreSetting("DataPath", std::string("C:\\KAZ"));
    app.events = std::make_unique<clsDbXml>(app.Storage());
    app.expired = std::make_unique<clsDbXml>(app.Storage());
    app.events->LoadDB(kFile);
    app.conflictCopies.Look();
    app.conflictCopies.Look();
    EXPECT_EQ(app.health.Notices().size(), 2U);
    for (const std::string& name : names) {
        const Health::Notice* notice = app.health.Find("Conflict copy " + name);
        ASSERT_TRUE(notice);
        const auto take = notice->actions[0].run;
        take();
    }
    app.conflictCopies.Look();
    EXPECT_TRUE(app.health.Notices().empty());
    clsDbXml reader(app.Storage());
    reader.LoadDB(kFile);
    EXPECT_THAT(DescriptionsOf(reader.AllEvents()), testing::ElementsAre("Both", names[0], names[1]));
}
