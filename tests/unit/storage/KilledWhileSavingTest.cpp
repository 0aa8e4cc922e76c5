#include "RealFileSystem.h"
#include "fakes/Sample.h"
#include "fakes/StorageDesk.h"
#include "fakes/TestFolder.h"
#include "platform/Files.h"
#include "unit/storage/SavingProcess.h"

#include <gmock/gmock.h>

#include <chrono>
#include <cstdlib>
#include <random>
#include <set>
#include <thread>

namespace kaz {
namespace {

// The event file of one generation: every event tells it, so that a mixture of two would show.
struct Events {
    explicit Events(const std::string& folder) {
        desk.log.NOLOGGING(true);
        database.LoadDB(JoinPath(folder, "Events.xml"));
    }

    bool Save(int generation) {
        Changing(database).clear();
        for (int i = 0; i < 20; ++i)
            database.StoreRecord(OneOff("", std::to_string(generation), DateValue(45000)), true);
        return database.SaveDB();
    }

    // 0 when the file is not whole.
    int Generation() {
        const std::vector<std::string> told = DescriptionsOf(database.AllEvents());
        if (told.size() != 20 || std::set(told.begin(), told.end()).size() != 1) return 0;
        return std::atoi(told.front().c_str());
    }

    RealFileSystem files;
    StorageDesk desk;
    clsDbXml database{desk.Services(files)};
};

bool Save(const std::string& folder, int generation) {
    static Events events(folder);
    return events.Save(generation);
}

}  // namespace

TEST(KilledWhileSaving, LeavesTheOldFileWholeOrTheNewOne) {
    SavingProcess::SaveIfStartedForThat(Save);
    // A few seconds' worth; KAZ_KILLS=2000 for the long run.
    const char* wanted = std::getenv("KAZ_KILLS");
    const int kills = wanted ? std::atoi(wanted) : 15;
    const TestFolder folder;
    std::mt19937 random(20260302);
    int saved = 0;
    for (int kill = 0; kill < kills; ++kill) {
        SavingProcess process(Save, folder.Path().string(), saved + 1);
        ASSERT_EQ(process.NextSaved(), saved + 1) << "the process ended by itself";
        ++saved;
        std::this_thread::sleep_for(std::chrono::microseconds(random() % 6000));
        process.Kill();
        while (const int told = process.NextSaved())
            saved = told;

        const int found = Events(folder.Path().string()).Generation();
        // A save can be complete that could not be told any more.
        ASSERT_THAT(found, testing::AnyOf(saved, saved + 1)) << "after kill " << kill;
        saved = found;
    }
    RecordProperty("saves", saved);
}

}  // namespace kaz
