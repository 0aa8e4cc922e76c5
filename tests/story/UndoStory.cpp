#include "commands/CategoryStep.h"
#include "commands/EventCommands.h"
#include "commands/TaskStep.h"
#include "core/DataWatch.h"
#include "fakes/FakePlatform.h"
#include "fakes/Matchers.h"
#include "fakes/Sample.h"
#include "storage/EventDigest.h"

#include <functional>
#include <set>

using namespace kaz;
using testing::IsSupersetOf;

namespace {

struct LargeStep : UndoStep {
    LargeStep() : UndoStep(UndoPlace::Events, "large") {}
    UndoOutcome Turn() override { return {true, "", {}, -1, {}}; }
    std::size_t Size() const override { return UndoHistory::kMostBytes / 2; }
};

// Ann's events and tasks, which another program works on too.
class UndoTest : public testing::Test {
protected:
    using State = std::multiset<std::string>;
    static constexpr char kEvents[] = "C:\\KAZ\\Events.xml";
    static constexpr char kExpired[] = "C:\\KAZ\\Expired.xml";

    UndoTest() {
        app.runtimePath = "C:\\KAZ";
        app.settingsFileName = "C:\\KAZ\\Kaz.ini";
        app.settings.StoreSetting("Owner", std::string("Ann"));
        app.layers.LoadLayers();
        app.MakeDatabases();
        machine.files.Put(kEvents, FileOf({Loud(Ours("000001", 1), "C:\\bell.wav"), Of("Ann", Weekly()),
                                           SharedBy("Ann", Ours("000004", 3), "Bob\r\n")}));
        machine.files.Put(kExpired, FileOf({Ours("000003", -2), Ours("000005", -3), Ours("000006", -4)}));
        app.events->LoadDB(kEvents);
        app.expired->LoadDB(kExpired);
        app.dataWatch->Tasks()->Refresh();
    }
    clsEvent Ours(const std::string& code, int days) {
        return Of("Ann", OneOff(code, "Event " + code, machine.clock.Today().PlusDays(days)));
    }
    clsEvent Weekly() { return Daily("000002", "Event 000002", machine.clock.Today().PlusDays(2), 7); }
    static EventRef Ref(const std::string& code, EventSource source = EventSource::Local) {
        return {code, source, EventType::Own};
    }
    // What is on the disk.
    State Saved() {
        State state;
        for (const char* file : {kEvents, kExpired}) {
            clsDbXml read(app.Storage());
            read.LoadDB(file);
            for (const clsEvent& event : read.AllEvents())
                state.insert(file + (" " + event.IDCode) + " " + event.Desc() + " " +
                             std::to_string(event.DueDate().Day()) + " " +
                             std::to_string(EventDigest(event).words));
        }
        for (const std::string& task : app.UserTasks().Load())
            state.insert(task);
        state.insert(app.layers.Layer(3));
        return state;
    }
    void Elsewhere(const char* file, const std::function<void(clsDbXml&)>& work) {
        machine.clock.AdvanceMinutes(1);
        clsDbXml other(app.Storage());
        other.LoadDB(file);
        work(other);
        ASSERT_TRUE(other.SaveDB());
    }
    UndoOutcome Undo() { return app.undo.Take(UndoHistory::Way::Back); }
    UndoOutcome Redo() { return app.undo.Take(UndoHistory::Way::Again); }
    void Delete(const std::vector<EventRef>& events) {
        machine.dialogs.yesNo = {true};
        commands.Delete(events, "");
    }
    // As the window of the tasks does it.
    void ChangeTask(int position, const char* before, const char* after) {
        const auto tasks = app.dataWatch->Tasks();
        tasks->Refresh();
        if (!before) tasks->Insert(position, after);
        if (before && after) tasks->Change(position, after);
        if (!after) tasks->Delete(position);
        const auto text = [](const char* task) {
            return task ? std::optional<std::string>(task) : std::nullopt;
        };
        TaskStep::Record(app, {position, text(before), text(after)});
        app.dataWatch->SaveTasks(tasks);
    }

