#include "commands/CategoryStep.h"
#include "commands/EventCommands.h"
#include "commands/TaskStep.h"
#include "core/DataWatch.h"
#include "fakes/FakePlatform.h"
#include "fakes/Sample.h"
#include "storage/EventDigest.h"

#include <gmock/gmock.h>

#include <functional>
#include <set>

using namespace kaz;
using testing::HasSubstr;
using testing::IsSupersetOf;
using testing::SizeIs;

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

}  // namespace
