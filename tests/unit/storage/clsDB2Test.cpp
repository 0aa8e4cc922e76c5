#include "storage/clsDB2.h"

#include "base/Text.h"
#include "fakes/Matchers.h"
#include "fakes/Sample.h"
#include "fakes/StorageDesk.h"
#include "fakes/TestData.h"
#include "storage/LegacyRecord.h"

namespace kaz {
namespace {

using namespace std::string_literals;

const std::string kEventsDat = "C:\\KAZ\\events.dat";
const std::string kNoNumber = "\x00\x00\x00\x00\x00\x00\xF8\x7F"s;

std::string Padded(std::string text, std::size_t width) { return text.append(width - text.size(), ' '); }

// The golden record, every field different from its default and from its neighbours, with these texts.
std::string Record(const std::string& code, const std::string& owner, const std::string& desc) {
    std::string record = GoldenFile("event.dat");
    return record.replace(18, 200, Padded(desc, 200))
        .replace(232, 12, Padded(code, 12))
        .replace(274, 14, Padded(owner, 14));
}

class OldDatabase : public testing::Test, protected StorageDesk {
protected:
    OldDatabase() : StorageDesk("Ann") {}

    static clsEvent Owned(const std::string& code, const std::string& owner) {
        clsEvent event;
        event.IDCode = code;
        event.Owner(owner);
        return event;
    }

