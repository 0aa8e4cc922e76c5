#include "core/Application.h"
#include "core/Startup.h"
#include "fakes/FakePlatform.h"
#include "fakes/Matchers.h"
#include "fakes/RecordingErrors.h"
#include "fakes/Sample.h"
#include "story/Story.h"
#include "ui/FormFactory.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <random>
#include <set>

using namespace kaz;

namespace {

struct Nobody : MainWindowEvents {
    void fMain_ShutDownKAZ() override {}
    void fMain_Rescan() override {}
    void fMain_WindowClosed() override {}
};

// What its user entered, and which of its days he has dealt with; the days are found without the program's
// rules.
struct Entered {
    clsEvent event;
    DateValue from;               // its first day
    std::set<std::int32_t> done;  // answered, skipped, or known when it was entered
    std::map<std::int32_t, DateValue> asleep;

    bool FallsOn(std::int32_t day) const {
        const std::int32_t distance = day - from.Day();
        if (distance < 0 || !event.Recurring()) return distance == 0;
        if (event.RecurrenceType() == RecurEveryNDays) return distance % event.Period() == 0;
        return (event.WeekDays() & (1 << DateValue(day).WeekdayFromMonday().number)) != 0;
    }
    DateValue Moment(std::int32_t day) const {
        if (!event.AlarmSet()) return DateValue(day);
        return DateValue(day, event.DueTime().SecondOfDay()).PlusMinutes(-event.MinutesWarning());
    }
    bool IsDue(std::int32_t day, DateValue now) const {
        return event.AlarmSet() ? Moment(day) < now.ToMinute() : day < now.Day();
    }
};

// One life of the program after the other, on one disk, with a user who answers some of what he is told.
// After each step everything that fell due has to be on the screen, answered, asleep, or in what is missed.
class Lives {
public:
    explicit Lives(unsigned seed) : random_(seed) {
        for (int i = Random(1, 5); i > 0; --i)
            entered_.push_back({Draw(), {}, {}, {}});
        std::vector<clsEvent> events;
        for (Entered& one : entered_) {
            one.from = one.event.DueDate();
            events.push_back(one.event);
        }
        machine_.files.Put("C:\\KAZ\\Events.xml", FileOf(events));
        Begin();
    }

    void Live(int steps) {
        for (int i = 0; i < steps && !testing::Test::HasFailure(); ++i)
            Step();
    }

private:
    int Random(int from, int to) { return std::uniform_int_distribution(from, to)(random_); }
    DateValue Now() const { return machine_.clock.now; }
    std::string Name() { return "Event " + std::to_string(++names_); }

