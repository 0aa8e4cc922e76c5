#include "core/Backup.h"

#include "core/Startup.h"
#include "fakes/FakePlatform.h"
#include "fakes/Matchers.h"
#include "fakes/Sample.h"
#include "unit/core/ZipReading.h"

namespace kaz {
namespace {

using testing::_;

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

TEST_F(Backup, TheFileBesideTheEventsComesBackFromItWhenItIsDamaged) {
    const std::string file = "C:\\Data\\Events.side", zeros(300, '\0');
    const SideLine always{"always", OwnOccurrence(OneOff("000001", "x", {}), {}).key, {}, ""};
    for (const std::string& content : {"KAZ side 1\r\n" + always.Text() + "\r\nend\r\n", zeros}) {
        machine.files.Put(file, content);
        Start();
        EXPECT_TRUE(app->events->AllEvents().front().Extras().always);
    }
    EXPECT_EQ(zeros, machine.files.Text("C:\\Data\\Events (damaged).side"));
    EXPECT_THAT(app->health.Notices(),
                Contains(Field(&Health::Notice::text, HasSubstr(" has taken its place"))));
}

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
                ElementsAre(Pair("Events.dat", "old events"), Pair("Events.side", "KAZ side 1\r\nend\r\n"),
                            Pair("Events.xml", Events(2)), Pair("Expired.dat", "old expired"),
                            Pair("Expired.xml", Events(3)), Pair("Kaz.ini", _), Pair("Log_KAZ.txt", _),
                            Pair("tasklist.xml", "tasks")));

    machine.clock.AdvanceDays(1);
    machine.files.Put("C:\\Data\\Events.xml", Events(4));
    Start();
    EXPECT_EQ(Archived()["Events.xml"], Events(2));
    EXPECT_EQ(Archived("C:\\KAZ\\Autobackups\\Thu Autobackup.zip")["Events.xml"], Events(4));
}

TEST_F(Backup, AStartClearsAwayWhatBrokenSavesLeftAndNothingElse) {
    const struct {
        const char* name;
        FileTime age;
        bool stays;
    } files[] = {
        {"C:\\Data\\Events.xml.abcde.new", kDay, false},
        {"C:\\Shared\\Shared_Ann.xml.vwxyz.new", 2 * kDay, false},
        {"C:\\Data\\Events.xml.young.new", kDay - 1, true},   // somebody may be saving
        {"C:\\Data\\Expired.xml.abcde.new", 2 * kDay, true},  // of a file that was never there
        {"C:\\Data\\Events.xml.abcd1.new", 2 * kDay, true},
        {"C:\\Data\\Events.xml.abcdef.new", 2 * kDay, true},
        {"C:\\Data\\Events.xml.new", 2 * kDay, true},
        {"C:\\Data\\Events.xmlxabcde.new", 2 * kDay, true},
        {"C:\\Data\\Letter.txt.abcde.new", 2 * kDay, true},
        {"C:\\Shared\\Shared_Bob.xml.abcde.new", 2 * kDay, true},
        {"C:\\Data\\Events.xml", 0, true},
        {"C:\\Shared\\Shared_Ann.xml", 0, true},
    };
    for (const auto& file : files) {
        machine.files.Put(file.name, machine.files.Text(file.name));
        machine.files.At(file.name).time = 3 * kDay - file.age;
    }
    Settings("NETWORKED,True\r\nSHAREDDATAPATH,C:\\Shared\r\n");
    Start();
    for (const auto& file : files)
        EXPECT_EQ(machine.files.Kind(file.name), file.stays ? PathKind::File : PathKind::Missing)
            << file.name;
    EXPECT_THAT(Log(), HasSubstr("Removed what saves that were broken off had left: 2 files"));
    Start();
    EXPECT_THAT(Log(), Not(HasSubstr("Removed")));
}

TEST_F(Backup, CanBeSwitchedOff) {
    Settings("NOAUTOBACKUPS,True\r\n");
    Start();
    EXPECT_THAT(Log(), AllOf(HasSubstr("Autobackups disabled"), Not(HasSubstr("Backup to"))));
    EXPECT_EQ(machine.files.Kind("C:\\KAZ\\Autobackups"), PathKind::Missing);
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
    machine.files.Put("C:\\Data\\tasklist.xml", "tasks");
    Start();
    const std::string good = machine.files.Text(kArchive);
    const auto fails = [&](const char* fault) {
        Start();
        EXPECT_THAT(Log(), AllOf(HasSubstr(kFailed), Not(HasSubstr(kZipped)))) << fault;
        EXPECT_EQ(machine.files.Text(kArchive), good) << fault;
    };
    for (const char* file : {"C:\\Data\\Events.xml", "C:\\Data\\Expired.xml", "C:\\Data\\tasklist.xml"}) {
        machine.files.At(file).locked = true;
        fails(file);
        machine.files.At(file).locked = false;
    }
    machine.files.At(kArchive).readOnly = true;
    fails("the archive is read-only");
    machine.files.At(kArchive).readOnly = false;
    Settings("DATAPATH,E:\\Away\r\n");
    fails("the folder is away");
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
    EXPECT_THAT(aside("C:\\KAZ\\Autobackups"), SizeIs(3));
    machine.files.At("D:\\Copies\\Wed Autobackup.zip").readOnly = true;
    startWith(1);
    EXPECT_THAT(Log(), HasSubstr(kComplete));
    EXPECT_THAT(app->health.Find("Copy of the backup")->text, HasSubstr("D:\\Copies"));
}

TEST_F(Backup, AFileOfNoBytesIsAnEmptyOneOnlyWhereNoBackupHasEvents) {
    machine.files.Put("C:\\Data\\Expired.xml", Events(2));
    Start();
    const std::string good = machine.files.Text(kArchive);
    for (const bool hasBackup : {true, false}) {
        if (!hasBackup) machine.files.Remove(kArchive);
        for (const char* file : {"C:\\Data\\Events.xml", "C:\\Data\\Expired.xml"})
            machine.files.Put(file, "");
        Start();
        for (clsDbXml* database : {app->events.get(), app->expired.get()}) {
            EXPECT_EQ(database->SaveDB(), !hasBackup);
            EXPECT_EQ(database->State(), hasBackup ? FileState::Damaged : FileState::Fine);
            EXPECT_EQ(machine.files.Text(database->DBFilename()), hasBackup ? "" : FileOf({}));
        }
        EXPECT_EQ(machine.files.Text(kArchive) == good, hasBackup);
    }
}

TEST_F(Backup, WithoutAPlaceNeverEndsTheStart) {
    machine.files.Put("C:\\KAZ\\Autobackups", "a file stands in the way");
    EXPECT_NO_THROW(Start());
    EXPECT_FALSE(MakeAutoBackup(*app, "Autobackup"));
    EXPECT_EQ(machine.files.Text("C:\\KAZ\\Autobackups"), "a file stands in the way");
}

}  // namespace
}  // namespace kaz
