#pragma once

#include "core/Application.h"
#include "core/MainWindow.h"
#include "fakes/FakePlatform.h"
#include "fakes/Sample.h"
#include "ui/list/EventRows.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace kaz {

// The main window of the user "Smith" on Wednesday, 15 March 2023, at nine, over databases that a test fills
// before it calls Open.
class MainWindowFixture : public testing::Test, public MainWindowEvents {
protected:
    static constexpr DateValue kToday{45000};

    MainWindowFixture();

    // A one-off event in so many days. It is valid until the next one is added to the same database.
    static clsEvent& Add(clsDbXml& database, const std::string& description, int days);
    // Puts the events into the shared folder as those of the user "Ann".
    void ShareAsAnn(const std::vector<clsEvent>& events);
    void Open();
    // Lets the first tick pass, which comes as soon as messages are processed.
    void OpenAndTick();
    FakeReportList& List() { return window->Report(IDC_ListEvents); }
    std::string Column(int column);
    // What the program has logged since the last call, without numbers and times, one text a line.
    std::string Logged();
    std::vector<std::string> Reminders(const std::string& caption) const;

    void fMain_ShutDownKAZ() override { raised.emplace_back("ShutDownKAZ"); }
    void fMain_Rescan() override { raised.emplace_back("Rescan"); }
    void fMain_WindowClosed() override { raised.emplace_back("WindowClosed"); }

    FakePlatform machine;
    Application app{machine.Services()};
    std::shared_ptr<MainWindow> main;
    FakeWindow* window = nullptr;
    std::vector<std::string> raised;  // what the component heard

private:
    std::size_t logRead_ = 0;
};

}  // namespace kaz