    clsEvent Draw() {
        const std::string code = std::to_string(100'000 + ++codes_);
        const DateValue due = Now().DateOnly().PlusDays(Random(1, 6));
        clsEvent event = OneOff(code, Name(), due);
        switch (Random(0, 3)) {
        case 0: break;
        case 1: event = Daily(code, event.Desc(), due); break;
        case 2: event = Daily(code, event.Desc(), due, static_cast<std::int16_t>(Random(2, 9))); break;
        default:
            event.Recurring(true);
            event.RecurrenceType(RecurWeekdays);
            event.WeekDays(static_cast<std::int16_t>(Random(1, 127) * 2));
            event.CalcNextAfterDate(due, Now(), errors_);
        }
        if (Random(0, 2) > 0)
            event = WithAlarm(event, Random(0, 23), Random(0, 59), static_cast<std::int16_t>(Random(0, 60)));
        return event;
    }

    void Step() {
        switch (Random(0, 12)) {
        case 0: Say("away"), Away(Random(1, 3 * 1440)), Begin(); break;
        case 1: Say("away for weeks"), Away(Random(5, 40) * 1440), Begin(); break;
        case 2: Say("asleep"), Wait(Random(1, 4 * 1440)), Tick(); break;
        case 3: Say("clock back"), Wait(-Random(1, 90)), Tick(); break;
        case 4: Say("closes TODAY!"), Close("TODAY!"); break;
        case 5: Say("closes ALARM!"), Close("ALARM!"); break;
        case 6: Say("answers"), AnswerMissed(); break;
        case 7: Say("sleeps"), Sleep(); break;
        case 8: Say("skips"), Skip(); break;
        case 9: Say("enters"), Enter(); break;
        case 10: Say("deletes"), Delete(); break;
        default: Say("works"), Work();
        }
        Check();
    }
    void Say(const std::string& what) { story_ += SideTime(Now()) + " " + what + "\n"; }

    void Begin() {
        app_.emplace(machine_.Services());
        app_->runtimePath = "C:\\KAZ";
        Startup(*app_).Run();
        main_ = MakeMainWindow(*app_, nobody_);
        Tick();
    }
    // With a proper end, or none.
    void Away(int minutes) {
        if (Random(0, 1) == 0) app_->EndProgram();
        main_.reset();
        app_.reset();
        Wait(minutes);
    }
    void Wait(int minutes) {
        machine_.clock.AdvanceMinutes(minutes);
        latest_ = std::max(latest_, Now());
    }
    void Tick() { machine_.windows.Advance(31'000); }
    // On a slow machine, whose ticks come when they can.
    void Work() {
        for (int i = Random(1, 8); i > 0; --i) {
            Wait(Random(1, 200));
            Tick();
            Check();
        }
    }

    void Close(const char* heading) {
        FakeWindow* window = machine_.windows.WithCaption(heading);
        if (!window || !window->IsVisible()) return;
        const bool isToday = heading == std::string("TODAY!");
        const auto ringing = app_->reminderWindows.Ringing();
        for (Entered& one : entered_) {
            const std::int32_t today = Now().Day();
            if (isToday && Shows(*window, one) && one.FallsOn(today) && one.Moment(today) <= Now())
                one.done.insert(today);
            if (!isToday)
                for (const OccurrenceRef& ring : ringing)
                    if (ring.key.code == one.event.IDCode)
                        one.done.insert(ring.day.Day()), one.asleep.erase(ring.day.Day());
        }
        window->Click(IDC_cmdContinue);
        Tick();
    }
    static bool Shows(const FakeWindow& window, const Entered& one) {
        const auto& lines = window.Items(IDC_lstReminders);
        return std::find(lines.begin(), lines.end(), one.event.Desc()) != lines.end();
    }
    std::vector<MissedReminder> Missed() {
        return app_->Missed().List(Now(), app_->reminderWindows.Ringing());
    }
    using Ringing = std::set<std::pair<std::string, std::int32_t>>;
    Ringing NowRinging() const {
        Ringing ringing;
        for (const OccurrenceRef& ring : app_->reminderWindows.Ringing())
            ringing.emplace(ring.key.code, ring.day.Day());
        return ringing;
    }
    void AnswerMissed() {
        const Ringing ringing = NowRinging();
        for (const MissedReminder& missed : Missed()) {
            if (Random(0, 1) == 0) continue;
            for (Entered& one : entered_) {
                if (one.event.Desc() != missed.text) continue;
                std::set<std::int32_t> told;
                ForEachMissed(one, [&](std::int32_t day) {
                    const bool isElsewhere =
                        ringing.contains({one.event.IDCode, day}) || one.asleep.contains(day);
                    if (day <= missed.occurrences.back().day.Day() && !isElsewhere) told.insert(day);
                });
                one.done.merge(told);
            }
            app_->outcomes.Answer(missed.occurrences);
        }
        Tick();
    }
    void Sleep() {
        for (const MissedReminder& missed : Missed()) {
            if (missed.count > 1 || missed.occurrences.size() > 1) continue;
            const OccurrenceRef& last = missed.occurrences.back();
            const DateValue until = Now().ToMinute().PlusMinutes(Random(1, 3000));
            app_->outcomes.Sleep({last}, until);
            for (Entered& one : entered_)
                if (one.event.Desc() == missed.text) one.asleep[last.day.Day()] = until;
            break;
        }
        Tick();
    }
    void Skip() {
        Entered& one = entered_[static_cast<std::size_t>(Random(0, static_cast<int>(entered_.size()) - 1))];
        const clsEvent* found = app_->events->ReadEvent(one.event.IDCode);
        if (!found || !found->Recurring()) return;
        clsEvent event = *found;
        DateValue day = event.DueDate();
        for (const DateValue next : Occurrences(event, {day, day.PlusDays(Random(0, 20))}, Now()))
            day = next;
        if (day < Now().DateOnly()) return;
        EventExtras extras = event.Extras();
        extras.Skip(day);
        event.Extras(extras);
        event.CalcNextAfterDate(event.DueDate(), Now(), app_->log);
        app_->events->StoreRecord(event);
        app_->events->SaveDB();
        app_->sideFile.Save();
        one.done.insert(day.Day());
    }
    void Enter() {
        clsEvent event = Draw();
        if (Random(0, 1) == 0) event.DueDate(Now()), event.StartDate(Now());
        if (event.RecurrenceType() == RecurWeekdays)
            event.CalcNextAfterDate(event.DueDate(), Now(), app_->log);
        event.IDCode.clear();
        app_->events->StoreRecord(event);
        app_->events->SaveDB();
        event = app_->events->AllEvents().back();
        app_->Missed().NoteEntered(event, Now());
        app_->outcomes.Save();
        Entered one{event, event.DueDate(), {}, {}};
        for (const int day : {one.from.Day(), one.from.Day() + 1})
            if (one.event.AlarmSet() && one.FallsOn(day) && one.IsDue(day, Now())) one.done.insert(day);
        entered_.push_back(one);
    }
    void Delete() {
        if (entered_.size() < 2) return;
        app_->events->DeleteRecord(entered_.front().event.IDCode);
        app_->expired->DeleteRecord(entered_.front().event.IDCode);
        entered_.erase(entered_.begin());
    }

    // The days that are due by the clock, or once were, and that nobody has dealt with.
    template <class Use>
    void ForEachMissed(const Entered& one, Use use) const {
        for (std::int32_t day = one.from.Day(); day <= latest_.Day() + 1; ++day)
            if (one.FallsOn(day) && one.IsDue(day, latest_) && !one.done.contains(day)) use(day);
    }

    void Check() {
        const Ringing ringing = NowRinging();
        const std::vector<MissedReminder> list = Missed();
        for (const Entered& one : entered_) {
            const auto listed = std::find_if(list.begin(), list.end(), [&](const MissedReminder& missed) {
                return missed.text == one.event.Desc();
            });
            int must = 0, may = 0;
            std::int32_t last = 0, latest = 0;
            ForEachMissed(one, [&](std::int32_t day) {
                const bool rings = ringing.contains({one.event.IDCode, day});
                const auto asleep = one.asleep.find(day);
                if (asleep != one.asleep.end()) {
                    EXPECT_TRUE(rings || asleep->second > Now().ToMinute()) << one.event.Desc() << " woke\n"
                                                                            << story_;
                    return;
                }
                ++may;
                latest = day;
                if (rings || !one.IsDue(day, Now())) return;
                ++must;
                last = day;
            });
            const int count = listed == list.end() ? 0 : listed->count;
            const int day = listed == list.end() ? 0 : listed->occurrences.back().day.Day();
            const bool right = must <= count && count <= may && last <= day && day <= latest;
            EXPECT_TRUE(right) << one.event.Desc() << ": " << must << " to " << may << " missed, " << count
                               << " told; the last " << SideDay(DateValue(last)) << ", told "
                               << SideDay(DateValue(day)) << "\n"
                               << story_ << SideTime(Now()) << "\n"
                               << machine_.files.Text("C:\\KAZ\\Events.side");
        }
    }

    std::mt19937 random_;
    RecordingErrors errors_;
    FakePlatform machine_;
    Nobody nobody_;
    std::optional<Application> app_;
    std::shared_ptr<MainWindow> main_;
    std::vector<Entered> entered_;
    DateValue latest_{45000, 9 * 3600};
    int names_ = 0, codes_ = 0;
    std::string story_;
};

}  // namespace

// KAZ_STORIES sets how many.
TEST(Occurrence, IsShownOrAnsweredOrSkippedOrMissedWhateverBecomesOfTheProgram) {
    const char* wanted = std::getenv("KAZ_STORIES");
    const unsigned stories = wanted ? static_cast<unsigned>(std::atoi(wanted)) : 500;
    const char* first = std::getenv("KAZ_FIRST_STORY");
    unsigned seed = first ? static_cast<unsigned>(std::atoi(first)) : 0;
    for (const unsigned end = seed + stories; seed < end && !HasFailure(); ++seed) {
        SCOPED_TRACE("story " + std::to_string(seed));
        Lives(seed).Live(25);
    }
}

TEST(Occurrence, AClockThatWasAYearAheadLeavesNothingMissedAndForgetsNoAnswer) {
    Story story;
    story.Events({WithAlarm(Daily("000001", "Pills", DateValue(45000)), 9, 5),
                  OneOff("000002", "Dentist", DateValue(45002))});
    story.Start().ShowMain();
    story.Advance(400);
    for (const char* heading : {"ALARM!", "TODAY!"})
        story.Reminder(heading)->Click(IDC_cmdContinue);
    const std::string answered = story.Saved("Events.side");
    EXPECT_THAT(answered, AllOf(HasSubstr("2023-03-15 09:05"), Not(HasSubstr("open"))));
    for (const int days : {400, -400}) {
        story.Jump(days);
        story.Main()->Raise(0, Raised::ClockChanged);
        story.Advance(70);
        EXPECT_EQ(days > 0, story.Saved("Events.side").find("open") != std::string::npos);
    }
    EXPECT_EQ(answered, story.Saved("Events.side"));
}

// His program moves it on, whether it has rung here or not, and takes away what is over.
TEST(Occurrence, OfAnotherUserIsMissedWhereverHisProgramHasPutTheEvent) {
    Story story;
    const auto concert = [](int inDays) {
        return WithAlarm(SharedBy("Bob", Daily("000009", "Concert", DateValue(45000 + inDays), 7)), 18, 0);
    };
    const auto publish = [&](const std::vector<clsEvent>& events) {
        story.machine.files.Put("C:\\Share\\Shared_Bob.xml", FileOf(events));
    };
    const auto missed = [&] {
        story.Advance(70);
        const std::string side = story.Saved("Events.side");
        return Split(side, "open\tShared_Bob\t000009").size() - 1;
    };
    story.ShareWithBob({concert(-7)});
    story.Start().ShowMain();
    EXPECT_EQ(0U, missed()) << "before Bob was known";
    publish({concert(0)});
    EXPECT_EQ(0U, missed());
    story.component->ShutDown();
    story.Jump(2);
    publish({concert(7)});
    story.Start().ShowMain();
    EXPECT_EQ(1U, missed());
    publish({});
    EXPECT_EQ(1U, missed()) << "one that is to come and was taken away is not";
    publish({concert(7)});
    EXPECT_EQ(1U, missed());
    story.machine.clock.AdvanceDays(12);
    publish({});
    EXPECT_EQ(2U, missed());
}
