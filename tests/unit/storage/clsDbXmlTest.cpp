#include "storage/clsDbXml.h"

#include "base/Text.h"
#include "fakes/Matchers.h"
#include "fakes/Sample.h"
#include "fakes/StorageDesk.h"

#include <utility>

namespace kaz {
namespace {

using namespace std::string_literals;

const std::string kFile = "C:\\Data\\Events.xml";
const std::string kLog = "C:\\KAZ\\log.txt";
constexpr std::string_view kReadOnly = "Output file readonly. Unable to write events.";

class EventDatabase : public testing::Test, protected StorageDesk {
protected:
    EventDatabase() : StorageDesk("Ann") { machine.files.CreateFolder("C:\\Data"); }

    clsDbXml Database() { return clsDbXml(Services()); }

    static clsEvent Event(const std::string& code, const std::string& owner = "Ann") {
        clsEvent event;
        event.IDCode = code;
        event.Owner(owner);
        event.Desc("Event " + code);
        return event;
    }

    static std::vector<std::string> Codes(const clsDbXml& database) {
        std::vector<std::string> codes;
        for (const clsEvent& event : database.AllEvents())
            codes.push_back(event.IDCode);
        return codes;
    }

    std::string OnDisk() const { return machine.files.Text(kFile); }
    static std::vector<clsEvent> Alive(const clsDbXml& database) {
        std::vector<clsEvent> alive = database.AllEvents();
        std::erase_if(alive, [](const clsEvent& event) { return event.Deleted; });
        return alive;
    }
    static int CountOf(const std::string& text, std::string_view what) {
        return static_cast<int>(Split(text, what).size()) - 1;
    }
};

TEST_F(EventDatabase, LoadsInFileOrderAndLeavesAFileAloneThatItWouldWriteTheSame) {
    const std::string text = FileOf({Event("000002"), Event("000001"), Event("000003", "Bob")});
    machine.files.Put(kFile, text);
    clsDbXml database = Database();
    database.LoadDB(kFile);
    EXPECT_EQ(database.DBFilename(), kFile);
    EXPECT_THAT(Codes(database), ElementsAre("000002", "000001", "000003"));
    EXPECT_EQ(database.ReadEvent("2"), nullptr);
    const int written = machine.files.written;
    int copied = 0;
    database.CopyToShared([&] { ++copied; });
    EXPECT_TRUE(database.SaveDB());
    EXPECT_TRUE(database.SaveDB());
    EXPECT_EQ(machine.files.written, written);
    EXPECT_EQ(copied, 2);
    // The same events, said in another way.
    machine.files.Put(kFile, ReplaceAll(text, "<Layer>0<", "<Layer>00<"));
    EXPECT_TRUE(database.SaveDB());
    EXPECT_EQ(OnDisk(), text);
    machine.files.Remove(kFile);
    EXPECT_TRUE(database.SaveDB());
    EXPECT_EQ(OnDisk(), text);
    EXPECT_EQ(machine.files.OpenFiles(), 0);

    database.LoadDB(kFile, true);
    EXPECT_EQ(database.RecordCount(), 6);
    EXPECT_EQ(Log(), "");
}

TEST_F(EventDatabase, GivesEventsWithoutAnOwnerToTheUserAndDropsDeletedOnes) {
    std::string text =
        FileOf({Event("1", "Single"), Event("2", ""), Event("3", "single"), Event("4"), Event("5")});
    text.replace(text.rfind("<Deleted>0"), 10, "<Deleted>-1");
    machine.files.Put(kFile, text);
    clsDbXml database = Database();
    database.LoadDB(kFile);
    EXPECT_THAT(OwnersOf(database.AllEvents()), ElementsAre("Ann", "Ann", "single", "Ann"));
}

TEST_F(EventDatabase, LogsOneLineForEachFieldThatCannotBeRead) {
    std::string text = FileOf({Event("1"), Event("2"), Event("3")});
    text = ReplaceAll(text, "<Layer>0<", "<Layer>much<");
    text = ReplaceAll(text, "<Period>0<", "<Period>99999<");
    machine.files.Put(kFile, text);
    log.AddAction("Loading", "", "");
    clsDbXml database = Database();
    database.LoadDB(kFile);
    EXPECT_EQ(database.RecordCount(), 3);
    std::string told;
    for (const char* line : {"Error 13 (Type mismatch)", "", "Error 6 (Overflow)", "Error 13 (Type mismatch)",
                             "Error 6 (Overflow)", "Error 13 (Type mismatch)", "Error 6 (Overflow)"})
        told += "1 09:00:00, " + (*line ? line + " in TransferXMLToObject of clsDbXml"s : "Loading") + "\r\n";
    EXPECT_EQ(Log(), told);
}

TEST_F(EventDatabase, KeepsALongDescriptionAndTellsOfItOnce) {
    clsEvent event = Event("1");
    event.Desc(std::string(clsEvent::kLongestShown + 1, 'x'));
    machine.files.Put(kFile, FileOf({event}));
    clsDbXml database = Database();
    database.LoadDB(kFile);
    database.StoreRecord(Event("2"));
    database.SaveDB();
    database.LoadDB(kFile);
    EXPECT_EQ(OnDisk(), FileOf({event, Event("2")}));
    EXPECT_EQ(CountOf(Log(), "with more than 100000 characters: 1."), 1);
}

// Every way in which a file can fail, before it was ever read and while the program runs. What stood in the
// file and what was done meanwhile are both there once the fault is over.
TEST_F(EventDatabase, WhatCannotBeReadIsNotEmptyAndNotWrittenOver) {
    using enum FileState;
    const std::string text = FileOf({Event("000001"), Event("000002"), Event("000003")});
    const std::string half = text.substr(0, text.size() / 2);
    const auto cut = [&](std::size_t characters) { return text.substr(0, text.size() - characters); };
    const struct {
        const char* name;
        FileState state;
        std::optional<std::string> damaged;
    } faults[] = {
        {"locked", NotRead, {}},
        {"folder away", FolderAway, {}},
        {"back without its file", NotBack, {}},
        {"set aside", SetAside, {}},
        {"only zeros", Damaged, std::string(text.size(), '\0')},
        {"zeros in its second half", Damaged, half + std::string(half.size(), '\0')},
        {"a sector of zeros", Damaged, std::string(text).replace(700, 1100, 1100, '\0')},
        {"empty", Damaged, ""},
        {"UTF-16", Damaged, std::string("\xFF\xFE<\0?\0x\0m\0l\0", 12)},
        {"another program's", Damaged, "PK\3\4 <html><body>"},
        {"cut in a field", Damaged, half},
        {"cut in a tag", Damaged, cut(3)},
        {"cut in an end tag", Damaged, cut(15)},
        {"cut, in lower case", Damaged, ReplaceAll(cut(60), "EVENT>", "event>")},
    };
    for (const auto& fault : faults)
        for (const bool isRunning : {false, true}) {
            SCOPED_TRACE(std::string(fault.name) + (isRunning ? ", running" : ", at the start"));
            const bool away = fault.state == FolderAway || fault.state == NotBack;
            // Running, the memory is the last good copy, and at a start an old file is converted.
            const bool saves = isRunning ? fault.state == NotBack : fault.state == SetAside;
            for (const std::string& path : machine.files.Files())
                machine.files.Remove(path);
            machine.files.Put(kFile, text);
            clsDbXml database = Database();
            database.AskForBackup([] { return true; });
            if (isRunning) database.LoadDB(kFile);
            if (fault.damaged) machine.files.Put(kFile, *fault.damaged);
            machine.files.At(kFile).locked = fault.state == NotRead;
            if (fault.state == SetAside) machine.files.Put("C:\\Data\\Events.dat", "old");
            if (away || fault.state == SetAside) machine.files.Remove(kFile);
            if (away) machine.files.Remove("C:\\Data");
            const std::string before = OnDisk();

            database.LoadDB(kFile);
            if (fault.state == NotBack) machine.files.CreateFolder("C:\\Data");
            machine.random.script = {0.00009};
            database.StoreRecord(Event(""));
            if (isRunning) {
                Changing(database).front().Desc("Changed");
                database.DeleteRecord("000002");
            }
            EXPECT_EQ(database.SaveDB(), saves);
            database.LoadDBIfChanged(kFile);
            if (!saves) {
                EXPECT_EQ(database.State(), fault.state);
                EXPECT_EQ(OnDisk(), before);
                EXPECT_TRUE(database.SaveFault());
                EXPECT_EQ(database.Unsaved().stored.size(), isRunning ? 2U : 1U);
                EXPECT_THAT(DescriptionsOf(database.Unsaved().removed),
                            ElementsAreArray(std::vector<std::string>(isRunning, "Event 000002")));
                EXPECT_EQ(CountOf(Log(), "Unable to read events"), fault.state == SetAside ? 0 : 1);
                if (fault.state != NotRead) machine.files.Put(kFile, text);
                machine.files.At(kFile).locked = false;
                EXPECT_TRUE(database.DatabaseChanged());
                database.LoadDBIfChanged(kFile);
            }
            EXPECT_EQ(database.State(), Fine);
            EXPECT_FALSE(database.HasUnsaved());
            EXPECT_FALSE(database.SaveFault());
            EXPECT_EQ(OnDisk(), FileOf(Alive(database)));
            std::vector<std::string> then{"Event "};
            if (isRunning) then.insert(then.end(), {"Changed", "Event 000003"});
            if (!isRunning && !saves)
                then.insert(then.end(), {"Event 000001", "Event 000002", "Event 000003"});
            EXPECT_THAT(DescriptionsOf(Alive(database)), UnorderedElementsAreArray(then));
            machine.files.Remove(kLog);
        }
}

// What one and the same event becomes, or "-" when it is no more: here, and in what another program wrote.
TEST_F(EventDatabase, AReloadPutsWhatIsNotSafeYetOnTop) {
    enum class Ours { Unsaved, Saved, Confirmed };
    struct Row {
        std::string before, ours;
        Ours isSaved;
        std::string theirs, after;
        const char* kept;  // what of the other version can be found again
    };
    const std::vector<Row> rows{
        {"b", "b", Ours::Unsaved, "t", "t", ""},
        {"b", "b", Ours::Unsaved, "-", "-", "before events went"},
        {"b", "o", Ours::Unsaved, "b", "o", ""},
        {"b", "o", Ours::Unsaved, "-", "o", ""},
        {"b", "o", Ours::Unsaved, "t", "o", "changed by another"},
        {"b", "o", Ours::Saved, "b", "o", ""},
        {"b", "o", Ours::Saved, "-", "o", ""},
        {"b", "o", Ours::Saved, "t", "t", "changed here and by another"},
        {"b", "o", Ours::Confirmed, "b", "b", ""},
        {"b", "-", Ours::Unsaved, "b", "-", ""},
        {"b", "-", Ours::Unsaved, "t", "t", ""},
        {"b", "-", Ours::Saved, "b", "-", ""},
        {"b", "-", Ours::Saved, "t", "t", ""},
        {"b", "-", Ours::Confirmed, "b", "b", ""},
        {"-", "o", Ours::Unsaved, "-", "o", ""},
        {"-", "o", Ours::Saved, "-", "o", ""},
        {"-", "o", Ours::Confirmed, "-", "-", "before events went"},
    };
    const auto version = [](const std::string& text) {
        clsEvent event = Event("000001");
        event.Desc(text);
        return event;
    };
    const auto fileOf = [&](const std::string& text) {
        std::vector<clsEvent> events{Event("000002")};
        if (text != "-") events.push_back(version(text));
        return FileOf(events);
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.before + " " + row.ours + std::to_string(static_cast<int>(row.isSaved)) +
                     row.theirs);
        for (const std::string& path : machine.files.Files())
            machine.files.Remove(path);
        machine.files.Put(kFile, fileOf(row.before));
        clsDbXml database = Database();
        database.KeepOverwrittenIn("C:\\Kept");
        std::size_t gone = 0;
        database.OnGone([&](const auto& events) { gone += events.size(); });
        database.LoadDB(kFile);
        if (row.ours == "-")
            database.MarkDeleted({"000001"});
        else
            database.StoreRecord(version(row.ours));
        EXPECT_EQ(database.HasUnsaved(), row.ours != row.before);
        EXPECT_TRUE(row.isSaved == Ours::Unsaved || database.SaveDB());
        if (row.isSaved == Ours::Confirmed) database.LoadDBIfChanged(kFile);
        machine.files.Put(kFile, fileOf(row.theirs));
        machine.files.At(kFile).time -= 50;  // the other machine's clock is behind
        database.LoadDBIfChanged(kFile);

        EXPECT_FALSE(database.HasUnsaved());
        EXPECT_EQ(OnDisk(), fileOf(row.after));
        const std::vector<std::string> kept = machine.files.FilesIn("C:\\Kept");
        EXPECT_EQ(kept.size(), *row.kept ? 1U : 0U);
        EXPECT_THAT(kept, Each(HasSubstr("Events (" + std::string(row.kept) + ", ")));
        EXPECT_EQ(gone, std::string_view(row.kept).starts_with("before") ? 1U : 0U);
    }
}

TEST_F(EventDatabase, ACodeBelongsToOneEvent) {
    clsDbXml database = Database();
    clsDbXml expired = Database();
    database.PairWith(expired);
    expired.PairWith(database);
    expired.StoreRecord(Event("000007"));
    machine.files.Put(kFile, FileOf({Event("000001"), OneOff("000001", "Second", DateValue(1))}));
    machine.random.script = {0.00007, 0.00005};
    database.LoadDB(kFile);
    database.LoadDB(kFile);
    EXPECT_THAT(Codes(database), ElementsAre("000001", "000005"));
    EXPECT_EQ(CountOf(Log(), "One of the events gets the code 000005"), 1);
    EXPECT_TRUE(database.SaveDB());
    EXPECT_EQ(OnDisk(), FileOf(database.AllEvents()));

    // Another machine has given the same code to another event.
    database.StoreRecord(OneOff("000009", "Ours", DateValue(1)));
    machine.files.Put(kFile, FileOf({OneOff("000009", "Theirs", DateValue(2))}));
    database.LoadDBIfChanged(kFile);
    EXPECT_THAT(DescriptionsOf(database.AllEvents()), ElementsAre("Theirs", "Ours"));

    EventChanges rescued;
    rescued.stored = {OneOff("000009", "Theirs, changed", DateValue(2)), Event("000007"), Event("000009")};
    rescued.removed = {database.AllEvents()[1], Event("000001")};
    database.PutOnTop(rescued);
    EXPECT_THAT(DescriptionsOf(Alive(database)),
                ElementsAre("Theirs, changed", "Event 000007", "Event 000009"));
    EXPECT_THAT(Codes(database), Not(Contains("000007")));
}

// Each operation that a save is made of fails in turn. Before the second save another program changes the
// file, so that its version has to be read first.
TEST_F(EventDatabase, WhateverStepOfASaveFailsNothingIsLost) {
    using Lasts = FaultInjector::Lasts;
    const std::string before = FileOf({Event("1")});
    const std::string anothers = FileOf({Event("1"), Event("3")});
    const auto saveWithFault = [&](int n, ErrorNumber error, Lasts lasts, bool changed) {
        SCOPED_TRACE(n);
        machine.files.Put(kFile, before);
        clsDbXml database = Database();
        database.LoadDB(kFile);
        database.StoreRecord(Event("2"));
        if (changed) machine.files.Put(kFile, anothers);
        machine.files.Remove(kLog);
        machine.files.faults.FailAt(n, error, lasts);
        const bool saved = database.SaveDB();
        const bool struck = machine.files.faults.Struck();
        machine.files.faults.FailAt(0);

        EXPECT_TRUE(saved || struck);
        EXPECT_EQ(saved, !database.SaveFault());
        EXPECT_EQ(saved, !database.HasUnsaved());
        if (!saved && lasts == Lasts::Once) {
            EXPECT_THAT(Log(), AnyOf(HasSubstr("in SaveDB of clsDbXml"), HasSubstr(kReadOnly),
                                     HasSubstr("Unable to write events.")));
            EXPECT_THAT(machine.files.FilesIn("C:\\Data"), ElementsAre("Events.xml"));
        }
        machine.files.LosePower();
        EXPECT_EQ(OnDisk(), saved ? FileOf(database.AllEvents()) : changed ? anothers : before);
        EXPECT_THAT(Codes(database), testing::IsSupersetOf({"1", "2"}));

        EXPECT_TRUE(database.SaveDB());
        EXPECT_EQ(OnDisk(),
                  changed ? FileOf({Event("1"), Event("3"), Event("2")}) : FileOf({Event("1"), Event("2")}));
        for (const std::string& path : machine.files.Files())
            machine.files.Remove(path);
        return struck;
    };
    for (const ErrorNumber error :
         {ErrorNumber::DeviceError, ErrorNumber::DiskFull, ErrorNumber::PermissionDenied})
        for (const Lasts lasts : {Lasts::Once, Lasts::FromThenOn})
            for (const bool changed : {false, true}) {
                int n = 1;
                while (saveWithFault(n, error, lasts, changed))
                    ++n;
                EXPECT_GT(n, changed ? 7 : 5);
            }
}

TEST_F(EventDatabase, StoresAndDeletesByTheFirstEventWithTheCode) {
    clsDbXml database = Database();
    database.LoadDB(kFile);
    database.StoreRecord(Event("000001"));
    database.StoreRecord(Event("abc"));
    database.StoreRecord(Event("000001", "Bob"));
    database.StoreRecord(Event("abc", "Bob"));
    EXPECT_THAT(Codes(database), ElementsAre("000001", "abc"));
    EXPECT_THAT(OwnersOf(database.AllEvents()), ElementsAre("Bob", "Bob"));
    database.StoreRecord(Event("000001"), true);
    Changing(database).push_back(Event("abc"));
    EXPECT_EQ(OnDisk(), "");

    database.DeleteRecord("abc");
    EXPECT_EQ(database.RecordCount(), 4);
    EXPECT_THAT(OwnersOf(database.AllEvents()), ElementsAre("Bob", "Bob deleted", "Ann", "Ann"));
    database.LoadDB(kFile);
    EXPECT_EQ(database.RecordCount(), 3);
    machine.files.Remove(kFile);
    database.DeleteRecord("not there");
    EXPECT_EQ(OnDisk(), FileOf(database.AllEvents()));

    database.WipeDiskFile();
    EXPECT_EQ(machine.files.Kind(kFile), PathKind::Missing);
    database.WipeDiskFile();
    EXPECT_EQ(Log(), "");
    machine.files.Put(kFile, FileOf({}));
    machine.files.At(kFile).readOnly = true;
    EXPECT_FALSE(database.SaveDB());
    EXPECT_THAT(Log(), HasSubstr(kReadOnly));
    EXPECT_FALSE(Database().SaveDB()) << "it has no name";
}

}  // namespace
}  // namespace kaz
