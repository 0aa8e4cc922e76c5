#include "SoakMachine.h"
#include "core/clsComponent.h"
#include "fakes/RecordingHost.h"
#include "fakes/Sample.h"
#include "platform/Clock.h"
#include "platform/Files.h"
#include "resources/resource.h"
#include "ui/FormFactory.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <iostream>

namespace kaz {
namespace {

// What a user, the clock and other users do with the program in months, each round the same.
class SoakTest : public testing::Test {
protected:
    SoakTest() {
        Write("KAZShared.ini", "Ann\r\nBob\r\n");
        Write("Kaz.ini", "OWNER,Ann\r\nNETWORKED,-1\r\nNOSOUNDS,-1\r\nDATAPATH," + folder_ +
                             "\r\nSHAREDDATAPATH," + folder_ + "\r\n");
        std::vector<clsEvent> events;
        for (int hour = 0; hour < 24; ++hour) {
            const clsEvent event = Daily(std::to_string(100001 + hour), "Alarm", services_.clock.Today());
            events.push_back(Of("Ann", WithAlarm(event, hour, 0)));
        }
        Write("Events.xml", FileOf(events));
        component_.Startup(folder_);
        component_.ShowMain();
        component_.ScanEvents();
    }
    ~SoakTest() override { component_.ShutDown(); }

    void Write(const std::string& name, const std::string& text) {
        WriteWholeFile(services_.files, JoinPath(folder_, name), text);
    }
    void CloseAll(int dialog) {
        for (Window* window : stage_.All(dialog))
            stage_.CloseBox(*window);
    }
    // An hour, of which 24 are a day, each with its alarm.
    void Round() {
        const std::string party = "Party " + std::string(1, static_cast<char>('A' + rounds_++ % 26));
        const DateValue tomorrow = services_.clock.Today().PlusDays(1);
        Write("Shared_Bob.xml", FileOf({SharedBy("Bob", OneOff("000009", party, tomorrow))}));
        Window& main = *stage_.Find(IDD_MAIN);
        machine_->PassAnHour();
        stage_.Tick(main, IDT_TimerRefresh);
        for (const auto& [command, dialog] : {std::pair{IDM_ADD, IDD_EVENT},
                                              {IDM_SETTINGS, IDD_OPTIONS},
                                              {IDM_EDITLAYERS, IDD_LAYERS},
                                              {IDM_ABOUT, IDD_ABOUT}}) {
            stage_.OnModal(dialog, [this](Window& window) { stage_.CloseBox(window); });
            stage_.Click(main, command);
        }
        stage_.SelectRows(main, IDC_ListEvents, {0});
        stage_.OnModal(IDD_EVENT, [this](Window& editor) { stage_.Click(editor, IDC_cmdSave); });
        for (const int command : {IDM_EDIT, IDM_MONTHVIEW, IDM_TASKLIST, IDM_REFRESH})
            stage_.Click(main, command);
        for (const int dialog : {IDD_MONTH, IDD_TASKS, IDD_REMINDER})
            CloseAll(dialog);
        component_.HideMain();
        component_.ShowMain();
        Write("Log_KAZ.txt", "");
        std::vector<std::string>().swap(host_.raised);
    }
    auto Soak(double seconds) {
        using Clock = std::chrono::steady_clock;
        const Clock::time_point begin = Clock::now();
        for (int i = 0;
             i < machine_->Rounds() || std::chrono::duration<double>(Clock::now() - begin).count() < seconds;
             ++i)
            Round();
        stage_.Wait(200);  // a form that is closed goes by a timer, once none of its handlers runs
        const auto counts = machine_->Counts();
        std::cout << "after " << rounds_ << " rounds:";
        for (const auto& [what, count] : counts)
            std::cout << " " << count.now << " " << what;
        std::cout << std::endl;
        return counts;
    }

    std::unique_ptr<SoakMachine> machine_ = SoakMachine::Make();
    Stage& stage_ = *machine_->stage;
    const std::string folder_ = machine_->Folder();
    Platform services_ = machine_->Services();
    RecordingHost host_;
    clsComponent component_{services_, MakeMainWindow, host_};
    int rounds_ = 0;
};

// A few rounds in the usual run; tools/soak has them go on for minutes.
TEST_F(SoakTest, EndsWithWhatItBeganWith) {
    const char* minutes = std::getenv("KAZ_SOAK_MINUTES");
    const double seconds = minutes ? 60 * std::atof(minutes) : 0;
    const auto begin = Soak(seconds / 20);
    for (const auto& [what, count] : Soak(seconds * 19 / 20))
        EXPECT_LE(count.now, begin.at(what).now + count.mayGrow) << what;
}

}  // namespace
}  // namespace kaz
