#include "core/Application.h"
#include "fakes/FakePlatform.h"
#include "fakes/Sample.h"

#include <gmock/gmock.h>

#include <map>
#include <random>
#include <set>

using namespace kaz;
using testing::HasSubstr;

namespace {

constexpr const char* kFile = "C:\\KAZ\\Events.xml";
constexpr const char* kBackups = "C:\\KAZ\\Autobackups";

// One of two programs on the same data folder.
class Writer {
public:
    explicit Writer(MemoryFileSystem& disk) {
        app_.emplace(machine_.Services(disk));
        app_->log.NOLOGGING(true);
        app_->settings.StoreSetting("Owner", std::string("Ann"));
        database_.emplace(app_->Storage());
        database_->KeepOverwrittenIn(kBackups);
        database_->LoadDB(kFile);
    }
    clsDbXml& Database() { return *database_; }
    cSharedLogging& Log() { return app_->log; }
    std::set<std::string> Seen() const {
        std::set<std::string> descriptions;
        for (const clsEvent& event : database_->AllEvents())
            if (!event.Deleted) descriptions.insert(event.Desc());
        return descriptions;
    }
    std::set<std::string> OnDisk() {
        clsDbXml reader(app_->Storage());
        reader.LoadDB(kFile);
        std::set<std::string> descriptions;
        for (const clsEvent& event : std::as_const(reader).AllEvents())
            descriptions.insert(event.Desc());
        return descriptions;
    }

private:
    FakePlatform machine_;
    std::optional<Application> app_;
    std::optional<clsDbXml> database_;
};

void ExpectWhole(const std::string& text, int step) {
    const auto count = [&](std::string_view what) {
        std::size_t found = 0;
        for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1))
            ++found;
        return found;
    };
    EXPECT_THAT(text, testing::StartsWith("<?xml")) << "after step " << step;
    EXPECT_EQ(count("<KAZ2>"), count("</KAZ2>\r\n")) << "after step " << step;
}

}  // namespace

TEST(TwoWriters, NeverTearTheFileAndSeeEachOther) {
    MemoryFileSystem disk;
    disk.CreateFolder("C:\\KAZ");
    disk.Put(kFile, FileOf({}));
    std::array writers{std::make_unique<Writer>(disk), std::make_unique<Writer>(disk)};
    std::mt19937 random(20260302);
    int made = 0;
    for (int step = 0; step < 10000; ++step) {
        Writer& writer = *writers[random() % 2];
        clsDbXml& database = writer.Database();
        const std::size_t count = database.AllEvents().size();
        switch (random() % 6) {
        case 0: database.LoadDBIfChanged(kFile); break;
        case 1:
        case 2:
            if (count < 40)
                database.StoreRecord(OneOff("", "Event " + std::to_string(++made), DateValue(45000)));
            break;
        case 3:
            if (count > 0) {
                clsEvent edited = database.AllEvents()[random() % count];
                edited.Desc("Event " + std::to_string(++made));
                database.StoreRecord(edited);
            }
            break;
        case 4:
            if (count > 0) database.DeleteRecord(std::string(database.AllEvents()[random() % count].IDCode));
            break;
        default: EXPECT_TRUE(database.SaveDB());
        }
        if (step % 50 == 0) ExpectWhole(disk.Text(kFile), step);
        if (step % 250 == 0) {
            database.LoadDBIfChanged(kFile);
            if (!database.DatabaseChanged() && random() % 2 == 0) {
                database.LoadDB(kFile);
                EXPECT_EQ(writer.Seen(), writer.OnDisk()) << "after step " << step;
            }
        }
    }
    EXPECT_EQ(disk.OpenFiles(), 0);
}

TEST(TwoWriters, AVersionThatWasNotReadIsKeptBeforeItIsWrittenOver) {
    MemoryFileSystem disk;
    disk.CreateFolder("C:\\KAZ");
    disk.Put(kFile, FileOf({OneOff("000001", "Old", DateValue(45000))}));
    Writer first(disk), second(disk);
    second.Database().StoreRecord(OneOff("", "Of the second", DateValue(45000)));
    EXPECT_TRUE(second.Database().SaveDB());
    EXPECT_EQ(disk.Kind(kBackups), PathKind::Missing);
    const std::string version = disk.Text(kFile);

    first.Log().NOLOGGING(false);
    first.Database().StoreRecord(OneOff("", "Of the first", DateValue(45000)));
    EXPECT_TRUE(first.Database().SaveDB());
    const std::string kept = std::string(kBackups) + "\\Events (changed by another, 2023-03-15 09.00.00).xml";
    EXPECT_EQ(disk.Text(kept), version);
    EXPECT_THAT(disk.Text("C:\\KAZ\\log.txt"),
                HasSubstr("was changed by another program. Its version is kept as " + kept));

    // Where it cannot be kept it stays.
    second.Database().StoreRecord(OneOff("", "Again", DateValue(45000)));
    const std::string before = disk.Text(kFile);
    disk.freeBytes = 0;
    EXPECT_FALSE(second.Database().SaveDB());
    EXPECT_EQ(disk.Text(kFile), before);
    EXPECT_THAT(second.Seen(), testing::Contains("Again"));
}
