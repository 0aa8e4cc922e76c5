#include "commands/EventCommands.h"
#include "fakes/FakePlatform.h"
#include "fakes/Matchers.h"
#include "fakes/Sample.h"

#include <functional>

using namespace kaz;

namespace {

// What Ann's program has on the disk, seen by one that has just started.
struct AnnsProgram {
    explicit AnnsProgram(FakePlatform& machine) : app(machine.Services()) {
        app.settings.StoreSetting("Owner", std::string("Ann"));
        app.settings.StoreSetting("Networked", true);
        app.layers.LoadLayers();
        app.MakeDatabases();
        app.sideFile.Open("C:\\KAZ\\Events.side");
        app.events->LoadDB("C:\\KAZ\\Events.xml");
        app.expired->LoadDB("C:\\KAZ\\Expired.xml");
    }
    // "Tea +9 -2": due in nine days, and not in two; "once" and "over" say what it has become.
    std::string State() const {
        std::string state;
        for (const clsDbXml* database : {app.events.get(), app.expired.get()})
            for (const clsEvent& event : database->AllEvents()) {
                if (event.Deleted || event.Desc() != "Tea") continue;
                const int today = app.platform.clock.Today().Day();
                state +=
                    (state.empty() ? "Tea +" : ", Tea +") + std::to_string(event.DueDate().Day() - today);
                for (const int day : event.Extras().skipped)
                    state += " -" + std::to_string(day - today);
                if (event.Extras().always) state += "!";
                if (!event.Recurring()) state += " once";
                if (database == app.expired.get()) state += " over";
            }
        return state;
    }
    Application app;
};

}  // namespace

TEST(Skip, LeavesOutOrMovesOneDayAndEachIsTakenBackInOneStep) {
    using Command = std::optional<std::string> (EventCommands::*)(const EventRef&, std::optional<DateValue>);
    constexpr Command kSkip = &EventCommands::Skip;
    constexpr Command kMove = &EventCommands::Move;
    constexpr int kDue = -1;
    const struct {
        const char* what;
        Command command;
        const char* event;
        int day;
        std::vector<int> to;
        const char* after;
        const char* told;
    } cases[] = {
        {"the due date", kSkip, "tea", kDue, {}, "Tea +9 -2!", ""},
        {"a later day", kSkip, "tea", 16, {}, "Tea +2 -16!", ""},
        {"no day of it", kSkip, "tea", 3, {}, "Tea +2!", "\"Tea\" does not fall on Sat Mar 18 any more."},
        {"a day of before", kSkip, "tea", -5, {}, "Tea +2!", "Fri Mar 10 has passed."},
        {"the last of a series", kSkip, "last", kDue, {}, "Tea +2 -2! over", ""},
        {"the only one that is left", kSkip, "left", kDue, {}, "Tea +2 -2 -9! over", ""},
        {"one that was pushed", kSkip, "pushed", kDue, {}, "Tea +9 -3!", ""},
        {"a move", kMove, "tea", kDue, {4}, "Tea +4! once, Tea +9 -2!", ""},
        {"a later one's move to a day of before",
         kMove,
         "tea",
         9,
         {-1, 11},
         "Tea +11! once, Tea +2 -9!",
         "That day has passed. Please choose today or a later one."},
        {"a move of the last one", kMove, "last", kDue, {500}, "Tea +500! once, Tea +2 -2! over", ""},
        {"a move to nowhere", kMove, "tea", kDue, {}, "Tea +2!", ""},
        {"one that is shown once",
         kSkip,
         "once",
         kDue,
         {},
         "Tea +2! once",
         "This event is shown once. Push puts it off by a day, and Edit gives it another date."},
        {"Bob's",
         kMove,
         "bob",
         kDue,
         {4},
         "Tea +2!",
         "You're not the owner of this event.  Only Bob can move it"},
        {"shared by Bob",
         kSkip,
         "shared",
         kDue,
         {},
         "Tea +2!",
         "You can't skip a shared item belonging to someone else"},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(one.what);
        FakePlatform machine;
        const DateValue today = machine.clock.Today();
        const std::string kind = one.event;
        clsEvent tea =
            WithAlarm(Of(kind == "bob" ? "Bob" : "Ann", Daily("000001", "Tea", today.PlusDays(2), 7)), 10, 0);
        tea.Recurring(kind != "once");
        machine.files.Put("C:\\KAZ\\Events.xml",
                          FileOf({tea, Of("Ann", OneOff("000002", "Dentist", today))}));
        machine.files.Put("C:\\KAZ\\Expired.xml", FileOf({}));
        AnnsProgram ann(machine);
        EventExtras extras;
        extras.always = true;
        if (kind == "last" || kind == "left") extras.lastDay = today.PlusDays(kind == "last" ? 5 : 12);
        if (kind == "left") extras.Skip(today.PlusDays(9));
        tea.Extras(extras);
        ann.app.events->StoreRecord(tea);
        ann.app.events->SaveDB();
        if (kind == "pushed") EventCommands(ann.app, {}).Push({"000001", EventSource::Local, EventType::Own});
        const std::string before = ann.State();
        const OccurrenceRef asleep = OwnOccurrence(tea, today.PlusDays(2));
        ann.app.outcomes.Sleep({asleep}, today.PlusDays(3));

        for (const int to : one.to)
            machine.dialogs.dates.emplace_back(today.PlusDays(to));
        const EventRef event{"000001", kind == "shared" ? EventSource::Shared : EventSource::Local,
                             EventType::Own};
        (EventCommands(ann.app, {}).*
         one.command)(event, one.day == kDue ? std::nullopt : std::optional(today.PlusDays(one.day)));
        EXPECT_THAT(machine.dialogs.messages, *one.told
                                                  ? ElementsAre(one.told)
                                                  : testing::Matcher<std::vector<std::string>>(IsEmpty()));
        const std::string after = ann.State();
        EXPECT_EQ(one.after, after);
        EXPECT_EQ(after, AnnsProgram(machine).State());
        const bool isLeft = before != after && one.day == kDue && kind != "pushed";
        EXPECT_EQ(!isLeft, ann.app.outcomes.IsAsleep(asleep));
        if (before == after) continue;
        EXPECT_EQ(std::string(one.command == kSkip ? "skip" : "move") + " of \"Tea\"",
                  ann.app.undo.Next(UndoHistory::Way::Back)->Name());
        for (const auto& [way, state] : {std::pair{UndoHistory::Way::Back, before},
                                         {UndoHistory::Way::Again, after},
                                         {UndoHistory::Way::Back, before}}) {
            ann.app.undo.Take(way);
            EXPECT_EQ(state, AnnsProgram(machine).State());
        }
        EXPECT_THAT(ann.State(), before);
    }
}
