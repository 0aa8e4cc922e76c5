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
#include <thread>

namespace kaz {
namespace {

// The event file and the settings file of one generation: every line of them tells it, so that a mixture of
// two would show.
struct Files {
    explicit Files(const std::string& folder)
        : events(JoinPath(folder, "Events.xml")),
          options(JoinPath(folder, "Kaz.ini")) {
        desk.log.NOLOGGING(true);
        database.SetDBFilename(events);
    }

    bool Save(int generation) {
        const std::string text = "Generation " + std::to_string(generation);
        database.AllEvents().clear();
        for (int i = 0; i < 20; ++i) {
            database.StoreRecord(OneOff("", text, DateValue(45000)), true);
            settings.sSet("Setting" + std::to_string(i), text);
        }
        return database.SaveDB() && settings.SaveSettings(options);
    }

    // The generation of the files on the disk; 0 when one of them is not whole.
    int Loaded() {
        database.LoadDB(events);
        settings.LoadSettings(options);
        if (database.RecordCount() != 20) return 0;
        const std::string text = database.AllEvents().front().Desc();
        const std::string setting = settings.TextOr("Setting0", "");
        for (std::size_t i = 0; i < 20; ++i) {
            if (database.AllEvents()[i].Desc() != text) return 0;
            if (settings.TextOr("Setting" + std::to_string(i), "") != setting) return 0;
        }
        const int generation = std::atoi(text.substr(11).c_str());
        const int ofSettings = std::atoi(setting.substr(11).c_str());
        // The settings are saved next.
        return ofSettings == generation || ofSettings == generation - 1 ? generation : 0;
    }

    std::string events;
    std::string options;
    RealFileSystem files;
    StorageDesk desk;
    cSHAREDSettings settings{files, desk.machine.locale, desk.machine.dialogs, desk.log};
    clsDbXml database{desk.Services(files)};
};

bool Save(const std::string& folder, int generation) {
    static Files files(folder);
    return files.Save(generation);
}

}  // namespace

TEST(KilledWhileSaving, LeavesTheOldFilesWholeOrTheNewOnes) {
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

        const int found = Files(folder.Path().string()).Loaded();
        // A save can be complete that could not be told any more.
        ASSERT_THAT(found, testing::AnyOf(saved, saved + 1)) << "after kill " << kill;
        saved = found;
    }
    RecordProperty("saves", saved);
}

}  // namespace kaz
