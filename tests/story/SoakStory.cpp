#include "story/Story.h"

#include <gmock/gmock.h>

#include <cstddef>

#if defined(__SANITIZE_ADDRESS__)
// Of the sanitizer's run-time library, whose headers not every compiler's package has.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();  // NOLINT(bugprone-reserved-identifier)
#elif defined(__GLIBC__)
#include <malloc.h>
#endif

using namespace kaz;

namespace {

std::size_t HeapBytes() {
#if defined(__SANITIZE_ADDRESS__)
    return __sanitizer_get_current_allocated_bytes();
#elif defined(__GLIBC__)
    return mallinfo2().uordblks;
#else
    return 0;  // tools/soak looks at a Windows process from inside
#endif
}

template <class Records>
void Forget(Records& records) {
    Records().swap(records);
}

// A night in an office: alarms, a new day, others' saves and every dialog, each hour the same.
class Soak : public testing::Test {
protected:
    Soak() {
        story.machine.clock.Set(2023, 3, 15, 20, 0);
        story.Events({Alarm("000001", 20, 10), Alarm("000002", 0, 20), Alarm("000003", 3, 10)});
        BobSaves();
        story.Start().ShowMain();
    }

    static clsEvent Alarm(const std::string& code, int hour, int minute) {
        return WithAlarm(Of("Ann", Daily(code, "Alarm " + code, DateValue(45000))), hour, minute);
    }
    void BobSaves() {
        const std::string party = "Party " + std::string(1, static_cast<char>('A' + saves_++ % 26));
        story.ShareWithBob({SharedBy("Bob", OneOff("000009", party, story.Today(1)))});
    }
    void Hour() {
        FakeWindow& main = *story.Main();
        for (int part = 0; part < 12; ++part) {
            BobSaves();
            story.Advance(120);
            for (const int command : {IDM_ADD, IDM_SETTINGS, IDM_EDITLAYERS, IDM_ABOUT}) {
                story.machine.windows.OnModal([](FakeWindow& dialog) { dialog.CloseBox(); });
                main.Click(command);
            }
            main.Report(IDC_ListEvents).UserSelects({0});
            story.machine.windows.OnModal([&](FakeWindow& editor) {
                story.Advance(60);
                editor.Click(IDC_cmdSave);
            });
            main.Click(IDM_EDIT);
            for (const auto& [command, dialog] :
                 {std::pair{IDM_MONTHVIEW, IDD_MONTH}, std::pair{IDM_TASKLIST, IDD_TASKS}}) {
                main.Click(command);
                story.machine.windows.Newest(dialog)->CloseBox();
            }
            story.Advance(120);
            for (FakeWindow* reminder : story.machine.windows.All(IDD_REMINDER))
                reminder->CloseBox();
        }
    }
    struct Count {
        std::size_t windows, bytes;
        int files;
    };
    // What the fakes have written down is not the program's.
    Count Now() {
        story.machine.files.Remove(Story::Path("Log_KAZ.txt"));
        Forget(story.host.raised);
        Forget(story.machine.dialogs.messages);
        Forget(story.machine.dialogs.questions);
        Forget(story.machine.sound.calls);
        Forget(story.Main()->acts);
        std::size_t windows = 0;
        for (const int dialog : {IDD_MAIN, IDD_REMINDER, IDD_EVENT, IDD_MONTH, IDD_TASKS, IDD_OPTIONS})
            windows += story.machine.windows.All(dialog).size();
        return {windows, HeapBytes(), story.machine.files.OpenFiles()};
    }

    Story story;

private:
    int saves_ = 0;
};

TEST_F(Soak, AfterEightHoursNothingHasPiledUp) {
    Hour();
    const Count first = Now();
    for (int hour = 0; hour < 7; ++hour)
        Hour();
    const Count last = Now();
    EXPECT_EQ(last.windows, first.windows);
    EXPECT_EQ(last.files, first.files);
    EXPECT_LT(last.bytes, first.bytes + 4096);
    EXPECT_TRUE(story.machine.windows.AllModalsShown());
    EXPECT_EQ(story.Today(), DateValue(45001));
}

}  // namespace
