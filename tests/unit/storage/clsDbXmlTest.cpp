#include "storage/clsDbXml.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "fakes/Sample.h"
#include "fakes/StorageDesk.h"

#include <gmock/gmock.h>

#include <utility>

namespace kaz {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::UnorderedElementsAre;

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

    static std::vector<std::string> Owners(const clsDbXml& database) {
        return OwnersOf(database.AllEvents());
    }
    std::string OnDisk() const { return machine.files.Text(kFile); }
};

TEST_F(EventDatabase, LoadsInFileOrderAndSavesTheSameFile) {
    const std::string text = FileOf({Event("000002"), Event("000001"), Event("000002", "Bob")});
    machine.files.Put(kFile, text);
    clsDbXml database = Database();
    database.LoadDB(kFile);
    EXPECT_EQ(database.DBFilename(), kFile);
    EXPECT_THAT(Codes(database), ElementsAre("000002", "000001", "000002"));
    EXPECT_EQ(database.ReadEvent("000002"), &database.AllEvents()[0]);
    EXPECT_EQ(database.ReadEvent("2"), nullptr);
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
    EXPECT_THAT(Owners(database), ElementsAre("Ann", "Ann", "single", "Ann"));
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
    const std::string mismatch = "Error 13 (Type mismatch) in TransferXMLToObject of clsDbXml";
    const std::string overflow = "Error 6 (Overflow) in TransferXMLToObject of clsDbXml";
    std::string told;
    for (const std::string& line :
         {mismatch, std::string("Loading"), overflow, mismatch, overflow, mismatch, overflow})
        told += "1 09:00:00, " + line + "\r\n";
    EXPECT_EQ(Log(), told);
}

TEST_F(EventDatabase, StartsEmptyWhenThereIsNoFile) {
    clsDbXml database = Database();
    EXPECT_FALSE(database.DatabaseChanged());
    database.LoadDB(kFile);
    EXPECT_EQ(database.RecordCount(), 0);
    EXPECT_TRUE(database.SaveDB());
    EXPECT_EQ(OnDisk(), EventXml::kProlog);

    database.StoreRecord(Event("1"));
    machine.files.Remove(kFile);
    database.LoadDB(kFile);
    EXPECT_EQ(database.RecordCount(), 0);
}

TEST_F(EventDatabase, SeesAChangeOfTheFileInEitherDirection) {
    machine.files.Put(kFile, FileOf({Event("1")}));
    clsDbXml database = Database();
    database.LoadDB(kFile);
    EXPECT_FALSE(database.DatabaseChanged());
    database.SaveDB();
    EXPECT_FALSE(database.DatabaseChanged());

    machine.files.Put(kFile, FileOf({Event("1"), Event("2")}));
    EXPECT_TRUE(database.DatabaseChanged());
    database.LoadDBIfChanged(kFile);
    EXPECT_EQ(database.RecordCount(), 2);
    machine.files.At(kFile).time -= 50;
    EXPECT_TRUE(database.DatabaseChanged());
    database.LoadDBIfChanged(kFile);
    database.AllEvents().clear();
    database.LoadDBIfChanged(kFile);
    EXPECT_EQ(database.RecordCount(), 0);
}

TEST_F(EventDatabase, NeverWritesOverAFileThatCouldNotBeRead) {
    const std::string text = FileOf({Event("000001"), Event("000002")});
    machine.files.Put(kFile, text);
    machine.files.At(kFile).locked = true;
    clsDbXml database = Database();
    database.LoadDB(kFile);
    EXPECT_EQ(database.RecordCount(), 0);
    EXPECT_THAT(Log(), AllOf(HasSubstr("Error 70 (Permission denied) in LoadDB of clsDbXml"),
                             HasSubstr("Unable to read events from " + kFile)));

    // What is stored meanwhile is not lost, nor does it take the place of what the file holds.
    machine.random.script = {0.00001, 0.00009};
    database.StoreRecord(Event(""));
    ASSERT_EQ(database.AllEvents()[0].IDCode, "000001");
    database.StoreRecord(Event("000003"));
    database.StoreRecord(Event("000003"));
    EXPECT_FALSE(database.SaveDB());
    EXPECT_THAT(Log(), HasSubstr("Unable to write events. " + kFile + " could not be read."));
    EXPECT_EQ(OnDisk(), text);

    machine.files.At(kFile).locked = false;
    EXPECT_FALSE(database.SaveDB());
    EXPECT_TRUE(database.DatabaseChanged());
    database.LoadDBIfChanged(kFile);
    EXPECT_THAT(Codes(database), ElementsAre("000001", "000002", "000009", "000003"));
    EXPECT_EQ(OnDisk(), FileOf(database.AllEvents()));
    EXPECT_FALSE(database.DatabaseChanged());
    EXPECT_TRUE(database.SaveDB());
}

