#pragma once

#include "platform/Files.h"
#include "story/Story.h"

#include <gmock/gmock.h>

#include <cstdio>
#include <functional>
#include <vector>

namespace kaz {

// A moment of March 2023, "15 09:00:00"; its 36th is 5 April.
inline DateValue At(const char* text) {
    int day = 0, hour = 0, minute = 0, second = 0;
    EXPECT_EQ(std::sscanf(text, "%d %d:%d:%d", &day, &hour, &minute, &second), 4) << text;
    return DateValue(DateValue::FromCivil(2023, 3, day).Day(),
                     DateValue::FromTime(hour, minute, second).SecondOfDay());
}

// Where a button is asked for.
inline constexpr int kItsCloseBox = 0;

// A story by the clock: what is on the screen at which minute, and what is done then.
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

    // The program starts four seconds before the first scene.
    void Play(const std::vector<Scene>& scenes) {
        scenes_ = scenes;
        machine.clock.now = DateValue::FromSerial(At(scenes.front().at).Serial() - 4.0 / 86400);
        Start().ShowMain();
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

    // What was played since the last call, a beep as "(beep)"; a stop before each sound does not count.
    std::string Heard() {
        std::string heard;
        for (const auto& call : std::exchange(machine.sound.calls, {}))
            if (!call.file.empty()) heard += FileNameOf(call.file) + " ";
        for (int i = std::exchange(machine.sound.beeps, 0); i > 0; --i)
            heard += "(beep) ";
        return heard;
    }

private:
    std::string Screen() {
        std::string screen;
        for (const char* heading : {"COMING UP", "TODAY!", "ALARM!"}) {
            FakeWindow* window = Reminder(heading);
            if (!window || !window->IsVisible()) continue;
            EXPECT_EQ(window->topMost, heading == std::string("ALARM!"));
            std::string text = heading;
            for (const std::string& line : Lines(heading))
                text += " " + line;
            Add(screen, *window, text);
        }
        if (FakeWindow* missed = Reminder("MISSED"); missed && missed->IsVisible()) {
            std::string text;
            const FakeReportList& list = missed->Report(IDC_lstMissed);
            for (int row = 0; row < list.RowCount(); ++row) {
                text += (row == 0 ? "MISSED " : " | ") + list.Cell(row, 0).substr(0, 3);
                for (int column = 1; column < 5; ++column)
                    if (!list.Cell(row, column).empty()) text += " " + list.Cell(row, column);
            }
            Add(screen, *missed, text);
        }
        return screen;
    }
    static void Add(std::string& screen, FakeWindow& window, const std::string& text) {
        const bool came = std::exchange(window.broughtToFront, 0) > 0;
        screen += (screen.empty() ? "" : ", ") + (came ? text : "(" + text + ")");
    }

    std::vector<Scene> scenes_;
    std::size_t next_ = 0;
    bool left_ = false;
};

using Act = Clockwork::Act;

// In a window that is not there, nothing; the scene has said so.
inline Act Closes(const char* heading) {
    return [=](Clockwork& story) {
        if (FakeWindow* window = story.Reminder(heading)) window->Click(IDC_cmdContinue);
    };
}
inline Act Both(const Act& first, const Act& second) {
    return [=](Clockwork& story) {
        first(story);
        second(story);
    };
}
inline Act LetsSleep(const char* heading, const char* minutes) {
    return [=](Clockwork& story) {
        FakeWindow* window = story.Reminder(heading);
        if (!window) return;
        window->Type(IDC_txtSleep, minutes);
        window->Click(IDC_cmdRemindMe);
    };
}
// In the window with that heading, of whichever kind; rows count from 0.
inline Act Presses(const char* heading, int button, std::vector<int> rows = {}) {
    return [=](Clockwork& story) {
        FakeWindow* window = story.Reminder(heading);
        ASSERT_NE(window, nullptr) << heading;
        const int list = window->Dialog() == IDD_MISSED ? IDC_lstMissed : IDC_lstReminders;
        if (!rows.empty()) window->Report(list).UserSelects(rows);
        window->Raise(list, Raised::Select);
        if (button == kItsCloseBox)
            window->CloseBox();
        else
            window->Click(button);
    };
}
// The program ends, as if it died or properly, and begins again at that moment.
inline Act IsOffUntil(const char* moment, bool dies = false) {
    return [=](Clockwork& story) {
        if (!dies) story.component->ShutDown();
        story.component.reset();
        story.machine.clock.now = At(moment);
        story.Start().ShowMain();
    };
}
// At another computer that works on the same folder.
inline void AllIsAnsweredElsewhere(Clockwork& story) {
    cSharedLogging log(story.machine.files, story.machine.clock, story.machine.system, {"Other", "1"});
    SideFile side(story.machine.files, log);
    side.Open(Story::Path("Events.side"));
    side.Refresh();
    Outcomes outcomes(side);
    std::vector<OccurrenceRef> all;
    for (const Outcomes::Open& open : outcomes.AllOpen())
        all.push_back(open.last);
    outcomes.Answer(all);
}
// No timer ticks meanwhile.
inline Act ComputerSleepsUntil(const char* moment) {
    return [=](Clockwork& story) {
        story.machine.clock.now = At(moment);
        if (story.Main()->asksForResumes) story.Main()->Raise(0, Raised::Resumed);
    };
}
inline Act ClockIsSetTo(const char* moment) {
    return [=](Clockwork& story) {
        story.machine.clock.now = At(moment);
        story.Main()->Raise(0, Raised::ClockChanged);
    };
}
inline Act Opens(int command, int row = 0) {
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
inline Act Saves(const char* description, const char* alarm = nullptr, const char* warning = "0") {
    return [=](Clockwork& story) {
        story.editor->Type(IDC_txtDesc, description);
        if (alarm) {
            story.editor->Toggle(IDC_chkTimed);
            story.editor->Type(IDC_txtTime, alarm);
            story.editor->Type(IDC_txtMinutesWarning, warning);
            if (!story.editor->Checked(IDC_chkDay + 2)) story.editor->Toggle(IDC_chkDay + 2);  // Wednesday
        }
        // If its day has passed meanwhile, it is moved to the next one.
        story.machine.dialogs.yesNo = {true};
        story.editor->Click(IDC_cmdSave);
        story.machine.dialogs.yesNo.clear();
        story.machine.dialogs.questions.clear();
        story.Leave();
    };
}
inline Act Chooses(int command) {
    return [=](Clockwork& story) { story.Main()->Click(command); };
}
// The program ends and starts anew; nothing of before is on the screen.
inline void Restarts(Clockwork& story) {
    story.component->ShutDown();
    story.Start().ShowMain();
}
inline Act ScreenIsTaken(bool taken) {
    return [=](Clockwork& story) { story.machine.screen.taken = taken; };
}
inline Act Asks(int questions) {
    return [=](Clockwork& story) {
        EXPECT_EQ(story.machine.windows.All(IDD_RUNFILE).size(), static_cast<std::size_t>(questions));
    };
}
inline Act Deletes(int row) {
    return [=](Clockwork& story) {
        story.Main()->Report(IDC_ListEvents).UserSelects({row});
        story.machine.dialogs.yesNo = {true};
        story.Main()->Click(IDM_DELETE);
        story.machine.dialogs.questions.clear();
    };
}
inline Act BobSaves(const clsEvent& event) {
    return [=](Clockwork& story) { story.machine.files.Put("C:\\Share\\Shared_Bob.xml", FileOf({event})); };
}
// The user is so quick that the window is still about to appear.
inline Act AsItAppears(const Act& act) {
    return [=](Clockwork& story) {
        story.machine.pump.waiting = [&story, act] {
            if (story.Lines("TODAY!").empty()) return;
            const auto once = std::exchange(story.machine.pump.waiting, nullptr);
            act(story);
        };
    };
}
inline Act TrayTells(const char* tip) {
    return [=](Clockwork& story) { EXPECT_EQ(*story.Main()->trayTip, tip); };
}
inline Act Hears(const char* sounds) {
    return [=](Clockwork& story) { EXPECT_EQ(story.Heard(), sounds); };
}
inline Act Finds(const char* fileThatRan, const char* inTheLog) {
    return [=](Clockwork& story) {
        EXPECT_THAT(std::exchange(story.machine.shell.opened, {}), testing::ElementsAre(fileThatRan));
        EXPECT_THAT(story.Log(), testing::HasSubstr(inTheLog));
    };
}
inline void WantsNoSounds(Clockwork& story) {
    story.machine.windows.OnModal([](FakeWindow& options) {
        options.SetChecked(IDC_chkNoSound, true);
        options.Click(IDC_cmdSaveOptions);
    });
    story.Main()->Click(IDM_SETTINGS);
}
inline Act Shows(const char* category) {
    return [=](Clockwork& story) {
        const auto names = story.Main()->Items(IDC_cmbCategories);
        for (int i = 0; std::cmp_less(i, names.size()); ++i)
            if (names[static_cast<std::size_t>(i)] == category) story.Main()->Choose(IDC_cmbCategories, i);
    };
}

}  // namespace kaz
