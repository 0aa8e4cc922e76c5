#include "fakes/Matchers.h"
#include "story/Story.h"

#include <functional>

using namespace kaz;

namespace {

const std::string kKeptLog = "Log_KAZ (ended unexpectedly).txt";

void Begin(Story& story) {
    story.Start().ShowMain();
    story.Advance(40);
}

}  // namespace

TEST(Death, IsToldOnceAtTheNextStartAndAProperEndIsNone) {
    const std::function<void(Story&)> nothing = [](Story&) {};
    const auto end = [](Story& story) { story.component->ShutDown(); };
    std::optional<clsComponent> other;
    RecordingHost otherHost;
    const struct {
        const char* what;
        std::function<void(Story&)> before, last;
        bool told;
    } cases[] = {
        {"killed", nothing, nothing, true},
        {"shut down", nothing, end, false},
        {"end of the session", nothing, [](Story& s) { s.Main()->Raise(0, Raised::SessionEnd); }, false},
        {"no place for the mark", [](Story& s) { s.machine.system.localFolder = ""; }, nothing, false},
        {"a start that fails is no run that dies", nothing,
         [&](Story& s) { end(s), s.Start("C:\\None"), s.component.reset(); }, false},
        {"a second program on the folder comes and goes", nothing,
         [&](Story& s) {
             other.emplace(s.machine.Services(), MakeMainWindow, otherHost);
             other->Startup(Story::kFolder);
             EXPECT_THAT(s.Log(), Not(HasSubstr("unexpectedly")));
             other.reset();
             end(s);
         },
         false},
        {"or stays when the first has died", nothing,
         [&](Story& s) {
             other.emplace(s.machine.Services(), MakeMainWindow, otherHost);
             other->Startup(Story::kFolder);
         },
         true},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(one.what);
        Story story;
        story.Settings("OWNER,Ann\r\n");
        one.before(story);
        Begin(story);
        one.last(story);
        story.component.reset();
        story.Start();
        const auto line = HasSubstr("KAZ ended unexpectedly on Wed at 09:00; no alarms since then.");
        EXPECT_THAT(story.Log(),
                    one.told ? testing::Matcher<std::string>(line) : Not(HasSubstr("unexpectedly")));
        story.component->ShutDown();
        story.Start();
        EXPECT_THAT(story.Log(), Not(HasSubstr("unexpectedly")));
        story.component.reset();
        other.reset();
    }
}

TEST(Death, TellsWhatWasDueSinceAndKeepsTheLogOfItsRun) {
    Story story;
    story.Settings("OWNER,Ann\r\n");
    const DateValue today = story.Today();
    story.Events({WithAlarm(Daily("1", "Pill", today), 9, 0),
                  WithAlarm(OneOff("2", "Tea\r\nwith Bob", today), 9, 30),
                  WithAlarm(OneOff("3", "Late", today.PlusDays(2)), 11, 0),
                  WithAlarm(OneOff("6", "Night train", today.PlusDays(2)), 0, 10, 20),
                  WithAlarm(OneOff("7", "Next train", today.PlusDays(3)), 0, 10, 20),
                  Daily("4", "Swim", today.PlusDays(1), 7), OneOff("5", "Far", today.PlusDays(3))});
    Begin(story);
    story.component.reset();
    story.Jump(2, 60);
    story.Start();
    EXPECT_THAT(story.Log(),
                HasSubstr("KAZ ended unexpectedly on Wed at 09:00; alarms since then: Wed 09:30 Tea with "
                          "Bob; Thu Swim; Thu 09:00 Pill; Thu 23:50 Night train; Fri 09:00 Pill\r\n"));
    EXPECT_THAT(story.Log(), Not(HasSubstr("Showing")));
    EXPECT_THAT(story.Saved(kKeptLog), HasSubstr("Showing today's reminders"));
}
