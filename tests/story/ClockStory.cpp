#include "fakes/Matchers.h"
#include "story/Clockwork.h"
#include "ui/list/EventRows.h"

using namespace kaz;

namespace {

struct Tale {
    const char* name;
    std::vector<clsEvent> events;
    std::vector<Clockwork::Scene> scenes;
    std::vector<clsEvent> ofBob = {};
    Act before = {};
};

const DateValue kYesterday(44999), kToday(45000), kTomorrow(45001);

clsEvent Single(const char* name, DateValue due = kToday) { return OneOff(name, name, due); }
clsEvent Pills(DateValue due = kToday) { return Daily("pills", "Pills", due); }
clsEvent Soon(const char* name, int inDays, std::int16_t days) {
    return Warned(Single(name, kToday.PlusDays(inDays)), days);
}

const Tale kTales[] = {
    {"Behind single events that expired in a row, at a start",
     {Single("A", kYesterday), Single("B", kYesterday), Single("C", kYesterday),
      WithAlarm(Pills(kYesterday), 9, 2)},
     {{"15 09:00:21", "TODAY! Pills", {}}, {"15 09:02:01", "TODAY! Pills, ALARM! Pills", {}}}},
    {"and at midnight, with an alarm in the first minute",
     {Single("A"), Single("B"), Single("C"), WithAlarm(Pills(), 0, 0)},
     {{"15 23:59:30", "TODAY! Pills C B A", {}},
      {"16 00:00:01", "TODAY! Pills, ALARM! Pills, MISSED Wed A | Wed B | Wed C", {}},
      {"16 00:00:03", "TODAY! Pills, (ALARM! Pills), (MISSED Wed A | Wed B | Wed C)", {}}}},
    {"A daily reminder that slept and was left open",
     {Pills()},
     {{"15 09:00:05", "TODAY! Pills", LetsSleep("TODAY!", "10")},
      {"15 09:10:00", "", {}},
      {"15 09:10:06", "TODAY! Pills", {}},
      {"15 10:00:00", "(TODAY! Pills)", {}},
      {"16 00:00:03", "TODAY! Pills, MISSED Wed Pills",
       Both(LetsSleep("TODAY!", "60"), Presses("MISSED", kItsCloseBox))},
      {"16 00:10:00", "", ComputerSleepsUntil("16 00:20:00")},  // the same day: it sleeps on
      {"16 00:59:00", "", {}},
      {"16 01:00:05", "TODAY! Pills", Closes("TODAY!")},
      {"16 01:10:00", "", ClockIsSetTo("16 01:20:00")},  // the same day: closed is closed
      {"16 09:00:00", "", {}},
      {"17 00:00:03", "TODAY! Pills", {}}}},
    {"A sleep of a window while the computer sleeps",
     {Pills()},
     {{"15 09:00:05", "TODAY! Pills", LetsSleep("TODAY!", "90")},
      {"15 09:01:00", "", ComputerSleepsUntil("15 11:00:00")},
      {"15 11:00:01", "TODAY! Pills", {}}}},
    {"An editor open over midnight",
     {WithAlarm(Pills(), 0, 1), WithAlarm(Daily("bus", "Bus", kToday), 9, 0), Single("Tea", kTomorrow)},
     {{"15 23:58:10", "TODAY! Bus Pills", Opens(IDM_EDIT)},
      {"16 00:00:03", "TODAY! Tea Bus Pills", {}},
      {"16 00:01:01", "TODAY! Tea Bus Pills, ALARM! Pills", Closes("ALARM!")},
      {"16 00:01:59", "TODAY! Tea Bus Pills", Closes("TODAY!")},
      {"16 09:00:01", "ALARM! Bus", {}},
      {"17 00:00:03", "TODAY! Bus Pills, ALARM! Bus", Saves("Pills, two")},
      {"17 00:01:01", "TODAY! Bus Pills, ALARM! Pills, two Bus", {}}}},
    {"A single event that expires while it is edited",
     {Single("Tea")},
     {{"15 23:58:10", "TODAY! Tea", Opens(IDM_EDIT)},
      {"16 00:00:03", "MISSED Wed Tea", Saves("Late tea")},
      {"16 00:10:00", "", {}}}},
    {"Asleep for a month to the day, and a clock that is set",
     {Single("Tea", DateValue::FromCivil(2023, 4, 5)), Single("Exam", DateValue::FromCivil(2023, 5, 5))},
     {{"5 09:00:05", "", ComputerSleepsUntil("36 09:00:00")},
      {"36 09:00:03", "TODAY! Tea", Both(Closes("TODAY!"), ClockIsSetTo("66 09:00:00"))},
      {"66 09:00:03", "TODAY! Exam", {}}}},
    {"An alarm that is closed is over",
     {WithAlarm(Single("Tea"), 9, 2), WithAlarm(Single("Bread"), 9, 4)},
     {{"15 09:01:22", "TODAY! Bread Tea", Closes("TODAY!")},
      {"15 09:02:01", "ALARM! Tea", Closes("ALARM!")},
      {"15 09:03:59", "", {}},
      {"15 09:04:01", "ALARM! Bread", ClockIsSetTo("15 09:01:30")},
      {"15 09:02:30", "ALARM! Bread", {}}}},
    {"An alarm that is entered seconds before its minute, in an editor that stays open over another",
     {WithAlarm(Single("Bread"), 9, 1)},
     {{"15 09:00:20", "TODAY! Bread", Closes("TODAY!")},
      {"15 09:00:30", "", Opens(IDM_EDIT)},
      {"15 09:01:01", "ALARM! Bread", Closes("ALARM!")},
      {"15 09:01:10", "", Saves("Bread")},
      {"15 09:01:30", "", Opens(IDM_ADD)},
      {"15 09:01:40", "", Saves("Tea", "09:02")},
      {"15 09:02:01", "ALARM! Tea", {}}}},
    {"Alarms before midnight of their events: a single one, a daily one, a weekly one",
     {WithAlarm(Single("Train", kTomorrow), 0, 10, 20), WithAlarm(Pills(), 0, 10, 20),
      WithAlarm(Daily("class", "Class", kTomorrow, 7), 0, 10, 20)},
     {{"15 23:49:21", "TODAY! Pills", Closes("TODAY!")},
      {"15 23:49:59", "", {}},
      {"15 23:50:01", "ALARM! Class Pills Train", Closes("ALARM!")},
      {"15 23:55:00", "", ClockIsSetTo("15 23:49:40")},
      {"15 23:51:00", "", {}},
      {"16 00:00:03", "TODAY! Class Pills Train", Closes("TODAY!")},
      {"16 23:49:59", "", {}},
      {"16 23:50:01", "ALARM! Pills", Both(Closes("ALARM!"), ComputerSleepsUntil("22 23:49:17"))},
      {"22 23:49:20", "TODAY! Pills, ALARM! Pills, MISSED Mon 23:50 Pills 4 times", Both(Closes("ALARM!"), Closes("TODAY!"))},
      {"22 23:50:01", "ALARM! Class Pills, (MISSED Mon 23:50 Pills 4 times)", {}}}},
    {"at exactly midnight, which is the day of the event",
     {WithAlarm(Single("Train", kTomorrow), 0, 20, 20), WithAlarm(Single("Bus", kTomorrow), 0, 0),
      WithAlarm(Single("Night", kTomorrow), 0, 0, 1)},
     {{"15 23:59:21", "ALARM! Night", Closes("ALARM!")},
      {"15 23:59:59", "", {}},
      {"16 00:00:01", "ALARM! Bus Train", {}},
      {"16 00:00:03", "TODAY! Night Bus Train, (ALARM! Bus Train)", {}}}},
    {"in a minute that the computer slept through",
     {WithAlarm(Pills(), 0, 10, 20)},
     {{"15 23:49:30", "TODAY! Pills", ComputerSleepsUntil("15 23:58:00")},
      {"15 23:58:03", "(TODAY! Pills), ALARM! Pills", Closes("ALARM!")},
      {"16 00:00:03", "TODAY! Pills", Closes("TODAY!")},
      {"16 23:49:30", "", ComputerSleepsUntil("17 00:05:00")},
      {"17 00:05:03", "TODAY! Pills, ALARM! Pills", Both(Closes("ALARM!"), Closes("TODAY!"))},
      {"17 00:15:00", "", {}}}},
    {"entered when their minute has passed",
     {Single("Train", kTomorrow)},
     {{"15 23:54:30", "", Opens(IDM_EDIT)},
      {"15 23:55:00", "", Saves("Train", "00:10", "20")},
      {"15 23:59:00", "", {}},
      {"16 00:00:03", "TODAY! Train", Closes("TODAY!")},
      {"16 23:59:00", "", {}}}},
    {"A daily alarm, and a computer that sleeps over the weekend",
     {WithAlarm(Pills(kToday.PlusDays(2)), 18, 0)},
     {{"17 09:00:20", "TODAY! Pills", ComputerSleepsUntil("20 08:00:00")},
      {"20 08:00:03", "TODAY! Pills, ALARM! Pills, MISSED Sat 18:00 Pills 2 times", {}}}},
    {"Another user's weekly event that is stale, while the list shows another category",
     {},
     {{"15 09:00:05", "", Shows("Layer 5")},
      {"15 10:00:01", "ALARM! Weekly", Closes("ALARM!")},
      {"22 10:00:01", "ALARM! Weekly", TrayTells("KAZ - 1 event due today")}},
     {SharedBy("Bob", WithAlarm(Daily("weekly", "Weekly", kToday.PlusDays(-14), 7), 10, 0))}},
    {"Another's alarm with the code and the minute of an own one, and one that he saves while an editor is open",
     {WithAlarm(OneOff("1", "Mine", kToday), 9, 2)},
     {{"15 09:00:03", "TODAY! Mine", Closes("TODAY!")},
      {"15 09:02:01", "ALARM! His Mine", Opens(IDM_ADD)},
      {"15 09:02:31", "ALARM! His Mine", BobSaves(SharedBy("Bob", WithAlarm(Single("Party"), 9, 4)))},
      {"15 09:04:01", "ALARM! Party His Mine", Saves("Milk")}},
     {SharedBy("Bob", WithAlarm(OneOff("1", "His", kToday), 9, 2))}},
    {"What comes up stands the nearest first, then it is today, then it is over",
     {Soon("Far", 5, 5), Soon("Trip", 2, 30), Soon("Club", 2, 2), Soon("Walk", 1, 1),
      Soon("Too far", 3, 2), Soon("Never before its day", 1, 0)},
     {{"15 09:00:03", "COMING UP In 1 day: Walk In 2 days: Club In 2 days: Trip In 5 days: Far", Hears("")},
      {"15 09:01:01", "COMING UP In 1 day: Walk In 2 days: Club In 2 days: Trip In 5 days: Far",
       LetsSleep("COMING UP", "9000")},
      {"15 23:59:59", "", {}},
      {"16 00:00:03",
       "COMING UP In 1 day: Club In 1 day: Trip In 2 days: Too far In 4 days: Far, TODAY! Never before its day Walk",
       ComputerSleepsUntil("20 09:00:00")},
      {"20 09:00:03", "TODAY! Far, MISSED Sat Too far | Fri Club | Fri Trip | Thu Never before its day | Thu Walk", ComputerSleepsUntil("21 09:00:00")},
      {"21 09:00:03", "MISSED Mon Far | Sat Too far | Fri Club | Fri Trip | Thu Never before its day | Thu Walk", {}}}},
    {"What is deleted neither rings nor comes up again",
     {WithAlarm(Daily("pills", "Pills", kToday), 9, 2), Soon("Trip", 2, 5), Single("Tea", kTomorrow)},
     {{"15 09:00:05", "COMING UP In 2 days: Trip, TODAY! Pills", Deletes(0)},
      {"15 09:01:00", "COMING UP In 2 days: Trip, TODAY! Pills", Deletes(1)},
      {"15 09:03:00", "COMING UP In 2 days: Trip, TODAY! Pills", ComputerSleepsUntil("16 09:00:00")},
      {"16 09:00:03", "TODAY! Tea", {}}}},
    {"Alarms that are off, of another day or with a date do not ring",
     {WithAlarm(Single("Tomorrow", kTomorrow), 9, 2), [] {
          clsEvent off = WithAlarm(Single("Off"), 9, 2);
          off.AlarmSet(false);
          return off;
      }(), [] {
          clsEvent dated = WithAlarm(Single("Dated"), 9, 2);
          dated.AlarmTime(kToday.PlusMinutes(542));
          return dated;
      }()},
     {{"15 09:00:03", "TODAY! Dated Off", Closes("TODAY!")}, {"15 09:02:31", "", {}}}},
    {"An alarm that sleeps is woken by the next one, with its sound",
     {WithAlarm(Single("Dentist"), 9, 2), Loud(WithAlarm(Single("Bus"), 9, 4), "C:\\gong.wav")},
     {{"15 09:00:03", "TODAY! Bus Dentist", Closes("TODAY!")},
      {"15 09:01:59", "", Hears("gong.wav ")},
      {"15 09:02:01", "ALARM! Dentist", Hears("alarm.wav ")},
      {"15 09:02:10", "(ALARM! Dentist)", LetsSleep("ALARM!", "10")},
      {"15 09:03:59", "", Hears("")},
      {"15 09:04:01", "ALARM! Bus Dentist", Hears("gong.wav ")},
      {"15 09:04:33", "ALARM! Bus Dentist", Hears("gong.wav ")},
      {"15 09:04:40", "(ALARM! Bus Dentist)", LetsSleep("ALARM!", "99999")},
      {"15 09:04:50", "", ComputerSleepsUntil("22 07:42:50")},
      {"22 07:43:39", "", {}},
      {"22 07:43:41", "ALARM! Bus Dentist", Hears("gong.wav ")}}},
    {"The sound of today's window is that of the last one that has one, and the usual one when it is gone",
     {Loud(Single("Plain"), ""), Loud(Single("Loud"), "C:\\gone.wav"),
      Running(Single("Runs a file"), "C:\\backup.cmd")},
     {{"15 09:00:03", "TODAY! Loud Plain", Hears("alarm.wav ")},
      {"15 09:00:20", "(TODAY! Loud Plain)",
       [](Clockwork& story) { story.machine.files.Remove("C:\\KAZ\\alarm.wav"); }},
      {"15 09:00:40", "TODAY! Loud Plain", Hears("(beep) ")},
      {"15 09:00:50", "(TODAY! Loud Plain)", WantsNoSounds},
      {"15 09:01:10", "TODAY! Loud Plain", Hears("")}}},
    {"On a machine without sound",
     {Loud(Single("Tea"), "C:\\gong.wav")},
     {{"15 09:00:04", "TODAY! Tea", Hears("")}},
     {},
     [](Clockwork& story) { story.machine.sound.devices = 0; }},
    {"A reminder that is closed as it appears",
     {Loud(Single("Tea"), "C:\\gong.wav")},
     {{"15 09:00:04", "", {}}, {"15 09:05:00", "", Hears("")}},
     {},
     AsItAppears(Closes("TODAY!"))},
    {"or put to sleep",
     {OneOff("1", "Tea\r\nwith Ann", kToday)},
     {{"15 09:00:04", "", {}}, {"15 09:01:01", "", {}}, {"15 09:01:03", "TODAY! Tea with Ann", {}}},
     {},
     AsItAppears(LetsSleep("TODAY!", "1"))},
    {"A sleep of no minutes lasts one",
     {Single("Tea")},
     {{"15 09:00:10", "TODAY! Tea", LetsSleep("TODAY!", "soon")},
      {"15 09:01:09", "", {}},
      {"15 09:01:10", "TODAY! Tea", LetsSleep("TODAY!", "-5")},
      {"15 09:02:09", "", {}},
      {"15 09:02:10", "TODAY! Tea", LetsSleep("TODAY!", "0.5")},
      {"15 09:03:09", "", {}},
      {"15 09:03:10", "TODAY! Tea", {}}}},
    {"A file is run once a day and shows no window; what cannot be run stops nothing",
     {Running(WithAlarm(Pills(), 9, 2), "  C:\\backup.cmd "),
      Running(WithAlarm(Daily("2", "Missing", kToday), 9, 2), " C:\\gone.exe"),
      WithAlarm(Single("Tea", kTomorrow), 9, 2)},
     {{"15 09:03:00", "", Finds("C:\\backup.cmd", "Can't run C:\\gone.exe - file not found")},
      {"15 09:04:00", "", ComputerSleepsUntil("16 08:59:00")},
      {"16 09:00:00", "TODAY! Tea",
       [](Clockwork& story) { story.machine.shell.refusal = ErrorNumber::PermissionDenied; }},
      {"16 09:03:00", "TODAY! Tea, ALARM! Tea", [](Clockwork& story) {
           EXPECT_THAT(story.Log(),
                       HasSubstr("Error 70 (Permission denied) in DisplayAlarms of clsReminder"));
       }}}},
    {"The minutes that no tick has seen are made up for once, and a file only within the hour",
     {WithAlarm(Single("Early"), 8, 59), WithAlarm(Single("Call"), 9, 1), WithAlarm(Single("Bus"), 11, 0),
      WithAlarm(Single("Train"), 23, 59), Running(WithAlarm(Single("Night"), 9, 59), "C:\\night.cmd"),
      Running(WithAlarm(Single("Lunch"), 10, 0), "C:\\backup.cmd")},
     {{"15 09:00:04", "TODAY! Train Bus Call Early", Closes("TODAY!")},
      {"15 09:00:30", "", ComputerSleepsUntil("15 11:00:20")},
      {"15 11:00:21", "ALARM! Bus Call, MISSED Wed 09:59 Night its file was not run: C:\\night.cmd",
       Both(Finds("C:\\backup.cmd", "Not running C:\\night.cmd - its time has passed"), Closes("ALARM!"))},
      {"15 11:01:31", "(MISSED Wed 09:59 Night its file was not run: C:\\night.cmd)", ClockIsSetTo("15 09:30:00")},
      {"15 09:31:00", "", ComputerSleepsUntil("15 23:58:50")},
      {"15 23:58:55", "MISSED Wed 09:59 Night its file was not run: C:\\night.cmd", ComputerSleepsUntil("16 00:00:30")},
      {"16 00:00:33", "ALARM! Train, (MISSED Wed 09:59 Night its file was not run: C:\\night.cmd)", {}}}},
    {"Today's reminders are asked for again: closed, asleep, at midnight before any tick, and without any",
     {Loud(Single("Tea"), "C:\\gong.wav"), Soon("Trip", 2, 2), WithAlarm(Single("Train"), 23, 59)},
     {{"15 09:00:10", "COMING UP In 2 days: Trip, TODAY! Train Tea", Both(Closes("TODAY!"), Hears("gong.wav "))},
      {"15 09:00:20", "(COMING UP In 2 days: Trip)", LetsSleep("COMING UP", "60")},
      {"15 09:00:40", "", Chooses(IDM_SHOWAGAIN)},
      {"15 09:00:41", "COMING UP In 2 days: Trip, TODAY! Train Tea", Both(Closes("TODAY!"), Hears("gong.wav "))},
      {"15 09:00:50", "(COMING UP In 2 days: Trip)", Closes("COMING UP")},
      {"15 23:58:40", "", ComputerSleepsUntil("16 00:00:10")},
      {"16 00:00:10", "", Chooses(IDM_SHOWAGAIN)},
      {"16 00:00:13", "COMING UP In 1 day: Trip, ALARM! Train", Both(Closes("ALARM!"), Deletes(0))},
      {"16 00:00:20", "(COMING UP In 1 day: Trip)",
       [](Clockwork& story) {
           story.Main()->Click(IDM_SHOWAGAIN);
           EXPECT_THAT(std::exchange(story.machine.dialogs.messages, {}), ElementsAre(HasSubstr("Nothing is due")));
       }},
      {"16 00:00:21", "", {}}}},
    {"Quiet for two hours: alarms and another's question wait, a file runs, and what waited comes with its sound",
     {WithAlarm(Single("Tea"), 9, 5), Running(WithAlarm(Single("Lunch"), 9, 10), "C:\\backup.cmd"),
      WithAlarm(Single("Bus"), 10, 30)},
     {{"15 09:00:10", "TODAY! Bus Tea", Both(Closes("TODAY!"), Both(Hears(""), Chooses(IDM_QUIET)))},
      {"15 09:05:40", "", TrayTells("Quiet until 11:00. Reminders wait until then.\r\nKAZ - 4 events due today")},
      {"15 09:10:01", "", Finds("C:\\backup.cmd", "")},
      {"15 11:00:09", "", Both(Asks(0), Hears(""))},
      {"15 11:00:11", "ALARM! Bus Tea", Both(Asks(1), Hears("alarm.wav "))},
      {"15 11:00:30", "(ALARM! Bus Tea)", TrayTells("KAZ - 4 events due today")}},
     {SharedBy("Bob", Running(WithAlarm(Single("His"), 9, 20), "C:\\his.cmd"))}},
    {"Quiet hours over midnight, behind which a single event has expired; then ended by the user until they come again",
     {WithAlarm(Single("Call"), 23, 0), WithAlarm(Pills(), 6, 30), Single("Train", kTomorrow)},
     {{"15 21:59:50", "TODAY! Pills Call", LetsSleep("TODAY!", "5")},
      {"15 23:00:40", "", TrayTells("Quiet until 07:00. Reminders wait until then.\r\nKAZ - 2 events due today")},
      {"16 06:59:59", "", {}},
      {"16 07:00:01", "TODAY! Train Pills, ALARM! Pills Call", Both(Closes("ALARM!"), Closes("TODAY!"))},
      {"17 05:00:00", "", Both(Chooses(IDM_REMINDERSMENU), Chooses(IDM_QUIET))},
      {"17 05:00:02", "TODAY! Pills", Closes("TODAY!")},
      {"17 06:30:01", "ALARM! Pills", Closes("ALARM!")},
      {"18 06:40:00", "", {}}},
     {},
     [](Clockwork& story) { story.Settings("OWNER,Single\r\nQUIETFROM,22:00\r\nQUIETTO,07:00\r\n"); }},
    {"While another program fills the screen, at most four hours; a screen that is free again counts anew",
     {WithAlarm(Single("Tea"), 9, 5), WithAlarm(Single("Bus"), 13, 30), WithAlarm(Single("Train"), 15, 0)},
     {{"15 09:00:10", "TODAY! Train Bus Tea", Both(Closes("TODAY!"), ScreenIsTaken(true))},
      {"15 13:00:00", "", {}},
      {"15 13:00:40", "ALARM! Tea", Closes("ALARM!")},
      {"15 13:30:01", "ALARM! Bus", Both(Closes("ALARM!"), ScreenIsTaken(false))},
      {"15 14:00:00", "", ScreenIsTaken(true)},
      {"15 15:01:00", "", ScreenIsTaken(false)},
      {"15 15:01:32", "ALARM! Train", {}}},
     {},
     [](Clockwork& story) { story.Settings("OWNER,Single\r\nQUIETFULLSCREEN,-1\r\n"); }},
    {"A quiet outlasts a restart, and ends when the clock goes back or two hours ahead; a reminder that was up stays",
     {Single("Tea"), WithAlarm(Single("Bus"), 9, 59)},
     {{"15 09:00:10", "TODAY! Bus Tea", Chooses(IDM_QUIET)},
      {"15 09:58:00", "(TODAY! Bus Tea)", Restarts},
      {"15 10:30:00", "", ClockIsSetTo("15 10:10:00")},
      {"15 10:10:33", "TODAY! Bus Tea, ALARM! Bus", Both(Closes("ALARM!"), Chooses(IDM_QUIET))},
      {"15 10:11:00", "(TODAY! Bus Tea)", LetsSleep("TODAY!", "10")},
      {"15 10:30:00", "", ClockIsSetTo("15 12:30:00")},
      {"15 12:30:33", "TODAY! Bus Tea", {}}}},
    {"A window that cannot be made",
     {Soon("Trip", 2, 1), Single("Tea", kTomorrow)},
     {{"15 23:59:50", "", [](Clockwork& story) { story.machine.windows.failures = 1; }},
      {"16 00:00:03", "TODAY! Tea", {}}}},
};

}  // namespace

