#pragma once

#include "Stage.h"
#include "core/Application.h"
#include "core/MainWindow.h"
#include "fakes/FakePlatform.h"
#include "fakes/Matchers.h"
#include "fakes/Sample.h"
#include "forms/ReportList.h"
#include "resources/resource.h"
#include "ui/list/EventRows.h"

namespace kaz {

// The user "Smith" at this stage's windows on Wednesday, 15 March 2023, at nine, with the data in "C:\KAZ";
// the rest of the machine is fake.
class FormTest : public testing::Test, public MainWindowEvents {
protected:
    static constexpr DateValue kToday{45000};
    static constexpr char kEventFile[] = "C:\\KAZ\\Events.xml";

    FormTest();

    // A one-off event in so many days. It is valid until the next one is added to the same database.
    static clsEvent& Add(clsDbXml& database, const std::string& description, int days, int category = 1);
    // Puts the events into the shared folder as those of the user "Ann", who is there with "Smith".
    void ShareAsAnn(const std::vector<clsEvent>& events);
    // Another program adds an event to the user's file.
    void SaveElsewhere(const clsEvent& event);
    // What the text of a file is now.
    std::string Saved(const std::string& path) const { return machine.files.Text(path); }

    // The main window; with its first tick, as soon as messages are processed.
    void OpenMain();
    void OpenMainAndTick();
    // The user turns to the newest window of a template; false when there is none.
    bool TurnTo(int dialog) { return (window = stage->Find(dialog)) != nullptr; }
    // What he does in the next modal window of a template, to which he turns meanwhile; it has to end it.
    void InModal(int dialog, const std::function<void()>& user);

    // In the window that he has turned to.
    void Click(int id) { stage->Click(*window, id); }
    void Type(int control, const std::string& text) { stage->Type(*window, control, text); }
    void Choose(int control, int position) { stage->Choose(*window, control, position); }
    void Select(const std::vector<int>& rows) { stage->SelectRows(*window, IDC_ListEvents, rows); }
    void OnRow(int row, int command) {
        Select({row});
        Click(command);
    }
    void Tick() { stage->Tick(*window, IDT_TimerRefresh); }

    // What he sees there.
    std::string Text(int control) const { return window->Text(control); }
    ReportList& List() const { return window->Report(IDC_ListEvents); }
    // A column of the list, row by row: "Dentist|Rent".
    std::string Column(int column = kEventColumn) const;
    // The descriptions of the selected rows likewise.
    std::string Selected() const;
    // The reminder window with that caption, null when it is not there, and its lines.
    Window* Reminder(const std::string& caption) const;
    std::vector<std::string> Reminders(const std::string& caption) const;
    // What was told, and what was logged without numbers and times, since the last call.
    std::vector<std::string> Told() { return std::exchange(machine.dialogs.messages, {}); }
    std::string Logged();

    // Of what cannot be read back from a real window; `fakes` is null where the windows are real.
    FakeWindow& Fake() const { return dynamic_cast<FakeWindow&>(*window); }

    void fMain_ShutDownKAZ() override { raised.emplace_back("ShutDownKAZ"); }
    void fMain_Rescan() override { raised.emplace_back("Rescan"); }
    void fMain_WindowClosed() override { raised.emplace_back("WindowClosed"); }

    FakePlatform machine;
    std::unique_ptr<Stage> stage = Stage::Make();
    FakeWindowFactory* fakes = dynamic_cast<FakeWindowFactory*>(&stage->Windows());
    Application app;
    std::shared_ptr<MainWindow> main;
    Window* window = nullptr;
    std::vector<std::string> raised;  // what the component heard of the main window

private:
    Platform Services();

    std::size_t logRead_ = 0;
};

}  // namespace kaz
