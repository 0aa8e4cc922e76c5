#include "story/Story.h"
#include "ui/list/EventRows.h"

#include <gmock/gmock.h>

#include <cstdio>
#include <functional>
#include <vector>

using namespace kaz;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

// A moment of March 2023, "15 09:00:00"; its 36th is 5 April.
DateValue At(const char* text) {
    int day = 0, hour = 0, minute = 0, second = 0;
    EXPECT_EQ(std::sscanf(text, "%d %d:%d:%d", &day, &hour, &minute, &second), 4) << text;
    return DateValue(DateValue::FromCivil(2023, 3, day).Day(),
                     DateValue::FromTime(hour, minute, second).SecondOfDay());
}

class Clockwork : public Story {
public:
    using Act = std::function<void(Clockwork&)>;
    // At that moment this is on the screen; then the user or the computer does something. A window that came
    // to the front since the scene before stands as "TODAY! Tea", one that is only still there in brackets.
    struct Scene {
        const char* at;
        const char* screen;
        Act act;
    };

    void Play(const std::vector<Scene>& scenes) {
        scenes_ = scenes;
        PlayOn();
        EXPECT_EQ(next_, scenes_.size());
    }
    // Inside a dialog, until it is left.
    void PlayOn() {
        for (left_ = false; !left_ && next_ < scenes_.size();) {
            const Scene& scene = scenes_[next_++];
            while (machine.clock.now < At(scene.at))
                Advance(1);
            EXPECT_EQ(Screen(), scene.screen) << scene.at;
            if (scene.act) scene.act(*this);
        }
        left_ = false;
    }
    void Leave() { left_ = true; }
    FakeWindow* editor = nullptr;

private:
    std::string Screen() {
        std::string screen;
        for (const char* heading : {"COMING UP", "TODAY!", "ALARM!"}) {
            FakeWindow* window = Reminder(heading);
            if (!window || !window->IsVisible()) continue;
            std::string text = heading;
            for (const std::string& line : Lines(heading))
                text += " " + line;
            const bool came = std::exchange(window->broughtToFront, 0) > 0;
            screen += (screen.empty() ? "" : ", ") + (came ? text : "(" + text + ")");
        }
        return screen;
    }

    std::vector<Scene> scenes_;
    std::size_t next_ = 0;
    bool left_ = false;
};

using Act = Clockwork::Act;

Act Closes(const char* heading) {
    return [=](Clockwork& story) { story.Reminder(heading)->Click(IDC_cmdContinue); };
}
Act LetsSleep(const char* heading, const char* minutes) {
    return [=](Clockwork& story) {
        story.Reminder(heading)->Type(IDC_txtSleep, minutes);
        story.Reminder(heading)->Click(IDC_cmdRemindMe);
    };
}
// No timer ticks meanwhile.
Act ComputerSleepsUntil(const char* moment) {
    return [=](Clockwork& story) {
        story.machine.clock.now = At(moment);
        if (story.Main()->asksForResumes) story.Main()->Raise(0, Raised::Resumed);
    };
}
Act ClockIsSetTo(const char* moment) {
    return [=](Clockwork& story) {
        story.machine.clock.now = At(moment);
        story.Main()->Raise(0, Raised::ClockChanged);
    };
}
Act Opens(int command, int row = 0) {
    return [=](Clockwork& story) {
        story.machine.windows.OnModal([&](FakeWindow& window) {
            story.editor = &window;
            story.PlayOn();
        });
        if (story.Main()->Report(IDC_ListEvents).RowCount() > row)
            story.Main()->Report(IDC_ListEvents).UserSelects({row});
        story.Main()->Click(command);
    };
}
Act Saves(const char* description, const char* alarm = nullptr) {
    return [=](Clockwork& story) {
        story.editor->Type(IDC_txtDesc, description);
        if (alarm) {
            story.editor->Toggle(IDC_chkTimed);
            story.editor->Type(IDC_txtTime, alarm);
            if (!story.editor->Checked(IDC_chkDay + 2)) story.editor->Toggle(IDC_chkDay + 2);  // Wednesday
        }
        story.editor->Click(IDC_cmdSave);
        story.Leave();
    };
}
Act Shows(const char* category) {
    return [=](Clockwork& story) {
        const auto names = story.Main()->Items(IDC_cmbCategories);
        for (int i = 0; std::cmp_less(i, names.size()); ++i)
            if (names[static_cast<std::size_t>(i)] == category) story.Main()->Choose(IDC_cmbCategories, i);
    };
}