TEST_F(EventDatabase, KeepsTheEventsWhenAReloadFails) {
    machine.files.Put(kFile, FileOf({Event("1"), Event("2")}));
    clsDbXml database = Database();
    database.LoadDB(kFile);
    for (int failing = 1; failing <= 2; ++failing) {
        machine.files.faults.FailAt(failing);
        database.LoadDB(kFile, failing == 2);
        EXPECT_THAT(Codes(database), ElementsAre("1", "2"));
        EXPECT_FALSE(database.SaveDB());
    }
    // A share that has gone is no empty database either.
    machine.files.Remove(kFile);
    machine.files.Remove("C:\\Data");
    database.LoadDB(kFile);
    EXPECT_THAT(Codes(database), ElementsAre("1", "2"));
    EXPECT_FALSE(database.SaveDB());
    machine.files.CreateFolder("C:\\Data");
    EXPECT_TRUE(database.SaveDB());
    EXPECT_TRUE(database.SaveDB());
    // And a folder is no file.
    machine.files.CreateFolder("C:\\Data\\Other.xml");
    database.LoadDB("C:\\Data\\Other.xml");
    EXPECT_FALSE(database.SaveDB());
    EXPECT_THAT(Codes(database), ElementsAre("1", "2"));
    // Nor does half of a file join the others.
    machine.files.Put("C:\\Data\\Many.xml", FileOf(std::vector<clsEvent>(1000, Event("3"))));
    machine.files.faults.FailAt(4);
    database.LoadDB("C:\\Data\\Many.xml", true);
    EXPECT_TRUE(machine.files.faults.Struck());
    EXPECT_THAT(Codes(database), ElementsAre("1", "2"));
}

// Each operation that a save is made of fails in turn. Before the second save another program changes the
// file, so that its version has to be kept first.
TEST_F(EventDatabase, WhateverStepOfASaveFailsNothingIsLost) {
    using Lasts = FaultInjector::Lasts;
    const std::string before = FileOf({Event("1")});
    const std::string after = FileOf({Event("1"), Event("2")});
    const std::string anothers = FileOf({Event("3")});
    const auto saveWithFault = [&](int n, ErrorNumber error, Lasts lasts, bool changed) {
        SCOPED_TRACE(n);
        machine.files.Put(kFile, before);
        clsDbXml database = Database();
        database.KeepOverwrittenIn("C:\\Kept");
        database.LoadDB(kFile);
        database.StoreRecord(Event("2"));
        if (changed) machine.files.Put(kFile, anothers);
        machine.files.Remove(kLog);
        machine.files.faults.FailAt(n, error, lasts);
        const bool saved = database.SaveDB();
        const bool struck = machine.files.faults.Struck();
        machine.files.faults.FailAt(0);

        EXPECT_TRUE(saved || struck);
        if (!saved && lasts == Lasts::Once) {
            EXPECT_THAT(Log(), testing::AnyOf(HasSubstr("in SaveDB of clsDbXml"), HasSubstr(kReadOnly)));
            EXPECT_THAT(machine.files.FilesIn("C:\\Data"), ElementsAre("Events.xml"));
        }
        machine.files.LosePower();
        EXPECT_EQ(OnDisk(), saved ? after : changed ? anothers : before);
        EXPECT_THAT(Codes(database), ElementsAre("1", "2"));
        EXPECT_TRUE(changed || !database.DatabaseChanged());

        EXPECT_TRUE(database.SaveDB());
        EXPECT_EQ(OnDisk(), after);
        std::vector<std::string> kept;
        for (const std::string& path : machine.files.Files()) {
            if (path.starts_with("C:\\Kept") && path.ends_with(".xml"))
                kept.push_back(machine.files.Text(path));
            machine.files.Remove(path);
        }
        EXPECT_THAT(kept, testing::Each(anothers));
        EXPECT_EQ(kept.empty(), !changed);
        return struck;
    };
    for (const ErrorNumber error :
         {ErrorNumber::DeviceError, ErrorNumber::DiskFull, ErrorNumber::PermissionDenied})
        for (const Lasts lasts : {Lasts::Once, Lasts::FromThenOn})
            for (const bool changed : {false, true}) {
                int n = 1;
                while (saveWithFault(n, error, lasts, changed))
                    ++n;
                EXPECT_GT(n, changed ? 10 : 5);
            }
}

TEST_F(EventDatabase, SaysThatAReadOnlyFileWasNotWritten) {
    machine.files.Put(kFile, FileOf({}));
    clsDbXml database = Database();
    database.LoadDB(kFile);
    machine.files.At(kFile).readOnly = true;
    database.StoreRecord(Event("1"));
    EXPECT_FALSE(database.SaveDB());
    EXPECT_FALSE(database.DatabaseChanged());
    EXPECT_EQ(OnDisk(), FileOf({}));
    EXPECT_EQ(database.RecordCount(), 1);
    machine.files.At(kFile).readOnly = false;
    machine.files.At("C:\\Data").readOnly = true;
    EXPECT_FALSE(database.SaveDB());
    clsDbXml nameless = Database();
    EXPECT_FALSE(nameless.SaveDB());
    const std::string told = Log();
    EXPECT_THAT(Split(told, kReadOnly), SizeIs(4));
}

