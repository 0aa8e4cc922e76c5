#pragma once

#include "core/clsComponent.h"
#include "fakes/FakePlatform.h"
#include "fakes/RecordingHost.h"
#include "fakes/Sample.h"
#include "ui/FormFactory.h"

#include <optional>
#include <string>

namespace kaz {

// The whole program on fakes, as its user and its host see it. The clock stands at 15 March 2023 (a
// Wednesday), 9:00.
class Story {
public:
    static constexpr const char* kFolder = "C:\\KAZ";

    void Events(std::initializer_list<clsEvent> events) {
        machine.files.Put(Path("Events.xml"), FileOf(events));
    }
    void Settings(const std::string& text) { machine.files.Put(Path("Kaz.ini"), text); }
    // The user is Ann and shares with Bob, whose events these are.
    void ShareWithBob(const std::vector<clsEvent>& events) {
        Settings("OWNER,Ann\r\nNETWORKED,-1\r\nSHAREDDATAPATH,C:\\Share\r\n");
        machine.files.Put("C:\\Share\\KAZShared.ini", "Ann\r\nBob\r\n");
        machine.files.Put("C:\\Share\\Shared_Bob.xml", FileOf(events));
    }
    static std::string Path(const std::string& name) { return std::string(kFolder) + "\\" + name; }

    clsComponent& Start(const std::string& folder = kFolder) {
        component.emplace(machine.Services(), MakeMainWindow, host);
        component->Startup(folder);
        return *component;
    }
    // Time passes on the clock and for the timers of the windows alike.
    void Advance(int seconds) {
        for (int i = 0; i < seconds; ++i) {
            machine.clock.now = DateValue::FromSerial(machine.clock.now.Serial() + 1.0 / 86400);
            machine.windows.Advance(1000);
        }
    }
    void Jump(int days, int minutes = 0) {
        machine.clock.AdvanceDays(days);
        machine.clock.AdvanceMinutes(minutes);
    }

    FakeWindow* Main() const { return machine.windows.Newest(IDD_MAIN); }
    // The reminder window with that heading, null when it is not there.
    FakeWindow* Reminder(const std::string& heading) const { return machine.windows.WithCaption(heading); }
    std::vector<std::string> Lines(const std::string& heading) const {
        const FakeWindow* window = Reminder(heading);
        return window && window->IsVisible() ? window->Items(IDC_lstReminders) : std::vector<std::string>{};
    }
    std::string Log() const { return machine.files.Text(Path("Log_KAZ.txt")); }
    std::string Saved(const std::string& name) const { return machine.files.Text(Path(name)); }

    DateValue Today(int plusDays = 0) const { return machine.clock.Today().PlusDays(plusDays); }

    FakePlatform machine;
    RecordingHost host;
    std::optional<clsComponent> component;
};

}  // namespace kaz
