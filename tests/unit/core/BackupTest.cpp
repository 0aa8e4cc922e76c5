#include "core/Backup.h"

#include "core/Startup.h"
#include "fakes/FakePlatform.h"
#include "fakes/Sample.h"
#include "unit/core/ZipReading.h"

#include <gmock/gmock.h>

namespace kaz {
namespace {

using testing::_;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::Pair;

constexpr FileTime kDay = FileTime{24} * 60 * 60 * 10'000'000;
const std::string kArchive = "C:\\KAZ\\Autobackups\\Wed Autobackup.zip";
const std::string kComplete = "Backup to " + kArchive + " complete";
const std::string kFailed = "Backup to " + kArchive + " failed";
const std::string kZipped = "Data automatically zipped to Autobackups folder in C:\\Data";

// The clock stands at a Wednesday.
class Backup : public testing::Test {
protected:
    Backup() {
        Settings("");
        machine.files.Put("C:\\Data\\Events.xml", Events(1));
    }

    void Settings(const std::string& more) {
        machine.files.Put("C:\\KAZ\\Kaz.ini", "OWNER,Ann\r\nDATAPATH,C:\\Data\r\n" + more);
    }
    static std::string Events(int count) {
        std::vector<clsEvent> events;
        for (int i = 1; i <= count; ++i)
            events.push_back(OneOff("00000" + std::to_string(i), "x", DateValue(45100)));
        return FileOf(events);
    }
    void Start() {
        app = std::make_unique<Application>(machine.Services());
        app->log.OverrideLogFilename("C:\\KAZ\\Log_KAZ.txt");
        Startup(*app).Run();
    }
    std::string Log() const { return machine.files.Text("C:\\KAZ\\Log_KAZ.txt"); }
    std::map<std::string, std::string> Archived(const std::string& archive = kArchive) const {
        return Unpacked(machine.files.Text(archive));
    }

