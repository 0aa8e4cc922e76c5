#include "unit/reminders/ReminderDesk.h"

#include "base/Text.h"
#include "resources/resource.h"

namespace kaz {

namespace {

DateValue TimeOf(const std::string& text) {
    const int hour = std::stoi(text.substr(0, 2));
    const int minute = std::stoi(text.substr(3, 2));
    return DateValue::FromTime(hour, minute, text.size() > 5 ? std::stoi(text.substr(6)) : 0);
}

}  // namespace

ReminderDesk::ReminderDesk() {
    log.OverrideLogFilename("C:\\KAZ\\Log_KAZ.txt");
    settings.StoreSetting("Owner", std::string("Ann"));
    events.SetDBFilename("C:\\KAZ\\Events.xml");
    expired.SetDBFilename("C:\\KAZ\\Expired.xml");
    shared.SetDBFilename("C:\\KAZ\\Shared_Ann.xml");
}

clsEvent& ReminderDesk::Add(const std::string& description, int inDays, clsDbXml* database) {
    const std::string code = "00" + std::to_string(1000 + codes_++);
    clsEvent event = OneOff(code, description, machine.clock.Today().PlusDays(inDays));
    event.Owner(database == &shared ? "Bob" : "Ann");
    return (database ? database : &events)->AllEvents().emplace_back(event);
}

clsEvent& ReminderDesk::AddAlarm(const std::string& description, const std::string& time,
                                 clsDbXml* database) {
    clsEvent& event = Add(description, 0, database);
    event.AlarmSet(true);
    event.AlarmTime(TimeOf(time));
    return event;
}

clsReminder ReminderDesk::Engine() {
    return clsReminder({machine.clock, machine.locale, machine.files, machine.pump, machine.shell, log,
                        settings, windows, &events, &expired});
}

void ReminderDesk::Alarms(const std::string& time, clsDbXml* database) {
    machine.clock.now = DateValue(machine.clock.now.Day(), TimeOf(time).SecondOfDay());
    Engine().DisplayAlarms(database ? *database : events);
}

std::vector<std::string> ReminderDesk::List(const std::string& heading) {
    const FakeWindow* window = Window(heading);
    return window ? window->Items(IDC_lstReminders) : std::vector<std::string>{};
}

std::vector<std::string> ReminderDesk::TakeLog() {
    const std::string file = machine.files.Text(log.CurrentLogFilename());
    std::vector<std::string> texts;
    for (const auto line : Split(file, kLineBreak))
        if (const auto comma = line.find(", "); comma != std::string_view::npos)
            texts.emplace_back(line.substr(comma + 2));
    machine.files.Remove(log.CurrentLogFilename());
    return texts;
}

std::vector<std::string> ReminderDesk::OnDisk(const std::string& file) {
    clsDbXml database(storage);
    database.LoadDB(folder + "\\" + file);
    return DescriptionsOf(database.AllEvents());
}

}  // namespace kaz