struct Tale {
    const char* name;
    const char* starts;
    std::vector<clsEvent> events;
    std::vector<Clockwork::Scene> scenes;
    std::vector<clsEvent> ofBob = {};
};

const DateValue kYesterday(44999), kToday(45000), kTomorrow(45001);

clsEvent Single(const char* name, DateValue due = kToday) { return OneOff(name, name, due); }
clsEvent Pills(DateValue due = kToday) { return Daily("pills", "Pills", due); }
clsEvent Weekly(DateValue due, int hour) {
    clsEvent event = WithAlarm(Daily("weekly", "Weekly", due, 7), hour, 0);
    event.Owner("Bob");
    event.SharedEvent = true;
    return event;
}

const Tale kTales[] = {
    {"Behind single events that expired in a row, at a start",
     "15 09:00:17",
     {Single("A", kYesterday), Single("B", kYesterday), Single("C", kYesterday),
      WithAlarm(Pills(kYesterday), 9, 2)},
     {{"15 09:00:21", "TODAY! Pills", {}}, {"15 09:02:01", "TODAY! Pills, ALARM! Pills", {}}}},
    {"and at midnight, with an alarm in the first minute",
     "15 23:59:17",
     {Single("A"), Single("B"), Single("C"), WithAlarm(Pills(), 0, 0)},
     {{"15 23:59:30", "TODAY! Pills C B A", {}},
      {"16 00:00:01", "TODAY! Pills, ALARM! Pills", {}},
      {"16 00:00:03", "TODAY! Pills, (ALARM! Pills)", {}}}},
    {"A daily reminder that slept and was left open",
     "15 09:00:00",
     {Pills()},
     {{"15 09:00:05", "TODAY! Pills", LetsSleep("TODAY!", "10")},
      {"15 09:10:00", "", {}},
      {"15 09:10:06", "TODAY! Pills", {}},
      {"15 10:00:00", "(TODAY! Pills)", {}},
      {"16 00:00:03", "TODAY! Pills", LetsSleep("TODAY!", "60")},
      {"16 00:10:00", "", ComputerSleepsUntil("16 00:20:00")},  // the same day: it sleeps on
      {"16 00:59:00", "", {}},
      {"16 01:00:05", "TODAY! Pills", Closes("TODAY!")},
      {"16 01:10:00", "", ClockIsSetTo("16 01:20:00")},  // the same day: closed is closed
      {"16 09:00:00", "", {}},
      {"17 00:00:03", "TODAY! Pills", {}}}},
    {"A sleep of a window while the computer sleeps",
     "15 09:00:00",
     {Pills()},
     {{"15 09:00:05", "TODAY! Pills", LetsSleep("TODAY!", "90")},
      {"15 09:01:00", "", ComputerSleepsUntil("15 11:00:00")},
      {"15 11:00:01", "TODAY! Pills", {}}}},
    {"An editor open over midnight",
     "15 23:58:00",
     {WithAlarm(Pills(), 0, 1), WithAlarm(Daily("bus", "Bus", kToday), 9, 0), Single("Tea", kTomorrow)},
     {{"15 23:58:10", "TODAY! Bus Pills", Opens(IDM_EDIT)},
      {"16 00:00:03", "TODAY! Tea Bus Pills", {}},
      {"16 00:01:01", "TODAY! Tea Bus Pills, ALARM! Pills", Closes("ALARM!")},
      {"16 00:01:59", "TODAY! Tea Bus Pills", Closes("TODAY!")},
      {"16 09:00:01", "ALARM! Bus", {}},
      {"17 00:00:03", "TODAY! Bus Pills, ALARM! Bus", Saves("Pills, two")},
      {"17 00:01:01", "TODAY! Bus Pills, ALARM! Pills, two Bus", {}}}},
    {"A single event that expires while it is edited",
     "15 23:58:00",
     {Single("Tea")},
     {{"15 23:58:10", "TODAY! Tea", Opens(IDM_EDIT)},
      {"16 00:00:03", "", Saves("Late tea")},
      {"16 00:10:00", "", {}}}},
    {"Asleep for a month to the day, and a clock that is set",
     "5 09:00:00",
     {Single("Tea", DateValue::FromCivil(2023, 4, 5)), Single("Exam", DateValue::FromCivil(2023, 5, 5))},
     {{"5 09:00:05", "", ComputerSleepsUntil("36 09:00:00")},
      {"36 09:00:03", "TODAY! Tea", ClockIsSetTo("66 09:00:00")},
      {"66 09:00:03", "TODAY! Exam", {}}}},
    {"An alarm that is closed is over",
     "15 09:01:17",
     {WithAlarm(Single("Tea", kToday), 9, 2), WithAlarm(Single("Bread", kToday), 9, 4)},
     {{"15 09:01:22", "TODAY! Bread Tea", Closes("TODAY!")},
      {"15 09:02:01", "ALARM! Tea", Closes("ALARM!")},
      {"15 09:03:59", "", {}},
      {"15 09:04:01", "ALARM! Bread", ClockIsSetTo("15 09:01:30")},
      {"15 09:02:30", "ALARM! Bread", {}}}},
    {"An alarm that is entered seconds before its minute, in an editor that stays open over another",
     "15 09:00:17",
     {WithAlarm(Single("Bread", kToday), 9, 1)},
     {{"15 09:00:20", "TODAY! Bread", Closes("TODAY!")},
      {"15 09:00:30", "", Opens(IDM_EDIT)},
      {"15 09:01:01", "ALARM! Bread", Closes("ALARM!")},
      {"15 09:01:10", "", Saves("Bread")},
      {"15 09:01:30", "", Opens(IDM_ADD)},
      {"15 09:01:40", "", Saves("Tea", "09:02")},
      {"15 09:02:01", "ALARM! Tea", {}}}},
    {"Another user's weekly event that is stale, while the list shows another category",
     "15 09:00:00",
     {},
     {{"15 09:00:05", "", Shows("Layer 5")},
      {"15 10:00:01", "ALARM! Weekly", Closes("ALARM!")},
      {"22 10:00:01", "ALARM! Weekly", {}}},
     {Weekly(kToday.PlusDays(-14), 10)}},
};

}  // namespace