    FakePlatform machine;
    std::unique_ptr<Application> app;
};

TEST_F(Backup, EachStartKeepsWhatIsThere) {
    Start();
    EXPECT_THAT(Log(), AllOf(HasSubstr(kComplete), HasSubstr(kZipped)));
    EXPECT_THAT(Archived(),
                ElementsAre(Pair("Events.xml", Events(1)), Pair("Kaz.ini", HasSubstr("OWNER,Ann")),
                            Pair("Log_KAZ.txt", HasSubstr("Expired events loaded"))));

    machine.files.Put("C:\\Data\\Events.xml", Events(2));
    machine.files.Put("C:\\Data\\Expired.xml", Events(3));
    machine.files.Put("C:\\Data\\tasklist.xml", "tasks");
    machine.files.Put("C:\\Data\\Events.dat", "old events");
    machine.files.Put("C:\\Data\\Expired.dat", "old expired");
    Start();
    EXPECT_THAT(Archived(),
                ElementsAre(Pair("Events.dat", "old events"), Pair("Events.xml", Events(2)),
                            Pair("Expired.dat", "old expired"), Pair("Expired.xml", Events(3)),
                            Pair("Kaz.ini", _), Pair("Log_KAZ.txt", _), Pair("tasklist.xml", "tasks")));

    machine.clock.AdvanceDays(1);
    machine.files.Put("C:\\Data\\Events.xml", Events(4));
    Start();
    EXPECT_EQ(Archived()["Events.xml"], Events(2));
    EXPECT_EQ(Archived("C:\\KAZ\\Autobackups\\Thu Autobackup.zip")["Events.xml"], Events(4));
}

TEST_F(Backup, AStartClearsAwayWhatBrokenSavesLeftAndNothingElse) {
    const auto put = [&](const char* name, FileTime age) {
        machine.files.Put(name, "half");
        machine.files.At(name).time = 3 * kDay - age;
    };
    machine.files.At("C:\\Data\\Events.xml").time = 3 * kDay;
    machine.files.Put("C:\\Shared\\Shared_Ann.xml", "");
    machine.files.At("C:\\Shared\\Shared_Ann.xml").time = 3 * kDay;
    put("C:\\Data\\Events.xml.abcde.new", kDay);
    put("C:\\Shared\\Shared_Ann.xml.vwxyz.new", 2 * kDay);
    const std::vector<std::string> others{
        "C:\\Data\\Expired.xml.abcde.new",  // of a file that was never there
        "C:\\Data\\Events.xml.abcd1.new",  "C:\\Data\\Events.xml.abcdef.new",
        "C:\\Data\\Events.xml.new",        "C:\\Data\\Events.xmlxabcde.new",
        "C:\\Data\\Letter.txt.abcde.new",  "C:\\Shared\\Shared_Bob.xml.abcde.new"};
    for (const std::string& other : others)
        put(other.c_str(), 2 * kDay);
    put("C:\\Data\\Events.xml.young.new", kDay - 1);  // somebody may be saving
    Settings("NETWORKED,True\r\nSHAREDDATAPATH,C:\\Shared\r\n");
    Start();
    for (const std::string& other : others)
        EXPECT_EQ(machine.files.Kind(other), PathKind::File) << other;
    EXPECT_EQ(machine.files.Kind("C:\\Data\\Events.xml.young.new"), PathKind::File);
    EXPECT_EQ(machine.files.Kind("C:\\Data\\Events.xml.abcde.new"), PathKind::Missing);
    EXPECT_EQ(machine.files.Kind("C:\\Shared\\Shared_Ann.xml.vwxyz.new"), PathKind::Missing);
    EXPECT_THAT(Log(), HasSubstr("Removed what saves that were broken off had left: 2 files"));
    Start();
    EXPECT_THAT(Log(), Not(HasSubstr("Removed")));
}

TEST_F(Backup, CanBeSwitchedOff) {
    for (const char* value : {"True", "-1", "1"}) {
        Settings("NOAUTOBACKUPS," + std::string(value) + "\r\n");
        Start();
        EXPECT_THAT(Log(), AllOf(HasSubstr("Autobackups disabled"), Not(HasSubstr("Backup to")))) << value;
        EXPECT_EQ(machine.files.Kind("C:\\KAZ\\Autobackups"), PathKind::Missing);
    }
    Settings("NOAUTOBACKUPS,0\r\n");
    Start();
    EXPECT_THAT(Log(), HasSubstr(kComplete));
}

TEST_F(Backup, TheArchiveHasTheLocalesNameOfTheDay) {
    Start();
    machine.locale.data.shortDayNames[3] = "Mi.";
    EXPECT_TRUE(MakeAutoBackup(*app, "Manual"));
    EXPECT_EQ(machine.files.Kind("C:\\KAZ\\Autobackups\\Mi. Manual.zip"), PathKind::File);
    machine.locale.data.shortDayNames[3] = "M/\\:i?\x01";
    EXPECT_TRUE(MakeAutoBackup(*app, "..\\x"));
    EXPECT_EQ(machine.files.Kind("C:\\KAZ\\Autobackups\\M___i__ .._x.zip"), PathKind::File);
}

TEST_F(Backup, TakesTheOldOnesPlaceOnlyWithAllThatIsThere) {
    for (const char* fault : {"Events.xml", "Expired.xml", "tasklist.xml", "away"}) {
        SCOPED_TRACE(fault);
        machine.files.Put("C:\\Data\\Events.xml", Events(3));
        machine.files.Put("C:\\Data\\tasklist.xml", "tasks");
        Settings("");
        Start();
        const std::string good = machine.files.Text(kArchive);
        const std::string file = std::string("C:\\Data\\") + fault;
        if (fault == std::string("away"))
            Settings("DATAPATH,E:\\Away\r\n");
        else
            machine.files.At(file).locked = true;
        Start();
        EXPECT_THAT(Log(), AllOf(HasSubstr(kFailed), Not(HasSubstr(kZipped))));
        EXPECT_EQ(machine.files.Text(kArchive), good);
        if (machine.files.Kind(file) == PathKind::File) machine.files.At(file).locked = false;
    }
}

TEST_F(Backup, OneWithFarMoreEventsIsKeptAsideAndOfThoseTheNewest) {
    Settings("SECONDBACKUPFOLDER,D:\\Copies\r\n");
    const auto aside = [&](const char* folder) {
        std::vector<std::string> names;
        for (const std::string& name : machine.files.FilesIn(folder))
            if (name.find("events)") != std::string::npos) names.push_back(name);
        return names;
    };
    const auto startWith = [&](int events) {
        machine.clock.AdvanceMinutes(1);
        machine.files.Put("C:\\Data\\Events.xml", Events(events));
        Start();
    };
    startWith(9);
    startWith(5);
    EXPECT_THAT(aside("C:\\KAZ\\Autobackups"), IsEmpty());
    startWith(2);
    const std::string name = "Wed Autobackup (until 2023-03-15 09.03.00, 5 events).zip";
    EXPECT_THAT(aside("C:\\KAZ\\Autobackups"), ElementsAre(name));
    EXPECT_EQ(Archived("C:\\KAZ\\Autobackups\\" + name)["Events.xml"], Events(5));
    EXPECT_EQ(Archived()["Events.xml"], Events(2));
    EXPECT_THAT(aside("D:\\Copies"), ElementsAre(name));
    EXPECT_EQ(Archived("D:\\Copies\\Wed Autobackup.zip")["Events.xml"], Events(2));

    for (int i = 0; i < 5; ++i) {
        startWith(9);
        startWith(0);
    }
    EXPECT_THAT(aside("C:\\KAZ\\Autobackups"), testing::SizeIs(3));
    machine.files.At("D:\\Copies\\Wed Autobackup.zip").readOnly = true;
    startWith(1);
    EXPECT_THAT(Log(), HasSubstr(kComplete));
    EXPECT_THAT(app->health.Find("Copy of the backup")->text, HasSubstr("D:\\Copies"));
}

TEST_F(Backup, AFileOfNoBytesIsAnEmptyOneOnlyWhereNoBackupHasEvents) {
    const auto startEmpty = [&] {
        for (const char* file : {"C:\\Data\\Events.xml", "C:\\Data\\Expired.xml"})
            machine.files.Put(file, "");
        machine.files.Remove("C:\\KAZ\\Log_KAZ.txt");
        Start();
        for (clsDbXml* database : {app->events.get(), app->expired.get()})
            database->SaveDB();
    };
    machine.files.Put("C:\\Data\\Expired.xml", Events(2));
    Start();
    const std::string good = machine.files.Text(kArchive);
    startEmpty();
    for (const clsDbXml* database : {app->events.get(), app->expired.get()}) {
        EXPECT_EQ(database->State(), FileState::Damaged);
        EXPECT_EQ(machine.files.Text(database->DBFilename()), "");
        EXPECT_THAT(Log(), HasSubstr("Unable to read events from " + database->DBFilename()));
    }
    EXPECT_EQ(machine.files.Text(kArchive), good);

    machine.files.Remove(kArchive);
    startEmpty();
    EXPECT_EQ(machine.files.Text("C:\\Data\\Events.xml"), FileOf({}));
    EXPECT_EQ(machine.files.Text("C:\\Data\\Expired.xml"), FileOf({}));
}

TEST_F(Backup, AFailureNeverEndsTheStart) {
    Start();
    const std::string good = machine.files.Text(kArchive);
    machine.files.At(kArchive).readOnly = true;
    Start();
    EXPECT_THAT(Log(), AllOf(HasSubstr(kFailed), Not(HasSubstr(kZipped))));
    EXPECT_EQ(machine.files.Text(kArchive), good);

    FakePlatform other;
    other.files.Put("C:\\KAZ\\Autobackups", "a file stands in the way");
    Application blocked(other.Services());
    EXPECT_NO_THROW(Startup(blocked).Run());
    EXPECT_FALSE(MakeAutoBackup(blocked, "Autobackup"));
    EXPECT_EQ(other.files.Text("C:\\KAZ\\Autobackups"), "a file stands in the way");
}

}  // namespace
}  // namespace kaz