TEST_F(EventDatabase, StoresAndDeletesByTheFirstEventWithTheCode) {
    clsDbXml database = Database();
    database.LoadDB(kFile);
    database.StoreRecord(Event("000001"));
    database.StoreRecord(Event("abc"));
    database.StoreRecord(Event("000001", "Bob"));
    database.StoreRecord(Event("abc", "Bob"));
    EXPECT_THAT(Codes(database), ElementsAre("000001", "abc"));
    EXPECT_THAT(Owners(database), ElementsAre("Bob", "Bob"));
    database.StoreRecord(Event("000001"), true);
    database.AllEvents().push_back(Event("abc"));
    EXPECT_EQ(OnDisk(), "");

    database.DeleteRecord("abc");
    EXPECT_EQ(database.RecordCount(), 4);
    EXPECT_THAT(Owners(database), ElementsAre("Bob", "Bob deleted", "Ann", "Ann"));
    database.LoadDB(kFile);
    EXPECT_EQ(database.RecordCount(), 3);
    machine.files.Remove(kFile);
    database.DeleteRecord("not there");
    EXPECT_EQ(OnDisk(), FileOf(database.AllEvents()));

    database.WipeDiskFile();
    EXPECT_EQ(machine.files.Kind(kFile), PathKind::Missing);
    database.WipeDiskFile();
    EXPECT_EQ(Log(), "");
}

TEST_F(EventDatabase, DrawsCodesUntilOneIsFree) {
    clsDbXml database = Database();
    const auto next = [&] {
        database.StoreRecord(Event(""));
        return std::as_const(database).AllEvents().back().IDCode;
    };
    // Half a hundred-thousandth rounds to the even code.
    machine.random.script = {0.0, 0.999999, 0.000005, 0.123456, 0.123456, 0.5};
    EXPECT_EQ(next(), "000000");
    EXPECT_EQ(next(), "100000");
    EXPECT_EQ(next(), "012346");
    EXPECT_EQ(next(), "050000");
    machine.clock.AdvanceMinutes(1);
    next();
    EXPECT_EQ(machine.random.seeds.back(), machine.clock.SecondsSinceMidnight());
    // Codes that came into the collection by another way are seen too.
    std::vector<clsEvent>& held = database.AllEvents();
    next();
    held.push_back(Event("000010"));
    machine.random.script = {0.0001, 0.00011};
    EXPECT_EQ(next(), "000011");
}

TEST_F(EventDatabase, UsesEveryCodeBeforeItGivesUp) {
    clsDbXml database = Database();
    for (int number = 0; number <= 100000; ++number)
        if (number != 0 && number != 4711 && number != 100000)
            database.AllEvents().push_back(
                Event(std::string(6 - std::to_string(number).size(), '0') + std::to_string(number)));
    for (int i = 0; i < 3; ++i)
        database.StoreRecord(clsEvent());
    std::vector<std::string> codes = Codes(database);
    codes.erase(codes.begin(), codes.end() - 3);
    EXPECT_THAT(codes, UnorderedElementsAre("000000", "004711", "100000"));
    EXPECT_THROW(database.StoreRecord(clsEvent()), RuntimeError);
    database.AllEvents().pop_back();
    database.StoreRecord(clsEvent());
    EXPECT_EQ(database.RecordCount(), 100001);
}

TEST_F(EventDatabase, ChangesOwnersInBulk) {
    clsDbXml database = Database();
    const auto reload = [&] {
        machine.files.Put(kFile, FileOf({Event("1", "Bob"), Event("2", " BOB "), Event("3", "Carl")}));
        database.LoadDB(kFile);
    };
    reload();
    database.RenameOwner("bob", "Dora");
    EXPECT_THAT(Owners(database), ElementsAre("Dora", "Dora", "Carl"));
    reload();
    database.WipeAllButThisOwner("");
    EXPECT_THAT(Owners(database), ElementsAre("Bob", " BOB ", "Carl"));
    database.WipeAllButThisOwner("bob");
    EXPECT_THAT(Owners(database), ElementsAre("Bob", " BOB ", "Carl deleted"));
    EXPECT_THAT(OnDisk(), Not(HasSubstr("Carl")));
    reload();
    database.AllEvents().clear();
    database.WipeRecordsByOwner("bob");  // reads the file again first
    EXPECT_THAT(Owners(database), ElementsAre("Bob deleted", " BOB  deleted", "Carl"));
    database.SetAllToSingleUser();
    EXPECT_THAT(OnDisk(), HasSubstr("<Owner>Single</Owner>"));
    database.LoadDB(kFile);
    EXPECT_THAT(Owners(database), ElementsAre("Ann"));
}

}  // namespace
}  // namespace kaz