    FakePlatform machine;
    Application app{machine.Services()};
    EventCommands commands{app, [](clsEvent& event, EditMode mode) {
                               if (mode == EditMode::SharingOnly)
                                   event.SharedEvent = !event.SharedEvent;
                               else
                                   event.Desc("Typed");
                               event.Owner("Ann");
                               return true;
                           }};
};

TEST_F(UndoTest, EveryCommandIsTakenBackAndAgainWhateverAnotherProgramHasAdded) {
    CategoryStep::CategoryNames names = CategoryStep::NamesOf(app.layers);
    names[3] = "Garden";
    const struct {
        const char* name;
        std::function<void()> run;
    } kCommands[] = {
        {"addition of \"Typed\"", [&] { commands.Add(); }},
        {"change of \"Typed\"", [&] { commands.Edit(Ref("000001")); }},
        {"change of \"Typed\"", [&] { commands.Edit(Ref("000003", EventSource::Expired)); }},
        {"push of \"Event 000002\"", [&] { commands.Push(Ref("000002")); }},
        {"push of 2 events",
         [&] {
             commands.PushAll({Ref("000001"), Ref("000005", EventSource::Expired), Ref("000002")});
         }},
        {"deletion of \"Event 000005\"", [&] { Delete({Ref("000005", EventSource::Expired)}); }},
        {"deletion of 3 events",
         [&] {
             Delete({Ref("000003"), Ref("000006", EventSource::Expired), Ref("000004")});
         }},
        {"sharing of 2 events",
         [&] {
             commands.ShareWith(Ref("000001"), {Ref("000001"), Ref("000002")});
         }},
        {"addition of the task \"Buy strings\"", [&] { ChangeTask(0, nullptr, "Buy strings"); }},
        {"change of the task \"Buy a guitar\"", [&] { ChangeTask(0, "Buy strings", "Buy a guitar"); }},
        {"deletion of the task \"Buy a guitar\"", [&] { ChangeTask(0, "Buy a guitar", nullptr); }},
        {"change of category names", [&] { CategoryStep::Rename(app, names); }},
    };
    std::vector<State> states{Saved()};
    for (const auto& command : kCommands) {
        SCOPED_TRACE(command.name);
        command.run();
        ASSERT_TRUE(app.undo.Next(UndoHistory::Way::Back));
        EXPECT_EQ(command.name, app.undo.Next(UndoHistory::Way::Back)->Name());
        const State after = Saved();
        EXPECT_NE(states.back(), after);
        EXPECT_EQ("", Undo().told);
        EXPECT_EQ(states.back(), Saved());
        EXPECT_TRUE(Redo().changed);
        EXPECT_EQ(after, Saved());
        states.push_back(after);
    }
    // All of them, from the last to the first and back, while somebody else adds an event to each file.
    const auto another = [](clsDbXml& other) {
        other.StoreRecord(OneOff("", "Bob's", DateValue(45009)), true);
    };
    for (const char* file : {kEvents, kExpired})
        Elsewhere(file, another);
    for (std::size_t step = states.size() - 1; step-- > 0;) {
        EXPECT_EQ("", Undo().told);
        EXPECT_THAT(Saved(), AllOf(IsSupersetOf(states[step]), SizeIs(states[step].size() + 2))) << step;
    }
    EXPECT_FALSE(Undo().changed);
    for (std::size_t step = 1; step < states.size(); ++step)
        EXPECT_TRUE(Redo().changed);
    EXPECT_THAT(Saved(), IsSupersetOf(states.back()));
    commands.Add();
    EXPECT_FALSE(app.undo.Next(UndoHistory::Way::Again));
}

TEST_F(UndoTest, WhatSomebodyElseHasChangedSinceIsKeptAndSaid) {
    commands.Edit(Ref("000001"));
    Delete({Ref("000002"), Ref("000004")});
    Elsewhere(kEvents, [&](clsDbXml& other) {
        clsEvent theirs = *other.ReadEvent("000001");
        theirs.Desc("Theirs");
        other.StoreRecord(theirs);
        other.StoreRecord(Ours("000002", 9));  // drew the code that became free
    });
    UndoOutcome outcome = Undo();
    EXPECT_EQ("", outcome.told);
    ASSERT_THAT(outcome.newCodes, SizeIs(1));
    const std::string now = outcome.newCodes.front().second;
    EXPECT_EQ(app.events->ReadEvent("000002")->DueDate(), machine.clock.Today().PlusDays(9));
    EXPECT_EQ(app.events->ReadEvent(now)->Period(), 7);
    outcome = Undo();
    EXPECT_THAT(outcome.told, HasSubstr("\"Typed\" has been changed or deleted"));
    EXPECT_FALSE(outcome.changed);
    EXPECT_EQ("Theirs", app.events->ReadEvent("000001")->Desc());
    // The deletion can be made again: it means the event with the new code.
    EXPECT_TRUE(Redo().changed);
    EXPECT_THAT(machine.files.Text(kEvents), Not(HasSubstr(now)));
    EXPECT_THAT(machine.files.Text(kEvents), HasSubstr("000002"));
    // One that its day has taken to the expired events is found there.
    commands.Add();
    clsEvent added = app.events->AllEvents().back();
    app.events->DeleteRecord(added.IDCode);
    app.expired->StoreRecord(added);
    app.expired->SaveDB();
    EXPECT_TRUE(Undo().changed);
    EXPECT_THAT(machine.files.Text(kExpired), Not(HasSubstr("Typed")));
}

TEST_F(UndoTest, WhatStandsBesideAnEventComesBackWithIt) {
    app.sideFile.Open("C:\\KAZ\\Events.side");
    app.outcomes.Save();
    clsEvent weekly = *app.events->ReadEvent("000002");
    EventExtras extras;
    extras.Skip(machine.clock.Today().PlusDays(9));
    weekly.Extras(extras);
    app.events->StoreRecord(weekly);
    app.events->SaveDB();
    app.outcomes.Save();
    const std::string before = machine.files.Text("C:\\KAZ\\Events.side");
    EXPECT_THAT(before, HasSubstr("2023-03-24"));
    Delete({Ref("000002")});
    for (const SideLine& line : SideFile::Lines(app.sideFile.All()))
        if (line.key.code == "000002") app.sideFile.Remove(line);  // as is done sooner or later
    app.outcomes.Save();
    Undo();
    EXPECT_EQ(before, machine.files.Text("C:\\KAZ\\Events.side"));
    EXPECT_EQ(extras, app.events->ReadEvent("000002")->Extras());
    EXPECT_THAT(machine.files.Text(app.journal.FileName()), HasSubstr("Beside skip 2023-03-24"));
    // Another computer puts the day back.
    machine.clock.AdvanceMinutes(1);
    machine.files.Put("C:\\KAZ\\Events.side", "KAZ side 1\r\nend\r\n");
    app.CatchUp();
    EXPECT_THAT(
        machine.files.Text(app.journal.FileName()),
        HasSubstr("another program, change of 000002 \"Event 000002\": Beside skip 2023-03-24 -> \r\n"));
}

TEST_F(UndoTest, AFaultAnywhereLosesNoEventAndIsTriedAgain) {
    bool struck = true;
    for (int n = 1; struck; ++n) {
        commands.Edit(Ref("000003", EventSource::Expired));  // moves to the current events
        machine.files.faults.FailAt(n, ErrorNumber::DiskFull, FaultInjector::Lasts::FromThenOn);
        Undo();
        struck = machine.files.faults.Struck();
        machine.files.faults.FailAt(0);
        EXPECT_THAT(machine.files.Text(kEvents) + machine.files.Text(kExpired), HasSubstr("000003")) << n;
        app.dataWatch->TryAgain();
        EXPECT_THAT(machine.files.Text(kExpired), HasSubstr("Event%20000003")) << n;
        if (struck) Delete({Ref("000003")});  // what had to stay behind
        ASSERT_LT(n, 100);
    }
    EXPECT_THAT(machine.files.Text(kEvents), Not(HasSubstr("Typed")));
}

TEST_F(UndoTest, TheHistoryIsBounded) {
    for (std::size_t i = 0; i <= UndoHistory::kMostSteps; ++i)
        commands.Push(Ref("000001"));
    std::size_t steps = 0;
    while (Undo().changed)
        ++steps;
    EXPECT_EQ(UndoHistory::kMostSteps, steps);
    for (int i = 0; i < 3; ++i)
        app.undo.Add(std::make_unique<LargeStep>());
    EXPECT_TRUE(Undo().changed);
    EXPECT_TRUE(Undo().changed);
    EXPECT_FALSE(Undo().changed);
}

TEST_F(UndoTest, TheJournalSaysOfEachEventWhatBecameOfItAndIsBounded) {
    const std::string file = app.journal.FileName();
    EXPECT_EQ("C:\\KAZ\\Changes_KAZ.txt", file);
    std::size_t read = 0;
    const auto lines = [&] {
        const std::string text = machine.files.Text(file).substr(read);
        read += text.size();
        return ReplaceAll(text, "2023-03-15 09:00:00, ", "");
    };
    clsEvent old = Ours("000007", -1);
    old.Desc("two\r\nlines");
    Elsewhere(kEvents, [&](clsDbXml& other) { other.StoreRecord(old); });
    machine.clock.AdvanceMinutes(-1);
    app.CatchUp();
    const std::string fields =
        "DueDate 2023-03-14; Layer 1; Owner Ann; Period 1; RecurrenceType 5; StartDate "
        "2023-03-14; File Events.xml\r\n";
    EXPECT_EQ("another program, addition of 000007 \"two lines\": " + fields, lines());
    app.MakeReminder().UpdateAllEvents();
    EXPECT_EQ("KAZ, expiry of 000007 \"two lines\": File Events.xml -> Expired.xml\r\n", lines());
    commands.Push(Ref("000001"));
    EXPECT_EQ("Ann, push of 000001 \"Event 000001\": DueDate 2023-03-16 -> 2023-03-17\r\n", lines());
    Undo();
    EXPECT_THAT(lines(), HasSubstr("Ann, undo of push of 000001 \"Event 000001\": DueDate 2023-03-17 -> "));
    Redo();
    EXPECT_THAT(lines(), HasSubstr("Ann, redo of push of "));
    commands.ShareWith(Ref("000001"), {Ref("000002")});
    EXPECT_EQ("Ann, sharing of 000001 \"Event 000001\": SharedEvent 0 -> -1\r\n"
              "Ann, sharing of 000002 \"Event 000002\": SharedEvent 0 -> -1\r\n",
              lines());
    commands.Edit(Ref("000002"));
    EXPECT_THAT(lines(),
                HasSubstr("change of 000002 \"Event 000002\": Desc \"Event 000002\" -> \"Typed\"\r\n"));
    Delete({Ref("000007", EventSource::Expired)});
    EXPECT_EQ("Ann, deletion of 000007 \"two lines\": " + ReplaceAll(fields, "Events", "Expired"), lines());

    machine.files.At(file).readOnly = true;  // stops no command
    commands.Push(Ref("000001"));
    EXPECT_EQ(app.events->ReadEvent("000001")->DueDate(), machine.clock.Today().PlusDays(3));
    EXPECT_THAT(machine.files.Text("C:\\KAZ\\log.txt"), HasSubstr("in Write of ChangeJournal"));
    machine.files.At(file).readOnly = false;
    machine.files.Put(file, std::string(ChangeJournal::kMostBytes, 'x'));
    commands.Push(Ref("000001"));
    EXPECT_EQ(ChangeJournal::kMostBytes, machine.files.Text("C:\\KAZ\\Changes_KAZ (old).txt").size());
    EXPECT_LT(machine.files.Text(file).size(), 200U);
}

}  // namespace
