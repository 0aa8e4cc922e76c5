#include "core/ClockGuard.h"

#include "base/DateText.h"
#include "core/Startup.h"
#include "fakes/FakePlatform.h"
#include "fakes/Matchers.h"
#include "fakes/Sample.h"

#include <functional>
#include <set>

namespace kaz {
namespace {

constexpr const char* kNotice = "Date of this computer";
constexpr int kTo2099 = 27760;  // days
const std::string kIni = "C:\\KAZ\\Kaz.ini";

// A folder with a weekly event, one on each day and a single one, and a clock that goes wherever a story has
// it go.
class Days {
public:
    Days() {
        machine.files.Put(kIni, "OWNER,Ann\r\nDATAPATH,C:\\KAZ\r\nNOAUTOBACKUPS,-1\r\n");
        const DateValue today = machine.clock.Today();
        machine.files.Put("C:\\KAZ\\Events.xml",
                          FileOf({Daily("1", "Swim", today.PlusDays(2), 7), Daily("2", "Pill", today),
                                  OneOff("3", "Dentist", today.PlusDays(5))}));
        Start();
    }
    void Start() {
        app = std::make_unique<Application>(machine.Services());
        app->log.OverrideLogFilename("C:\\KAZ\\Log_KAZ.txt");
        Startup(*app).Run();
        app->clockGuard->NoteTick();
    }
    void Tick() {
        app->clockGuard->Look();
        app->MakeReminder().UpdateAllEvents();
        app->clockGuard->NoteTick();
    }
    // The clock goes elsewhere while the program runs or while it is off.
    void Running(int days, int minutes = 0) {
        Turn(days, minutes);
        Tick();
    }
    void Off(int days, int minutes = 0) {
        app->EndProgram();
        Turn(days, minutes);
        Start();
    }
    void Turn(int days, int minutes) {
        machine.clock.AdvanceDays(days);
        machine.clock.AdvanceMinutes(minutes);
    }
    void Press(std::size_t button) {
        const Health::Notice* notice = app->health.Find(kNotice);
        ASSERT_TRUE(notice);
        const auto run = notice->actions.at(button).run;
        run();
    }
    void Add(const clsEvent& event) {
        app->events->StoreRecord(event);
        app->events->SaveDB();
    }

    // "Swim 03-17, Pill 03-15", in the order of the names; the year, too, when it is not this one.
    static std::string Lines(const clsDbXml& database) {
        std::set<std::string> lines;
        for (const clsEvent& event : database.AllEvents()) {
            std::string day;
            AppendIsoDate(day, event.DueDate());
            lines.insert(event.Desc() + " " + (day.starts_with("2023-") ? day.substr(5) : day));
        }
        std::string text;
        for (const std::string& line : lines)
            text += (text.empty() ? "" : ", ") + line;
        return text;
    }

