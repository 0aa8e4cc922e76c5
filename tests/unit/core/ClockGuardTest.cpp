#include "core/ClockGuard.h"

#include "base/DateText.h"
#include "core/Startup.h"
#include "fakes/FakePlatform.h"
#include "fakes/Sample.h"

#include <gmock/gmock.h>

#include <functional>
#include <utility>

namespace kaz {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* kNotice = "Date of this computer";
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
    clsEvent* Event(const std::string& code) { return app->events->ReadEvent(code); }

    std::vector<std::string> Lines(const clsDbXml& database) const {
        std::vector<std::string> lines;
        for (const clsEvent& event : database.AllEvents()) {
            std::string line = event.Desc() + " ";
            AppendIsoDate(line, event.DueDate());
            lines.push_back(line);
        }
        return lines;
    }

    FakePlatform machine;
    std::unique_ptr<Application> app;
};

// The clock stands at 15 March 2023. What a story has done to the events stands in both the memory and the
// file.
TEST(ClockGuard, PutsBackWhatAWrongDateMovedAndKeepsWhatTheUserDid) {
    constexpr int kTo2099 = 27760;
    const std::vector<std::string> untouched{"Swim 2023-03-17", "Pill 2023-03-15", "Dentist 2023-03-20"};
    const struct {
        const char* what;
        std::function<void(Days&)> play;
        bool asks;
        std::vector<std::string> events, expired;
    } stories[] = {
        {"an hour and a flight back",
         [](Days& d) { d.Running(0, -60), d.Off(0, -25 * 60); },
         false,
         untouched,
         {}},
        {"six weeks away",
         [](Days& d) { d.Off(44); },
         false,
         {"Swim 2023-04-28", "Pill 2023-04-28"},
         {"Dentist 2023-03-20"}},
        {"dead battery at a start",
         [=](Days& d) { d.Off(kTo2099); },
         true,
         {"Swim 2099-03-20", "Pill 2099-03-16"},
         {"Dentist 2023-03-20"}},
        {"right again while running",
         [=](Days& d) { d.Off(kTo2099), d.Running(-kTo2099, 5); },
         false,
         untouched,
         {}},
        {"right again at a later start",
         [=](Days& d) { d.Off(kTo2099), d.Running(1), d.Off(1), d.Off(-kTo2099 - 1); },
         false,
         {"Swim 2023-03-17", "Pill 2023-03-16", "Dentist 2023-03-20"},
         {}},
        {"killed while it was wrong",
         [=](Days& d) { d.Running(kTo2099), d.Turn(-kTo2099, 0), d.Start(); },
         false,
         untouched,
         {}},
        {"a year ahead while running, two months on",
         [](Days& d) { d.Running(365), d.Off(-365 + 60); },
         false,
         {"Swim 2023-05-19", "Pill 2023-05-14"},
         {"Dentist 2023-03-20"}},
        {"back in 2001", [](Days& d) { d.Off(-8000), d.Running(8000); }, false, untouched, {}},
        {"added, changed and deleted meanwhile",
         [=](Days& d) {
             d.Off(kTo2099);
             d.Add(Daily("4", "Walk", d.machine.clock.Today().PlusDays(1), 2));
             d.Add(OneOff("5", "Party", DateValue(45030)));
             d.Event("1")->Desc("Swim with Bob");
             d.Event("2")->Period(3);
             d.app->events->SaveDB();
             d.app->expired->DeleteRecord("3");
             d.Running(1);
             d.Off(-kTo2099);
         },
         false,
         {"Swim with Bob 2023-03-17", "Pill 2023-03-16", "Walk 2023-03-16", "Party 2023-04-14"},
         {}},
        {"the user says that it is wrong", [=](Days& d) { d.Off(kTo2099), d.Press(0); }, true, untouched, {}},
        {"and it is set right later",
         [=](Days& d) { d.Off(kTo2099), d.Press(0), d.Tick(), d.Off(-kTo2099); },
         false,
         untouched,
         {}},
        {"another machine saves meanwhile",
         [=](Days& d) {
             d.Add(Daily("4", "Far", DateValue(45061), 7));
             FakePlatform there;
             Application another(there.Services(d.machine.files));
             Startup(another).Run();
             d.Off(kTo2099), d.Tick();
             there.clock.AdvanceDays(1);
             another.clockGuard->Look();
             another.clockGuard->NoteTick();
             another.settings.SaveSettings(kIni);
             d.Off(1 - kTo2099);
         },
         false,
         {"Swim 2023-03-17", "Pill 2023-03-16", "Dentist 2023-03-20", "Far 2023-05-15"},
         {}},
        {"really away, and the user says so",
         [](Days& d) { d.Off(60), d.Press(1), d.Running(0, 1); },
         false,
         {"Swim 2023-05-19", "Pill 2023-05-14"},
         {"Dentist 2023-03-20"}},
        {"really away for two months",
         [](Days& d) { d.Off(60), d.Running(6); },
         true,
         {"Swim 2023-05-26", "Pill 2023-05-20"},
         {"Dentist 2023-03-20"}},
        {"a week later",
         [](Days& d) { d.Off(60), d.Running(6), d.Off(1); },
         false,
         {"Swim 2023-05-26", "Pill 2023-05-21"},
         {"Dentist 2023-03-20"}},
    };
    for (const auto& story : stories) {
        SCOPED_TRACE(story.what);
        Days days;
        story.play(days);
        EXPECT_EQ(days.app->health.Find(kNotice) != nullptr, story.asks);
        for (const bool again : {false, true}) {
            EXPECT_THAT(days.Lines(*days.app->events), testing::UnorderedElementsAreArray(story.events));
            EXPECT_EQ(days.Lines(*days.app->expired), story.expired);
            days.app->events->LoadDB("C:\\KAZ\\Events.xml");
            days.app->expired->LoadDB("C:\\KAZ\\Expired.xml");
            if (again) break;
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
