#include "FormTest.h"

namespace kaz {
namespace {

class HealthBarTest : public FormTest {
protected:
    using Weight = Health::Weight;

    void Tell(const std::string& key, Weight weight, const std::vector<std::string>& captions = {}) {
        Health::Notice notice{key, weight, "About " + key, {}};
        for (const std::string& caption : captions)
            notice.actions.push_back({caption, [this, key, caption] {
                                          done.push_back(key + ": " + caption);
                                          app.health.Clear(key);
                                      }});
        app.health.Tell(notice);
    }
    // "" without a bar; behind it the captions of the buttons and the place among several.
    std::string Bar() {
        if (!window->ControlVisible(IDC_lblHealth)) return {};
        std::string text = window->Text(IDC_lblHealth);
        for (int button = 0; button < 3; ++button)
            if (window->ControlVisible(IDC_cmdHealth + button))
                text += " [" + window->Text(IDC_cmdHealth + button) + "]";
        return window->ControlVisible(IDC_cmdHealthNext) ? text + " " + window->Text(IDC_lblHealthCount)
                                                         : text;
    }
    void ExpectTray(const std::string& tip, int icon) {
        if (!fakes) return;  // the shell does not tell what its tray shows
        EXPECT_EQ(tip, Fake().trayTip);
        EXPECT_EQ(icon, Fake().trayIcon) << tip;
    }
    std::vector<std::string> done;
};

TEST_F(HealthBarTest, ShowsTheHeaviestAndWhatTheUserTurnedToUntilAHeavierOneComes) {
    Tell("a", Weight::Note, {"Yes"});
    OpenMainAndTick();
    EXPECT_EQ("About a [&Yes]", Bar());
    ExpectTray("About a\r\nKAZ - nothing due today", IDI_KAZ);
    Tell("a", Weight::Warning, {"Yes"});
    ExpectTray("About a\r\nKAZ - nothing due today", IDI_KAZWARNING);
    Tell("a", Weight::Note, {"Yes"});
    Tell("b", Weight::Warning, {"Yes", "You & I", "xwniryu"});
    EXPECT_EQ("About b [&Yes] [Y&ou && I] [xwniry&u] 1 of 2", Bar());
    ExpectTray("About b\r\nKAZ - nothing due today", IDI_KAZWARNING);
    Click(IDC_cmdHealthNext);
    Tell("c", Weight::Note);
    EXPECT_EQ("About a [&Yes] 2 of 3", Bar());
    Tell("d", Weight::Alarm);
    EXPECT_EQ("About d 1 of 4", Bar());
    if (fakes) {
        EXPECT_EQ(Tone::Alarm, Fake().noticeTone);
    }

    // A button may do away with its own notice.
    Click(IDC_cmdHealthNext);
    Click(IDC_cmdHealth + 1);
    EXPECT_THAT(done, ElementsAre("b: You & I"));
    EXPECT_EQ("About d 1 of 3", Bar());
    for (const char* key : {"d", "a", "c"})
        app.health.Clear(key);
    EXPECT_EQ("", Bar());
    ExpectTray("KAZ - nothing due today", IDI_KAZ);
    Tell(std::string(200, 'x'), Weight::Alarm);
    if (fakes) {
        EXPECT_EQ(127U, Fake().trayTip->size());
        EXPECT_THAT(*Fake().trayTip, StartsWith("About xxx"));
    }
    main->Unload();
    app.health.Clear(std::string(200, 'x'));
}

TEST_F(HealthBarTest, TheTraysIconSaysAtAGlanceWhetherRemindersWork) {
    app.sideFile.Open(JoinPath(app.runtimePath, "Events.side"));
    const auto misses = [this](int count) {
        return [this, count] {
            for (const Outcomes::Open& open : app.outcomes.AllOpen())
                app.outcomes.NoteAnswered(open.last);
            const DateValue day = app.platform.clock.Today();
            for (int i = 0; i < count; ++i)
                app.outcomes.AddOpen(
                    {{{"Shared_Bob", std::to_string(count * 10 + i), "A"}, day, day}, day, 1, "Gig"});
        };
    };
    const auto pressFirst = [this] { Click(IDC_cmdHealth); };
    const auto ok = [this] { Click(IDC_cmdHealth + 1); };
    const struct {
        std::function<void()> before;
        int ticks;
        int icon;
        const char* bar;
    } cases[] = {
        {{}, 1, IDI_KAZ, ""},
        {misses(3), 1, IDI_KAZMISSED, "3 missed reminders wait for your answer. [&Show them]"},
        {misses(1), 1, IDI_KAZMISSED, "1 missed reminder waits for your answer. [&Show them]"},
        {misses(0), 1, IDI_KAZ, ""},
        {[&] { app.settings.StoreSetting("NoSounds", true); }, 1, IDI_KAZSILENT,
         "Reminders come without a sound: sounds are off in the settings. [&Sounds on] [&OK]"},
        {pressFirst, 0, IDI_KAZ, ""},
        {[&] { app.settings.StoreSetting("NoSounds", true); }, 1, IDI_KAZSILENT, nullptr},
        {ok, 20, IDI_KAZ, ""},
        {[&] { app.settings.StoreSetting("NoSounds", false); }, 1, IDI_KAZ, ""},
        {[&] { machine.sound.devices = 0; }, 20, IDI_KAZSILENT,
         "Reminders come without a sound: this computer has no sound device just now. [&OK]"},
        {misses(2), 1, IDI_KAZMISSED, nullptr},
    };
    OpenMain();
    for (const auto& each : cases) {
        if (each.before) each.before();
        for (int i = 0; i < each.ticks; ++i)
            Tick();
        if (fakes) {
            EXPECT_EQ(each.icon, Fake().trayIcon) << &each - cases;
        }
        if (each.bar) {
            EXPECT_EQ(each.bar, Bar()) << &each - cases;
        }
    }
}

TEST_F(HealthBarTest, TakesItsRoomFromTheListAndKeepsItsPartsApart) {
    if (!fakes)
        GTEST_SKIP() << "a real window places what is above the bar itself; its pictures are in win32/";
    OpenMain();
    constexpr int kLetter = FakeWindow::kLetterWidth;
    for (const int width : {200, 450, 900, 1800})
        for (const int captions : {0, 1, 3}) {
            SCOPED_TRACE(std::to_string(width) + " wide, " + std::to_string(captions) + " buttons");
            window->SetPlace(IDC_fraFilter, {10, 30, width, 40});
            Tell("the disk, which is full" + std::string(100, '.'), Weight::Alarm,
                 std::vector<std::string>(static_cast<std::size_t>(captions), "Save a copy elsewhere..."));
            Tell("b", Weight::Note);
            Fake().Raise(0, Raised::Resize);
            const int bottom = 70 + Fake().roomAbove[IDC_ListEvents];
            std::vector<ControlPlace> places;
            for (int control = IDC_lblHealth; control <= IDC_cmdHealthNext; ++control)
                if (window->ControlVisible(control)) places.push_back(window->Place(control));
            for (const ControlPlace& place : places) {
                EXPECT_GE(place.left, 10);
                EXPECT_LE(place.left + place.width, 10 + width);
                EXPECT_GT(place.top, 70);
                EXPECT_LE(place.top + place.height, bottom);
                for (const ControlPlace& other : places)
                    if (place.left < other.left && place.top < other.top + other.height &&
                        other.top < place.top + place.height) {
                        EXPECT_LE(place.left + place.width, other.left);
                    }
            }
            // A text beside buttons keeps enough for itself.
            EXPECT_GE(places.front().width, std::min(width, 20 * kLetter));
            app.health.Clear("b");
            app.health.Clear("the disk, which is full" + std::string(100, '.'));
        }
}

}  // namespace
}  // namespace kaz