    FakePlatform machine;
    std::unique_ptr<Application> app;
};

using Act = std::function<void(Days&)>;

Act Running(int days, int minutes = 0) {
    return [=](Days& story) { story.Running(days, minutes); };
}
Act Off(int days, int minutes = 0) {
    return [=](Days& story) { story.Off(days, minutes); };
}
Act Presses(std::size_t button) {
    return [=](Days& story) { story.Press(button); };
}
void IsKilledAndTheClockPutRight(Days& story) {
    story.Turn(-kTo2099, 0);
    story.Start();
}
void AddsChangesAndDeletes(Days& story) {
    story.Add(Daily("4", "Walk", story.machine.clock.Today().PlusDays(1), 2));
    story.Add(OneOff("5", "Party", DateValue(45030)));
    Changing(*story.app->events)[0].Desc("Swim with Bob");
    Changing(*story.app->events)[1].Period(3);
    story.app->events->SaveDB();
    story.app->expired->DeleteRecord("3");
}

void IsWrongWhileAnotherMachineSaves(Days& story) {
    story.Add(Daily("4", "Far", DateValue(45061), 7));
    FakePlatform there;
    Application another(there.Services(story.machine.files));
    Startup(another).Run();
    story.Off(kTo2099);
    story.Tick();
    there.clock.AdvanceDays(1);
    another.clockGuard->Look();
    another.clockGuard->NoteTick();
    another.settings.SaveSettings(kIni);
    story.Off(1 - kTo2099);
}

// The clock stands at 15 March 2023. What a story has done to the events stands
// in both the memory and the file.
TEST(ClockGuard, PutsBackWhatAWrongDateMovedAndKeepsWhatTheUserDid) {
    constexpr const char* kUntouched = "Dentist 03-20, Pill 03-15, Swim 03-17";
    constexpr const char* kDentist = "Dentist 03-20";
    constexpr const char* kIn2099 = "Pill 2099-03-16, Swim 2099-03-20";
    constexpr const char* kInMay = "Pill 05-14, Swim 05-19";
    const struct {
        const char* what;
        std::vector<Act> acts;
        bool asks;
        const char *events, *expired;
    } stories[] = {
        {"an hour and a flight back", {Running(0, -60), Off(0, -25 * 60)}, false, kUntouched, ""},
        {"six weeks away", {Off(44)}, false, "Pill 04-28, Swim 04-28", kDentist},
        {"dead battery at a start", {Off(kTo2099)}, true, kIn2099, kDentist},
        {"right again while running", {Off(kTo2099), Running(-kTo2099, 5)}, false, kUntouched, ""},
        {"right again at a later start",
         {Off(kTo2099), Running(1), Off(1), Off(-kTo2099 - 1)},
         false,
         "Dentist 03-20, Pill 03-16, Swim 03-17",
         ""},
        {"killed while it was wrong", {Running(kTo2099), IsKilledAndTheClockPutRight}, false, kUntouched, ""},
        {"a year ahead while running, two months on",
         {Running(365), Off(-365 + 60)},
         false,
         kInMay,
         kDentist},
        {"back in 2001", {Off(-8000), Running(8000)}, false, kUntouched, ""},
        {"added, changed and deleted meanwhile",
         {Off(kTo2099), AddsChangesAndDeletes, Running(1), Off(-kTo2099)},
         false,
         "Party 04-14, Pill 03-16, Swim with Bob 03-17, Walk 03-16",
         ""},
        {"the user says that it is wrong", {Off(kTo2099), Presses(0)}, true, kUntouched, ""},
        {"and it is set right later",
         {Off(kTo2099), Presses(0), Running(0), Off(-kTo2099)},
         false,
         kUntouched,
         ""},
        {"another machine saves meanwhile",
         {IsWrongWhileAnotherMachineSaves},
         false,
         "Dentist 03-20, Far 05-15, Pill 03-16, Swim 03-17",
         ""},
        {"really away, and the user says so", {Off(60), Presses(1), Running(0, 1)}, false, kInMay, kDentist},
        {"really away for two months", {Off(60), Running(6)}, true, "Pill 05-20, Swim 05-26", kDentist},
        {"a week later", {Off(60), Running(6), Off(1)}, false, "Pill 05-21, Swim 05-26", kDentist},
    };
    for (const auto& story : stories) {
        SCOPED_TRACE(story.what);
        Days days;
        for (const Act& act : story.acts)
            act(days);
        EXPECT_EQ(days.app->health.Find(kNotice) != nullptr, story.asks);
        for (int look = 0; look < 2; ++look) {
            EXPECT_EQ(Days::Lines(*days.app->events), story.events);
            EXPECT_EQ(Days::Lines(*days.app->expired), story.expired);
            days.app->events->LoadDB("C:\\KAZ\\Events.xml");
            days.app->expired->LoadDB("C:\\KAZ\\Expired.xml");
        }
        EXPECT_THAT(days.machine.dialogs.messages, IsEmpty());
    }
}

TEST(ClockGuard, WritesTheLastTickWhenSomethingWasShownAndElseOnceAnHour) {
    Days days;
    const auto written = [&] { return days.machine.files.Text(kIni); };
    EXPECT_THAT(written(), HasSubstr("LASTTICK,2023-03-15 09:00:00"));
    days.Running(0, 59);
    EXPECT_THAT(written(), HasSubstr("09:00:00"));
    days.Running(0, 1);
    EXPECT_THAT(written(), HasSubstr("LASTTICK,2023-03-15 10:00:00"));
    days.app->reminderWindows.Open(ReminderKind::Today);
    days.Running(0, 1);
    EXPECT_THAT(written(), HasSubstr("LASTTICK,2023-03-15 10:01:00"));
    EXPECT_THAT(written(), HasSubstr("OWNER,Ann\r\n"));
    days.machine.files.At(kIni).readOnly = true;
    days.Running(0, 60);
    EXPECT_THAT(days.machine.dialogs.messages, IsEmpty());
}

TEST(ClockGuard, KeepsABoundedNumberOfCopies) {
    Days days;
    for (int i = 0; i < 8; ++i) {
        days.Off(60);
        days.Press(1);
    }
    int copies = 0;
    for (const std::string& name : days.machine.files.FilesIn("C:\\KAZ\\Autobackups"))
        if (name.starts_with("Events (before the date changed, ")) ++copies;
    EXPECT_EQ(copies, 5);
}

}  // namespace
}  // namespace kaz
