#include "fakes/Matchers.h"
#include "story/Clockwork.h"

using namespace kaz;

namespace {

struct MissedTale {
    const char* name;
    std::vector<clsEvent> events;
    std::vector<Clockwork::Scene> scenes;
    std::vector<clsEvent> ofBob = {};
};

const DateValue kWednesday(45000);

clsEvent On(const char* name, int day) { return OneOff(name, name, kWednesday.PlusDays(day)); }
clsEvent Running(clsEvent event) {
    event.ExecFile = true;
    event.Filename = "C:\\KAZ\\Tool.bat";
    return event;
}

clsEvent Sent(clsEvent event) {
    event.Email = "ann@example.org";
    event.MailSent = true;
    return event;
}
Act Reads(const char* message) {
    return [=](Clockwork& story) {
        EXPECT_THAT(std::exchange(story.machine.dialogs.messages, {}), ElementsAre(HasSubstr(message)));
    };
}
Act TakesMails(bool takes) {
    return [=](Clockwork& story) {
        story.host.takesMails = takes;
        Presses("MISSED", IDC_cmdMissedMail, {0})(story);
    };
}

void HasTool(Clockwork& story) { story.machine.files.Put(Clockwork::Path("Tool.bat"), "x"); }
Act Selects(int row) {
    return [=](Clockwork& story) { story.Main()->Report(IDC_ListEvents).UserSelects({row}); };
}
// By itself, as at the beginning and the end of summer time.
Act ClockGoesTo(const char* moment) {
    return [=](Clockwork& story) { story.machine.clock.now = At(moment); };
}

const MissedTale kMissedTales[] = {
    {"Off from Friday to Monday: the newest first, a series once; what has its line answered leaves",
     {WithAlarm(On("Call", 2), 18, 0), On("Dentist", 3), Daily("pills", "Pills", kWednesday.PlusDays(2))},
     {{"17 17:00:05", "TODAY! Pills Call", IsOffUntil("20 08:00:00")},
      {"20 08:00:03", "TODAY! Pills, MISSED Sun Pills 3 times | Sat Dentist | Fri 18:00 Call",
       Presses("MISSED", IDC_cmdMissedDone, {0, 2})},
      {"20 08:00:06", "(TODAY! Pills), (MISSED Sat Dentist)", Presses("MISSED", kItsCloseBox)},
      {"20 09:00:00", "TODAY! Pills", Chooses(IDM_SHOWMISSED)},
      {"20 09:00:05", "TODAY! Pills, MISSED Sat Dentist", IsOffUntil("20 10:00:00")},
      {"20 10:00:03", "TODAY! Pills, MISSED Sat Dentist", Presses("MISSED", IDC_cmdMissedLater)},
      {"20 11:00:00", "TODAY! Pills", IsOffUntil("21 08:00:00")},
      {"21 08:00:03", "TODAY! Pills, MISSED Mon Pills | Sat Dentist", AllIsAnsweredElsewhere},
      {"21 08:00:40", "TODAY! Pills", IsOffUntil("21 09:00:00")},
      {"21 09:00:03", "TODAY! Pills", {}}}},
    {"Died with an alarm on the screen; again today, until the program ends, and tomorrow at nine",
     {WithAlarm(On("Train", 0), 9, 2), On("Bus", 0)},
     {{"15 09:02:01", "TODAY! Bus Train, ALARM! Train", IsOffUntil("15 09:20:00", true)},
      {"15 09:20:03", "TODAY! Bus Train, MISSED Wed 09:02 Train", Presses("MISSED", IDC_cmdMissedToday)},
      {"15 11:19:50", "TODAY! Bus Train", Closes("TODAY!")},
      {"15 11:20:01", "ALARM! Train", IsOffUntil("15 23:00:00")},
      {"15 23:00:03", "TODAY! Bus Train, ALARM! Train", Both(Closes("ALARM!"), Closes("TODAY!"))},
      {"16 00:00:10", "", IsOffUntil("17 09:00:00")},
      {"17 09:00:03", "", {}}}},
    {"TODAY! unread at midnight; in the night, again in ten minutes; the clock goes back an hour",
     {On("Bus", 0), On("Tea", 1)},
     {{"15 23:59:30", "TODAY! Bus", {}},
      {"16 00:00:03", "TODAY! Tea, MISSED Wed Bus",
       Both(Closes("TODAY!"), Presses("MISSED", IDM_AGAIN_TOMORROW))},
      {"17 08:59:50", "", ClockIsSetTo("17 07:59:50")},
      {"17 09:00:01", "ALARM! Bus", Closes("ALARM!")},
      {"17 09:01:00", "", ClockIsSetTo("17 08:01:00")},
      {"17 09:30:00", "", {}}}},
    {"A file that was not run, and is not there at first",
     {Running(WithAlarm(On("Copy", 0), 9, 30))},
     {{"15 09:00:05", "", IsOffUntil("15 11:00:00")},
      {"15 11:00:03", "MISSED Wed 09:30 Copy its file was not run: C:\\KAZ\\Tool.bat",
       Both(Presses("MISSED", IDC_cmdMissedRun, {0}), Reads("Tool.bat\" was not run: it is not there."))},
      {"15 11:00:04", "(MISSED Wed 09:30 Copy its file was not run: C:\\KAZ\\Tool.bat)",
       Both(HasTool, Presses("MISSED", IDC_cmdMissedRun, {0}))},
      {"15 11:00:05", "", Finds("C:\\KAZ\\Tool.bat", "")}}},
    {"A mail that nobody takes stays to be sent; one that went in its time is not sent again",
     {Mailed(WithAlarm(On("Bill", 0), 9, 30), " ann@example.org "),
      Sent(Daily("rent", "Rent", kWednesday, 7))},
     {{"15 09:00:05", "TODAY! Rent Bill", IsOffUntil("16 08:00:00")},
      {"16 08:00:03", "MISSED Wed 09:30 Bill its mail was not sent: ann@example.org | Wed Rent",
       TakesMails(false)},
      {"16 08:00:05", "(MISSED Wed 09:30 Bill its mail was not sent: ann@example.org | Wed Rent)",
       Both(Reads("sends no mails"), TakesMails(true))},
      {"16 08:00:09", "(MISSED Wed Rent)",
       [](Clockwork& story) {
           const char* mail = "MailEvent ann@example.org|KAZ Alert - Event 1|Bill at 09:30 on 3/15/2023";
           EXPECT_THAT(story.host.raised, ElementsAre("MissedEvents 2", mail, mail, "MissedEvents 1"));
       }}}},
    {"A line that sleeps until it starts, while the program ends; its alarm takes no harm from another sleep",
     {WithAlarm(On("Train", 0), 9, 30, 20), On("Tea", 0), WithAlarm(On("Bus", 0), 9, 12)},
     {{"15 09:00:05", "TODAY! Bus Tea Train", Presses("TODAY!", IDC_cmdLineDone, {1})},
      {"15 09:00:06", "(TODAY! Bus Train)", Presses("TODAY!", IDC_cmdLineLast, {0})},
      {"15 09:00:07", "(TODAY! Train)", Closes("TODAY!")},
      {"15 09:10:01", "ALARM! Bus Train", Presses("ALARM!", IDM_AGAIN_START, {1})},
      {"15 09:11:00", "ALARM! Bus", Closes("ALARM!")},
      {"15 09:12:01", "ALARM! Bus", Both(Closes("ALARM!"), IsOffUntil("15 09:20:00"))},
      {"15 09:20:03", "TODAY! Bus Tea", Closes("TODAY!")},
      {"15 09:30:01", "ALARM! Train", Presses("ALARM!", IDM_AGAIN_30)},
      {"15 09:30:03", "", IsOffUntil("15 11:00:00")},
      {"15 11:00:03", "TODAY! Bus Tea Train, ALARM! Train", Presses("ALARM!", IDC_cmdLineDone)},
      {"15 11:00:40", "TODAY! Bus Tea Train", Closes("TODAY!")},
      {"15 12:00:00", "", IsOffUntil("16 09:00:00")},
      {"16 09:00:03", "", {}}}},
    {"In spring the hour that does not exist is made up for, once; whoever was not there then has missed it",
     {WithAlarm(On("Milk", 1), 2, 30), Running(WithAlarm(On("Copy", 1), 2, 0)),
      WithAlarm(On("Train", 1), 3, 1)},
     {{"16 01:59:58", "TODAY! Train Milk", Both(Closes("TODAY!"), HasTool)},
      {"16 01:59:59", "", ClockGoesTo("16 02:59:59")},
      {"16 03:00:30", "ALARM! Milk", Both(Closes("ALARM!"), Finds("C:\\KAZ\\Tool.bat", ""))},
      {"16 03:01:02", "ALARM! Train", Closes("ALARM!")},
      {"16 03:30:00", "", IsOffUntil("16 04:00:00")},
      {"16 04:00:03", "TODAY! Train Milk", Closes("TODAY!")},
      {"17 00:01:00", "", {}}}},
    {"In autumn once is enough: closed or on the screen when the hour comes again; what was not "
     "there is missed",
     {WithAlarm(On("Milk", 1), 2, 30), WithAlarm(On("Tea", 1), 2, 40), WithAlarm(On("Bus", 1), 2, 50),
      WithAlarm(On("Train", 1), 3, 0)},
     {{"16 02:29:00", "TODAY! Train Bus Tea Milk", Closes("TODAY!")},
      {"16 02:30:02", "ALARM! Milk", Closes("ALARM!")},
      {"16 02:40:02", "ALARM! Tea", {}},
      {"16 02:50:02", "ALARM! Bus Tea", {}},
      {"16 02:59:59", "ALARM! Bus Tea", ClockGoesTo("16 01:59:59")},
      {"16 02:35:00", "ALARM! Bus Tea", IsOffUntil("16 02:45:00")},
      {"16 02:45:03", "TODAY! Train Bus Tea Milk, MISSED Thu 02:40 Tea", Closes("TODAY!")},
      {"16 02:50:02", "ALARM! Bus", {}},
      {"16 03:00:02", "ALARM! Train Bus", Closes("ALARM!")},
      {"17 00:01:00", "", {}}}},
    {"A day that is skipped leaves every window at once, and is not missed",
     {WithAlarm(Daily("pills", "Pills", kWednesday), 9, 2), On("Bus", 0)},
     {{"15 09:02:01", "TODAY! Bus Pills, ALARM! Pills", Both(Selects(0), Chooses(IDM_SKIP))},
      {"15 09:02:02", "(TODAY! Bus)", IsOffUntil("16 08:00:00")},
      {"16 08:00:03", "TODAY! Pills, MISSED Wed Bus", {}}}},
    {"What comes up is dealt with for the day; an edited time and a deletion end a sleep",
     {Warned(On("Exam", 2), 5), On("Call", 0), On("Walk", 0)},
     {{"15 09:00:05", "COMING UP In 2 days: Exam, TODAY! Walk Call", Presses("COMING UP", IDC_cmdLineDone)},
      {"15 09:00:06", "(TODAY! Walk Call)", Presses("TODAY!", IDM_AGAIN_60, {0, 1})},
      {"15 09:00:07", "", Both(Opens(IDM_EDIT, 0), Deletes(0))},
      {"15 09:00:08", "", Saves("Call again", "23:50")},
      {"15 11:00:00", "", {}},
      {"16 00:00:03", "COMING UP In 1 day: Exam, ALARM! Call again", {}}}},
};

}  // namespace

TEST(Missed, TheWindowByTheClock) {
    for (const MissedTale& tale : kMissedTales) {
        SCOPED_TRACE(tale.name);
        Clockwork story;
        story.machine.files.Put(Story::Path("Events.xml"), FileOf(tale.events));
        if (!tale.ofBob.empty()) story.ShareWithBob(tale.ofBob);
        story.Play(tale.scenes);
        EXPECT_THAT(story.machine.dialogs.messages, testing::IsEmpty());
    }
}
