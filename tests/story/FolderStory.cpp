#include "fakes/Matchers.h"
#include "story/Story.h"

#include <functional>

using namespace kaz;

namespace {

const std::string kAway = "D:\\Data";
const std::string kEvents = kAway + "\\Events.xml";

std::string Stored(const Story& story, const char* name) { return story.machine.files.Text(name); }

}  // namespace

TEST(DataFolder, ThatComesLateIsLoadedThenAndNothingIsWrittenInItsPlaceBefore) {
    Story story;
    story.Settings("OWNER,Ann\r\nDATAPATH," + kAway + "\r\n");
    const std::string saved =
        FileOf({OneOff("1", "Tea", story.Today()), Daily("2", "Walk", story.Today(-3))});
    story.Start().ShowMain();
    story.Advance(40);
    EXPECT_THAT(story.Lines("TODAY!"), IsEmpty());
    EXPECT_EQ(IDI_KAZAWAY, story.Main()->trayIcon);

    // The folder first, as a program that synchronises makes it; its midnight too.
    story.machine.files.CreateFolder(kAway);
    story.Jump(0, 15 * 60);
    story.Advance(40);
    EXPECT_THAT(story.machine.files.FilesIn(kAway), IsEmpty());

    story.Jump(-1, 9 * 60);
    story.machine.files.Put(kEvents, saved);
    story.Advance(40);
    EXPECT_THAT(story.Lines("TODAY!"), ElementsAre("Walk", "Tea"));
    EXPECT_THAT(Stored(story, kEvents.c_str()), AllOf(HasSubstr("Tea"), HasSubstr("Walk")));
    EXPECT_EQ(IDI_KAZ, story.Main()->trayIcon);
    EXPECT_THAT(story.machine.dialogs.messages, IsEmpty());
}

// Where the events of a start come from, and what stands in the settings afterwards.
TEST(DataFolder, ThatIsTheProgramsOwnGoesWithIt) {
    const std::string own = "OWNER,Ann\r\nDATAPATH,E:\\KAZ\r\nOWNDATAPATH,E:\\KAZ\r\n";
    const struct {
        const char* what;
        std::string settings;
        bool oldIsThere, eventsBeside;
        std::string expected;
    } cases[] = {
        {"moved to another drive", own, false, true, "C:\\KAZ"},
        {"copied", own, true, true, "C:\\KAZ"},
        {"moved, of an old version", "OWNER,Ann\r\nDATAPATH,E:\\KAZ\r\n", false, true, "C:\\KAZ"},
        {"elsewhere and away for now", "OWNER,Ann\r\nDATAPATH,E:\\KAZ\r\n", false, false, "E:\\KAZ"},
        {"elsewhere", "OWNER,Ann\r\nDATAPATH,E:\\KAZ\r\n", true, true, "E:\\KAZ"},
        {"changed by a program that knows nothing of this",
         "OWNER,Ann\r\nDATAPATH,F:\\Other\r\nOWNDATAPATH,E:\\KAZ\r\n", true, true, "F:\\Other"},
        {"without an owner", "DATAPATH,E:\\KAZ\r\n", true, true, "E:\\KAZ"},
        {"first start", "", false, false, "C:\\KAZ"},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(one.what);
        Story story;
        if (!one.settings.empty()) story.Settings(one.settings);
        if (one.oldIsThere) story.machine.files.Put("E:\\KAZ\\Events.xml", FileOf({}));
        if (one.eventsBeside) story.Events({});
        story.Start();
        EXPECT_THAT(story.Saved("Kaz.ini"), HasSubstr("DATAPATH," + one.expected + "\r\n"));
        EXPECT_THAT(story.Log(), HasSubstr("DB file: " + one.expected + "\\Events.xml"));
    }
}

// How a settings file was saved, and what becomes of it.
TEST(SettingsFile, OfAnotherKindIsReadAsItIsMeantOrLeftAlone) {
    const std::string ann = "OWNER,J\xFCrgen\r\nDATAPATH,C:\\KAZ\r\n";
    const std::string utf8 = "OWNER,J\xC3\xBCrgen\r\nDATAPATH,C:\\KAZ\r\n";
    const struct {
        const char* what;
        std::string text;
        bool read;
    } cases[] = {
        {"as the program writes it", ann, true},
        {"UTF-8", utf8, true},
        {"UTF-8 with its mark", "\xEF\xBB\xBF" + utf8, true},
        {"UTF-16", std::string("\xFF\xFEO\0W\0N\0", 8), false},
        {"zeros", std::string(5000, '\0'), false},
        {"zeros in its second half", ann + std::string(50, '\0'), false},
        {"locked", ann, false},
        {"locked for a moment", ann, true},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(one.what);
        Story story;
        story.Settings(one.text);
        const std::string what = one.what;
        auto& file = story.machine.files.At(Story::Path("Kaz.ini"));
        file.locked = what.starts_with("locked");
        story.machine.pump.whenWaiting = [&] {
            if (what == "locked for a moment") file.locked = story.machine.pump.waited < 4000;
        };
        story.Start();
        EXPECT_EQ(story.component->SettingsInitialised(), one.read);
        if (one.read) {
            EXPECT_THAT(story.Log(), HasSubstr("Shared DB file: Shared_J\xFCrgen.xml"));
            continue;
        }
        EXPECT_EQ(story.machine.pump.waited, 5000);
        EXPECT_THAT(story.Log(), HasSubstr("in Startup of clsComponent"));
        story.component->ShutDown();
        EXPECT_EQ(story.Saved("Kaz.ini"), one.text);
        EXPECT_EQ(story.machine.files.Kind(Story::Path("Events.xml")), PathKind::Missing);
        // The host tries again.
        file.locked = false;
        story.Settings(ann);
        story.component->Startup(Story::kFolder);
        EXPECT_TRUE(story.component->SettingsInitialised());
    }
}
