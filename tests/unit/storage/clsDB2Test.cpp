#include "storage/clsDB2.h"

#include "base/Text.h"
#include "fakes/Sample.h"
#include "fakes/StorageDesk.h"
#include "storage/LegacyRecord.h"

#include <gmock/gmock.h>

namespace kaz {
namespace {

using namespace std::string_literals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::SizeIs;

const std::string kEventsDat = "C:\\KAZ\\events.dat";
const std::string kYes = "\xFF\xFF", kNo = "\0\0"s;
const std::string k45000 = "\x00\x00\x00\x00\x00\xF9\xE5\x40"s;  // 15 March 2023
const std::string k45001 = "\x00\x00\x00\x00\x20\xF9\xE5\x40"s;
const std::string kNoon = "\x00\x00\x00\x00\x00\x00\xE0\x3F"s;
const std::string kQuarterToNoon = "\x55\x55\x55\x55\x55\x55\xDF\x3F"s;
const std::string kNoNumber = "\x00\x00\x00\x00\x00\x00\xF8\x7F"s;

std::string Padded(std::string text, std::size_t width) { return text.append(width - text.size(), ' '); }

// Built field by field, with the place of each checked as it goes.
std::string Record(const std::string& code, const std::string& owner, const std::string& desc) {
    std::string record;
    const auto add = [&](std::size_t offset, const std::string& bytes) {
        EXPECT_EQ(record.size(), offset);
        record += bytes;
    };
    add(0, kNo);
    add(2, k45000);
    add(10, kNoon);
    add(18, Padded(desc, 200));
    add(218, kYes);
    add(220, "\x07\x00"s);
    add(222, "\x0F\x00"s);
    add(224, std::string(8, '\0'));
    add(232, Padded(code, 12));
    add(244, "\x04\x00"s);
    add(246, kYes);
    add(248, "\x82\x00"s);
    add(250, "\x1F\x00"s);
    add(252, "\x0D\x00"s);
    add(254, "\x05\x00"s);
    add(256, "\x06\x00"s);
    add(258, k45001);
    add(266, "\x2C\x01"s);
    add(268, "\xFE\xFF\xFF\xFF"s);
    add(272, "\x13\x00"s);
    add(274, Padded(owner, 14));
    add(288, kYes);
    add(290, kQuarterToNoon);
    add(298, kYes);
    add(300, Padded("C:\\tools\\run.exe", 150));
    add(450, Padded("a@b.example", 48));
    EXPECT_EQ(record.size(), 498U);
    return record;
}

class OldDatabase : public testing::Test, protected StorageDesk {
protected:
    OldDatabase() : StorageDesk("Ann") {}

    clsSounds sounds{machine.files, settings, log, [] { return "C:\\KAZ"s; }};
    clsDB2 old{Services(), sounds};
};

TEST_F(OldDatabase, ReadsAndWritesEveryFieldAtItsPlace) {
    const std::string record = Record("048213", "Ann", "Dentist");
    machine.files.Put(kEventsDat, record);
    ASSERT_TRUE(old.LoadDB(kEventsDat));
    ASSERT_EQ(old.RecordCount(), 1);
    const clsEvent& event = old.AllEvents()[0];
    EXPECT_FALSE(event.Deleted);
    EXPECT_EQ(event.DueDate(), DateValue(45000));
    EXPECT_EQ(event.DueTime(), DateValue::FromTime(12, 0));
    EXPECT_EQ(event.Desc(), "Dentist");
    EXPECT_TRUE(event.Recurring());
    EXPECT_EQ(event.DaysWarning(), 7);
    EXPECT_EQ(event.MinutesWarning(), 15);
    EXPECT_EQ(event.IDCode, "048213");
    EXPECT_EQ(event.RecurrenceType(), RecurNthWeekday);
    EXPECT_TRUE(event.AlarmSet());
    EXPECT_EQ(event.WeekDays(), 130);
    EXPECT_EQ(event.DayOfMonth(), 31);
    EXPECT_EQ(event.MonthNumber(), 13);
    EXPECT_EQ(event.Daynumber(), 5);
    EXPECT_EQ(event.DayOfWeek(), 6);
    EXPECT_EQ(event.StartDate(), DateValue(45001));
    EXPECT_EQ(event.Period(), 300);
    EXPECT_EQ(event.DaysLeft(), -2);
    EXPECT_EQ(event.Layer(), 19);
    EXPECT_EQ(event.Owner(), "Ann");
    EXPECT_TRUE(event.SharedEvent);
    EXPECT_EQ(event.AlarmTime(), DateValue::FromTime(11, 45));
    EXPECT_TRUE(event.ExecFile);
    EXPECT_EQ(event.Filename, "C:\\tools\\run.exe");
    EXPECT_EQ(event.Email, "a@b.example");
    EXPECT_FALSE(event.PlayWav);
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
    marked.replace(0, 2, kYes);
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
    machine.files.Put(kEventsDat, Record("1", "Ann", "a") + Record("1", "Ann", "b") + Record("", "Ann", "c") +
                                      torn + Record("", "Ann", "d"));
    old.LoadDB(kEventsDat);
    old.AllEvents()[0].Email = "Ann <ann@b.example>";

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

TEST_F(OldDatabase, ChangesOwnersAndNoticesOthersChanges) {
    machine.files.Put(kEventsDat, Record("1", "Ann", "") + Record("2", "bob", "") + Record("3", "Cy", ""));
    old.LoadDB(kEventsDat);
    EXPECT_FALSE(old.DatabaseChanged());
    old.RenameOwner("BOB", "Bob");
    old.WipeAllButThisOwner("");
    EXPECT_THAT(OwnersOf(old.AllEvents()), ElementsAre("Ann", "Bob", "Cy"));
    EXPECT_FALSE(old.DatabaseChanged());
    old.WipeRecordsByOwner("cy");
    EXPECT_THAT(OwnersOf(old.AllEvents()), ElementsAre("Ann", "Bob", "Cy deleted"));
    old.WipeAllButThisOwner("Ann");
    old.LoadDB(kEventsDat);
    EXPECT_THAT(OwnersOf(old.AllEvents()), ElementsAre("Ann"));
    machine.files.Put(kEventsDat, Record("1", "Ann", "") + Record("4", "Dee", ""));
    EXPECT_TRUE(old.DatabaseChanged());
    old.LoadDBIfChanged(kEventsDat);
    old.SetAllToSingleUser();
    old.DeleteRecord("1");
    EXPECT_THAT(OwnersOf(old.AllEvents()), ElementsAre("Single deleted", "Single"));
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