TEST(Clock, WhatIsOnTheScreenAtWhichMinute) {
    for (const Tale& tale : kTales) {
        SCOPED_TRACE(tale.name);
        Clockwork story;
        story.machine.clock.now = At(tale.starts);
        story.Settings("OWNER,Single\r\n");
        story.machine.files.Put(Story::Path("Events.xml"), FileOf(tale.events));
        if (!tale.ofBob.empty()) {
            story.Settings("OWNER,Ann\r\nNETWORKED,-1\r\nSHAREDDATAPATH,C:\\Share\r\n");
            story.machine.files.Put("C:\\Share\\KAZShared.ini", "Ann\r\nBob\r\n");
            story.machine.files.Put("C:\\Share\\Shared_Bob.xml", FileOf(tale.ofBob));
        }
        story.Start().ShowMain();
        story.Play(tale.scenes);
        EXPECT_TRUE(story.machine.windows.AllModalsShown());
        EXPECT_THAT(story.machine.dialogs.messages, testing::IsEmpty());
        EXPECT_THAT(story.machine.dialogs.questions, testing::IsEmpty());
        if (!tale.ofBob.empty()) {
            EXPECT_EQ(*story.Main()->trayTip, "KAZ - 1 event due today");
            EXPECT_EQ(story.machine.files.Text("C:\\Share\\Shared_Bob.xml"), FileOf(tale.ofBob));
        }
    }
}

// Only the list and the host wait for the dialog; what is saved in it hits the event that has moved
// meanwhile.
TEST(Clock, TheListBehindADialogIsFilledWhenTheDialogIsLeft) {
    Clockwork story;
    story.machine.clock.now = At("15 23:59:00");
    story.Events({Single("Dentist"), Pills()});
    story.Start().ShowMain();
    const auto left = [&] { return story.Main()->Report(IDC_ListEvents).Column(kLeftColumn); };
    story.Play({{"15 23:59:05", "TODAY! Pills Dentist", Opens(IDM_EDIT)},
                {"16 00:00:03", "TODAY! Pills",
                 [&](Clockwork&) {
                     EXPECT_THAT(left(), ElementsAre("0000", "0000"));
                     EXPECT_EQ(story.Main()->trayTip, "KAZ - 1 event due today");
                     EXPECT_THAT(story.Saved("Expired.xml"), HasSubstr("Dentist"));
                     story.host.raised.clear();
                 }},
                {"16 00:00:20", "(TODAY! Pills)", Saves("Dentist again")}});
    story.Advance(1);
    EXPECT_THAT(left(), ElementsAre("0000", "0000"));
    EXPECT_FALSE(story.host.raised.empty());
    EXPECT_THAT(story.Saved("Expired.xml"), Not(HasSubstr("Dentist")));
    EXPECT_THAT(story.Saved("Events.xml"), HasSubstr("<IDCode>Dentist</IDCode>"));
    EXPECT_THAT(story.Saved("Events.xml"), HasSubstr("<DueDate>2023-03-16</DueDate>"));
}
