#include "commands/EventCommands.h"
#include "fakes/FakePlatform.h"
#include "fakes/Matchers.h"
#include "fakes/Sample.h"
#include "model/MonthGrid.h"
#include "storage/SideExtras.h"
#include "story/Story.h"
#include "ui/list/EventRows.h"

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

namespace {

// Ann or Bob, who work on one disk; each look is a program of its own.
class Look {
public:
    Look(MemoryFileSystem& disk, const std::string& name, DateValue now) : folder_("C:\\" + name) {
        disk.Put(folder_ + "\\Kaz.ini", "OWNER," + name +
                                            "\r\nNETWORKED,-1\r\nNOAUTOBACKUPS,-1\r\nDATAPATH," + folder_ +
                                            "\r\nSHAREDDATAPATH,C:\\Share\r\n");
        machine_.clock.now = now;
        component_.emplace(machine_.Services(disk), MakeMainWindow, host_);
        component_->Startup(folder_);
        component_->ShowMain();
        for (int second = 0; second < 45; ++second) {
            machine_.clock.now = DateValue::FromSerial(machine_.clock.now.Serial() + 1.0 / 86400);
            machine_.windows.Advance(1000);
        }
        component_->ScanEvents();
    }
    ~Look() { component_->ShutDown(); }

    // "T" in TODAY!, "A" in ALARM!, which is closed then, "H" in the host's list of the day.
    std::string Told() {
        std::string told;
        for (const char* heading : {"TODAY!", "ALARM!"}) {
            FakeWindow* window = machine_.windows.WithCaption(heading);
            if (!window || !window->IsVisible()) continue;
            for (const std::string& line : window->Items(IDC_lstReminders))
                if (line.find("Te") != std::string::npos) told += heading[0];
            window->Click(IDC_cmdContinue);
        }
        for (const std::string& line : host_.todays)
            if (line.find("Te") != std::string::npos) told += "H";
        return told;
    }
    std::string DueInList() {
        return ReplaceAll(testing::PrintToString(Main().Report(IDC_ListEvents).Column(kDateColumn)), "\"",
                          "");
    }
    // The days of the month window that it stands on.
    std::string Month() {
        Main().Click(IDM_MONTHVIEW);
        FakeWindow* window = machine_.windows.Newest(IDD_MONTH);
        std::string days;
        for (int box = 0; box < MonthGrid::kBoxes; ++box)
            if (!window->Grid(IDC_Calbox).Lines(box).empty()) days += " " + std::to_string(box - 2);
        return days;
    }

private:
    FakeWindow& Main() { return *machine_.windows.Newest(IDD_MAIN); }

    std::string folder_;
    FakePlatform machine_;
    RecordingHost host_;
    std::optional<clsComponent> component_;
};

}  // namespace

// 15 March 2023 is a Wednesday; Tea is on Fridays at ten, the 17th, 24th and 31st.
TEST(Skip, EverybodyIsToldOfWhatIsLeftAfterRestartsAndAnOlderProgramToo) {
    const auto extras = [](std::vector<std::int32_t> skipped, int last, std::vector<SecondWarning> warnings) {
        EventExtras all;
        for (const int day : skipped)
            all.Skip(DateValue::FromCivil(2023, 3, day));
        if (last > 0) all.lastDay = DateValue::FromCivil(2023, 3, last);
        all.warnings = std::move(warnings);
        return all;
    };
    const struct {
        const char* what;
        EventExtras extras;
        const char *replace, *by;  // in the file, by a program that knows nothing of it
        const char *list, *month, *ann, *bob;
    } cases[] = {
        {"as it is", {}, "", "", "{ 03/17 }", " 17 24 31", " 17:TAH 24:TAH 31:TAH", " 17:A 24:A 31:A"},
        {"skipped", extras({24}, 0, {}), "", "", "{ 03/17 }", " 17 31", " 17:TAH 31:TAH", " 17:A 31:A"},
        {"its due date skipped", extras({17}, 0, {}), "", "", "{ 03/24 }", " 24 31", " 24:TAH 31:TAH",
         " 24:A 31:A"},
        {"ended", extras({}, 30, {}), "", "", "{ 03/17 }", " 17 24", " 17:TAH 24:TAH", " 17:A 24:A"},
        {"ended before its due date", extras({}, 16, {}), "", "", "{}", "", "", ""},
        {"the evening before too", extras({24}, 0, {{0, 1, DateValue::FromTime(18, 0)}}), "", "", "{ 03/17 }",
         " 17 31", " 16pm:A 17:TAH 30pm:A 31:TAH", " 16pm:A 17:A 30pm:A 31:A"},
        {"an older program saves it as another", extras({24}, 0, {}), ">Tea<", ">Tee<", "{ 03/17 }",
         " 17 24 31", " 17:TAH 24:TAH 31:TAH", " 17:A 24:A 31:A"},
        {"an older program saves it with the same text", extras({24}, 0, {}), "<DaysWarning>0",
         "<DaysWarning>1", "{ 03/17 }", " 17 31", " 17:TAH 31:TAH", " 17:A 31:A"},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(one.what);
        MemoryFileSystem disk;
        clsEvent tea =
            WithAlarm(SharedBy("Ann", Daily("000001", "Tea", DateValue::FromCivil(2023, 3, 17), 7)), 10, 0);
        tea.Extras(one.extras);
        const std::string file = FileOf({tea});
        ASSERT_THAT(file, HasSubstr(one.replace));
        disk.Put("C:\\Share\\KAZShared.ini", "Ann\r\nBob\r\n");
        disk.Put("C:\\Bob\\Events.xml", FileOf({}));
        disk.Put("C:\\Ann\\Events.xml", *one.replace ? ReplaceAll(file, one.replace, one.by) : file);
        const std::vector<SideLine> lines = ExtraLines(tea, kOwnEvents);
        WriteSideLines(disk, "C:\\Ann\\Events.side", {lines.begin(), lines.end()});
        std::string annTold, bobTold, list, month;
        for (int day = 15; day <= 31; ++day)
            for (const int hour : {10, 18}) {
                const DateValue now = DateValue(DateValue::FromCivil(2023, 3, day).Day(), hour * 3600 - 30);
                const std::string when = " " + std::to_string(day) + (hour == 18 ? "pm:" : ":");
                for (const bool isAnn : {true, false}) {
                    Look look(disk, isAnn ? "Ann" : "Bob", now);
                    if (isAnn && list.empty()) {
                        list = look.DueInList();
                        month = look.Month();
                    }
                    std::string told = look.Told();
                    if (hour == 18) told = ReplaceAll(ReplaceAll(told, "T", ""), "H", "");
                    if (!isAnn) told = ReplaceAll(told, "H", "");
                    if (!told.empty()) (isAnn ? annTold : bobTold) += when + told;
                }
            }
        EXPECT_EQ(one.list, list);
        EXPECT_EQ(one.month, month);
        EXPECT_EQ(one.ann, annTold);
        EXPECT_EQ(one.bob, bobTold);
    }
}