TEST(Clock, WhatIsOnTheScreenAtWhichMinute) {
    for (const Tale& tale : kTales) {
        SCOPED_TRACE(tale.name);
        Clockwork story;
        story.Settings("OWNER,Single\r\n");
        story.machine.files.Put(Story::Path("Events.xml"), FileOf(tale.events));
        for (const char* sound : {"C:\\KAZ\\alarm.wav", "C:\\gong.wav", "C:\\backup.cmd"})
            story.machine.files.Put(sound, SampleWave());
        if (!tale.ofBob.empty()) story.ShareWithBob(tale.ofBob);
        if (tale.before) tale.before(story);
        story.Play(tale.scenes);
        EXPECT_TRUE(story.machine.windows.AllModalsShown());
        EXPECT_THAT(story.machine.dialogs.messages, IsEmpty());
        EXPECT_THAT(story.machine.dialogs.questions, IsEmpty());
    }
}

// Only the list and the host wait for the dialog; what is saved in it hits the
// event that has moved meanwhile.
TEST(Clock, TheListBehindADialogIsFilledWhenTheDialogIsLeft) {
    Clockwork story;
    story.Events({Single("Dentist"), Pills()});
    const auto left = [&] { return story.Main()->Report(IDC_ListEvents).Column(kLeftColumn); };
    story.Play({{"15 23:59:05", "TODAY! Pills Dentist", Opens(IDM_EDIT)},
                {"16 00:00:03", "TODAY! Pills, MISSED Wed Dentist | Wed Pills",
                 [&](Clockwork&) {
                     EXPECT_THAT(left(), ElementsAre("0000", "0000"));
                     EXPECT_EQ(story.Main()->trayTip, "KAZ - 1 event due today");
                     EXPECT_THAT(story.Saved("Expired.xml"), HasSubstr("Dentist"));
                     story.host.raised.clear();
                 }},
                {"16 00:00:20", "(TODAY! Pills), (MISSED Wed Dentist | Wed Pills)", Saves("Dentist again")}});
    story.Advance(1);
    EXPECT_THAT(left(), ElementsAre("0000", "0000"));
    EXPECT_FALSE(story.host.raised.empty());
    EXPECT_THAT(story.Saved("Expired.xml"), Not(HasSubstr("Dentist")));
    EXPECT_THAT(story.Saved("Events.xml"), HasSubstr("<IDCode>Dentist</IDCode>"));
    EXPECT_THAT(story.Saved("Events.xml"), HasSubstr("<DueDate>2023-03-16</DueDate>"));
}