    clsSounds sounds{machine.files, settings, log, [] { return "C:\\KAZ"s; }};
    clsDB2 old{Services(), sounds};
};

TEST_F(OldDatabase, ReadsAndWritesEveryFieldAtItsPlace) {
    const std::string record = GoldenFile("event.dat");
    machine.files.Put(kEventsDat, record);
    ASSERT_TRUE(old.LoadDB(kEventsDat));
    EXPECT_EQ(FileOf(old.AllEvents()), GoldenFile("event_of_dat.xml"));
    EXPECT_EQ(Log(), "");
    EXPECT_TRUE(old.SaveDB());
    EXPECT_EQ(machine.files.Text(kEventsDat), record);
}

TEST_F(OldDatabase, RoundsTheNumberOfRecords) {
    const std::string records =
        Record("1", "Ann", "") + Record("2", "Ann", "") + Record("3", "Ann", "") + Record("4", "Ann", "");
    for (const auto& [bytes, count] :
         {std::pair(0U, 0), {249U, 0}, {250U, 1}, {996U, 2}, {1245U, 2}, {1743U, 4}}) {
        machine.files.Put(kEventsDat, records.substr(0, bytes));
        EXPECT_TRUE(old.LoadDB(kEventsDat));
        EXPECT_EQ(old.RecordCount(), count) << bytes << " bytes";
    }
    EXPECT_EQ(old.AllEvents()[3].IDCode, "4");
    EXPECT_EQ(old.AllEvents()[3].Period(), 0);
}

TEST_F(OldDatabase, TakesOwnersTextsAndSoundsAsTheyAreMeant) {
    std::string zeros = Record("", "", "");
    zeros.replace(274, 14, 14, '\0').replace(450, 48, 48, '\0').replace(232, 12, "7\0garbage   "s);
    std::string marked = Record("8", "Singleton", "  both ends  ");
    marked.replace(0, 2, "\xFF\xFF");
    machine.files.Put(kEventsDat,
                      Record("5", "Single", std::string(200, 'x')) + Record("6", "Bob", "") + zeros + marked);
    machine.files.Put("C:\\KAZ\\EventWavs.ini", "6,C:\\bell.wav\r\n");
    old.LoadDB(kEventsDat);
    EXPECT_THAT(OwnersOf(old.AllEvents()), ElementsAre("Ann", "Bob", "Ann", "Singleton deleted"));
    EXPECT_EQ(old.AllEvents()[0].Desc(), std::string(200, 'x'));
    EXPECT_EQ(old.AllEvents()[2].IDCode, "7");
    EXPECT_EQ(old.AllEvents()[2].Email, "");
    EXPECT_EQ(old.AllEvents()[3].Desc(), "both ends");
    for (const clsEvent& event : old.AllEvents()) {
        EXPECT_EQ(event.PlayWav, event.IDCode == "6");
        EXPECT_EQ(event.WavFile, event.IDCode == "6" ? "C:\\bell.wav" : "");
    }
}

TEST_F(OldDatabase, AFieldWithoutAValueCostsOnlyItself) {
    std::string bad = Record("1", "Ann", "bad");
    bad.replace(2, 8, kNoNumber).replace(290, 8, 8, '\x7E');
    machine.files.Put(kEventsDat, bad + Record("2", "Ann", "good"));
    EXPECT_TRUE(old.LoadDB(kEventsDat));
    ASSERT_EQ(old.RecordCount(), 2);
    EXPECT_EQ(old.AllEvents()[0].DueDate(), DateValue());
    EXPECT_EQ(old.AllEvents()[0].DueTime(), DateValue::FromTime(12, 0));
    EXPECT_EQ(old.AllEvents()[0].Email, "a@b.example");
    EXPECT_EQ(old.AllEvents()[1].DueDate(), DateValue(45000));
    EXPECT_THAT(Split(Log(), "Error 6 (Overflow) in LoadAllEvents of clsDB2"), SizeIs(3));
}

TEST_F(OldDatabase, AFileThatCannotBeReadIsNoEmptyDatabase) {
    machine.files.Put(kEventsDat, Record("1", "Ann", "kept"));
    ASSERT_TRUE(old.LoadDB(kEventsDat));
    machine.files.At(kEventsDat).locked = true;
    EXPECT_FALSE(old.LoadDB(kEventsDat));
    EXPECT_EQ(old.RecordCount(), 1);
    EXPECT_THAT(Log(), HasSubstr("Error 70 (Permission denied) in LoadAllEvents of clsDB2"));
    EXPECT_TRUE(old.LoadDB("C:\\KAZ\\none.dat"));
    EXPECT_EQ(old.RecordCount(), 0);
}

TEST_F(OldDatabase, ExportLosesNoEventAndTearsNoFileApart) {
    std::string torn = Record("9", "Ann", "</EVENT><Desc>\r\n");
    torn.replace(300, 150, Padded("x</Filename></EVENT>", 150)).replace(450, 48, Padded("a\r\n<Layer>5", 48));
    std::string mailed = Record("1", "Ann", "a");
    mailed.replace(mailed.find("a@b.example"), 19, "Ann <ann@b.example>");
    machine.files.Put(kEventsDat, mailed + Record("1", "Ann", "b") + Record("", "Ann", "c") + torn +
                                      Record("", "Ann", "d"));
    old.LoadDB(kEventsDat);

    clsDbXml target(Services());
    target.SetDBFilename("C:\\KAZ\\Events.xml");
    clsEvent there;
    there.IDCode = "there";
    target.StoreRecord(there);
    old.ExportToXML(target);
    ASSERT_TRUE(target.SaveDB());
    clsDbXml reread(Services());
    reread.LoadDB(target.DBFilename());

    std::vector<std::string> seen;
    for (const clsEvent& event : reread.AllEvents()) {
        EXPECT_FALSE(event.IDCode.empty());
        EXPECT_EQ(reread.ReadEvent(event.IDCode), &event) << "a code twice";
        seen.push_back(event.Desc());
    }
    EXPECT_THAT(seen, ElementsAre("", "a", "</EVENT><Desc>\r\n", "b", "c", "d"));
    EXPECT_EQ(reread.ReadEvent("1")->Email, "Ann <ann@b.example>");
    EXPECT_EQ(reread.ReadEvent("9")->Filename, "x/Filename>/EVENT>");
    EXPECT_EQ(reread.ReadEvent("9")->Layer(), 19);
    EXPECT_THAT(Log(), Not(HasSubstr("Error")));
}

TEST_F(OldDatabase, FindsAndReplacesRecordsOnDisk) {
    machine.files.Put(kEventsDat, Record("1", "Ann", "one") + Record("2", "Ann", "two"));
    old.LoadDB(kEventsDat);
    EXPECT_EQ(old.SeekDiskRecord("2"), 2);
    EXPECT_EQ(old.SeekDiskRecord("3"), -1);
    clsEvent event = *old.ReadEvent("1");
    event.Desc("changed");
    EXPECT_TRUE(old.WriteEventToFile(event));
    event.IDCode = "3";
    EXPECT_TRUE(old.WriteEventToFile(event));
    EXPECT_EQ(machine.files.Text(kEventsDat),
              Record("1", "Ann", "changed") + Record("2", "Ann", "two") + Record("3", "Ann", "changed"));

    machine.files.faults.FailAt(1, ErrorNumber::DiskFull, FaultInjector::Lasts::FromThenOn);
    EXPECT_FALSE(old.WriteEventToFile(event));
    EXPECT_FALSE(old.SaveDB());
    machine.files.faults.FailAt(0);
    EXPECT_EQ(machine.files.Text(kEventsDat).size(), 3 * kLegacyRecordSize);
}

// As the database of today does.
TEST_F(OldDatabase, ChangesOwnersInBulk) {
    const auto after = [&](const auto& act) {
        const std::string xml = "C:\\KAZ\\Events.xml";
        machine.files.Put(kEventsDat,
                          Record("1", "Bob", "") + Record("2", "BOB", "") + Record("3", "Carl", ""));
        machine.files.Put(xml, FileOf({Owned("1", "Bob"), Owned("2", "BOB"), Owned("3", "Carl")}));
        clsDbXml today(Services());
        old.LoadDB(kEventsDat);
        today.LoadDB(xml);
        act(old);
        act(today);
        std::vector<std::string> owners = OwnersOf(today.AllEvents());
        EXPECT_EQ(OwnersOf(old.AllEvents()), owners);
        old.LoadDB(kEventsDat);
        today.LoadDB(xml);
        EXPECT_EQ(OwnersOf(old.AllEvents()), OwnersOf(today.AllEvents()));
        owners.emplace_back("on disk");
        for (const std::string& owner : OwnersOf(today.AllEvents()))
            owners.push_back(owner);
        return owners;
    };
    EXPECT_THAT(after([](auto& database) { database.RenameOwner("bob", "Dora"); }),
                ElementsAre("Dora", "Dora", "Carl", "on disk", "Dora", "Dora", "Carl"));
    EXPECT_THAT(after([](auto& database) { database.WipeAllButThisOwner(""); }),
                ElementsAre("Bob", "BOB", "Carl", "on disk", "Bob", "BOB", "Carl"));
    EXPECT_THAT(after([](auto& database) { database.WipeAllButThisOwner("bob"); }),
                ElementsAre("Bob", "BOB", "Carl deleted", "on disk", "Bob", "BOB"));
    EXPECT_THAT(after([](auto& database) { database.WipeRecordsByOwner("bob"); }),
                ElementsAre("Bob deleted", "BOB deleted", "Carl", "on disk", "Carl"));
    // Single's events are the user's as soon as they are read.
    EXPECT_THAT(after([](auto& database) { database.SetAllToSingleUser(); }),
                ElementsAre("Single", "Single", "Single", "on disk", "Ann", "Ann", "Ann"));
}

TEST_F(OldDatabase, NoticesOthersChanges) {
    machine.files.Put(kEventsDat, Record("1", "Ann", ""));
    old.LoadDB(kEventsDat);
    EXPECT_FALSE(old.DatabaseChanged());
    machine.files.Put(kEventsDat, Record("1", "Ann", "") + Record("4", "Dee", ""));
    EXPECT_TRUE(old.DatabaseChanged());
    old.LoadDBIfChanged(kEventsDat);
    old.DeleteRecord("1");
    EXPECT_FALSE(old.DatabaseChanged());
    EXPECT_THAT(OwnersOf(old.AllEvents()), ElementsAre("Ann deleted", "Dee"));
    old.WipeDiskFile();
    EXPECT_EQ(machine.files.Kind(kEventsDat), PathKind::Missing);
}

TEST_F(OldDatabase, LoadsTheOthersSharedFiles) {
    settings.sSet("SharedDataPath", "C:\\Shared"s);
    machine.files.Put("C:\\Shared\\KAZShared.ini", "Ann\r\nBob\r\n\r\nCy\r\n");
    machine.files.Put("C:\\Shared\\Shared_Ann.Dat", Record("1", "Ann", ""));
    machine.files.Put("C:\\Shared\\Shared_Bob.Dat", Record("2", "Bob", ""));
    old.LoadMultiple("C:\\Shared\\KAZShared.ini");
    EXPECT_THAT(OwnersOf(old.AllEvents()), ElementsAre("Bob"));
    EXPECT_EQ(old.DBFilename(), "C:\\Shared\\Shared_Ann.Dat");
    EXPECT_THAT(Log(), HasSubstr("Setting Databasename to C:\\Shared\\Shared_Bob.Dat"));
    EXPECT_FALSE(old.DatabaseChanged());
    machine.files.Put("C:\\Shared\\Shared_Cy.Dat", Record("3", "Cy", ""));
    EXPECT_TRUE(old.DatabaseChanged());
}

}  // namespace
}  // namespace kaz
