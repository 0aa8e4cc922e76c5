#include "base/CodePage.h"
#include "base/Text.h"
#include "commands/EventStep.h"
#include "core/Application.h"
#include "fakes/FakePlatform.h"
#include "fakes/Matchers.h"
#include "fakes/Sample.h"
#include "storage/EventOperations.h"

#include <functional>

using namespace kaz;

namespace {

constexpr const char* kLettersFile = "C:\\KAZ\\Events.xml";
constexpr const char* kLettersBeside = "C:\\KAZ\\Events.side";
const std::string kLetters = "Łukasz Ωμέγα 🎂 שלום 日本";

// The program on the files of a machine, when it has just started.
struct LettersProgram {
    explicit LettersProgram(FakePlatform& machine) : app(machine.Services()) {
        app.settings.StoreSetting("Owner", std::string("Single"));
        app.layers.LoadLayers();
        app.MakeDatabases();
        app.sideFile.Open(kLettersBeside);
        app.events->LoadDB(kLettersFile);
        app.expired->LoadDB("C:\\KAZ\\Expired.xml");
    }
    const clsEvent& First() const { return app.events->AllEvents().front(); }
    Application app;
};

// A machine on which such an event was entered.
struct LettersEntered {
    LettersEntered() {
        machine.files.Put(kLettersFile, FileOf({}));
        machine.files.Put("C:\\KAZ\\Expired.xml", FileOf({}));
        LettersProgram program(machine);
        clsEvent event = Daily("", kLetters, machine.clock.Today(), 7);
        event.Filename = "C:\\Łódź\\🎂.exe";
        event.Email = "łukasz@example.org";
        EventOperations(*program.app.events, *program.app.expired, program.app.Storage()).AddEvent(event);
    }
    void Replace(const std::string& path, const std::string& what, const std::string& with) {
        machine.files.Put(path, ReplaceAll(machine.files.Text(path), what, with));
    }
    FakePlatform machine;
};

}  // namespace

TEST(Letters, BeyondTheCodePageAreTakenAsLongAsTheFieldIsTheirs) {
    const std::string nearest = CodePage::OfSystem().Decode(CodePage::OfSystem().Encode(kLetters));
    const struct {
        const char* what;
        std::function<void(LettersEntered& machine)> meanwhile;
        std::string text;
        std::string file;
    } cases[] = {
        {"nothing", [](LettersEntered&) {}, kLetters, "C:\\Łódź\\🎂.exe"},
        {"an older program changes another field",
         [](LettersEntered& on) { on.Replace(kLettersFile, "<DaysWarning>0<", "<DaysWarning>3<"); }, kLetters,
         "C:\\Łódź\\🎂.exe"},
        {"it changes the rule, too",
         [](LettersEntered& on) { on.Replace(kLettersFile, "<Period>7<", "<Period>9<"); }, kLetters,
         "C:\\Łódź\\🎂.exe"},
        {"it changes the text", [](LettersEntered& on) { on.Replace(kLettersFile, "Lukasz", "Lucas"); },
         ReplaceAll(nearest, "Lukasz", "Lucas"), "C:\\Łódź\\🎂.exe"},
        {"it changes the file to run",
         [](LettersEntered& on) { on.Replace(kLettersFile, "<Filename>C", "<Filename>D"); }, kLetters,
         "D:\\?\u00F3d?\\?.exe"},
        {"the file beside goes", [](LettersEntered& on) { on.machine.files.Remove(kLettersBeside); }, nearest,
         "C:\\?\u00F3d?\\?.exe"},
        {"the letters in it break",
         [](LettersEntered& on) { on.Replace(kLettersBeside, "%C5%81ukasz", "%C5%FFukasz"); }, nearest,
         "C:\\Łódź\\🎂.exe"},
        {"a zero is put among them",
         [](LettersEntered& on) { on.Replace(kLettersBeside, "%C5%81ukasz", "%00%C5%81ukasz"); }, nearest,
         "C:\\Łódź\\🎂.exe"},
        {"a longer form of a letter",
         [](LettersEntered& on) { on.Replace(kLettersBeside, "%81ukasz", "%81%C0%80ukasz"); }, nearest,
         "C:\\Łódź\\🎂.exe"},
        {"another code page wrote them",
         [](LettersEntered& on) { on.Replace(kLettersBeside, "%C5%81ukasz", "%C3%BEukasz"); }, nearest,
         "C:\\Łódź\\🎂.exe"},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(one.what);
        LettersEntered on;
        // Which letters are near is the system's to say.
        EXPECT_THAT(on.machine.files.Text(kLettersFile), HasSubstr("<Desc>Lukasz%20"));
        EXPECT_THAT(on.machine.files.Text(kLettersFile), HasSubstr("<Filename>C:\\?\xF3\x64?\\?.exe<"));
        one.meanwhile(on);
        const std::string file = on.machine.files.Text(kLettersFile);
        LettersProgram program(on.machine);
        EXPECT_EQ(program.First().Desc(), one.text);
        EXPECT_EQ(program.First().Filename, one.file);
        EXPECT_FALSE(program.app.events->HasUnsaved()) << "it counts as changed here";
        program.app.events->SaveDB();
        EXPECT_EQ(on.machine.files.Text(kLettersFile), file);
    }
}

TEST(Letters, AloneAreAChangeThatIsSavedToldAndTakenBack) {
    LettersEntered on;
    const std::string file = on.machine.files.Text(kLettersFile);
    LettersProgram program(on.machine);
    LettersProgram other(on.machine);
    EventOperations operations(*program.app.events, *program.app.expired, program.app.Storage());
    const auto edit = [&](const std::string& text) {
        EventEdit change{program.First(), program.First(), false, EditMode::Whole};
        change.after.Desc(text);
        operations.EditEvent(change, false);
        EventStep::Record(program.app, "change", operations.TakeChanges());
    };
    edit("\u0141ukasz Ωμέγα 🍰 שלום 日本");
    EXPECT_EQ(on.machine.files.Text(kLettersFile), file) << "the nearest letters are the same";
    EXPECT_THAT(LettersProgram(on.machine).First().Desc(), HasSubstr("🍰"));
    other.app.sideFile.Refresh();
    other.app.events->TakeExtras();
    EXPECT_THAT(other.First().Desc(), HasSubstr("🍰"));
    EXPECT_FALSE(other.app.events->HasUnsaved());
    program.app.undo.Take(UndoHistory::Way::Back);
    EXPECT_EQ(LettersProgram(on.machine).First().Desc(), kLetters);
    edit("plain");
    EXPECT_EQ(LettersProgram(on.machine).First().Desc(), "plain");
    EXPECT_THAT(on.machine.files.Text(kLettersBeside), Not(HasSubstr("Desc")));
}
