#include "core/Conversion.h"

#include "core/Startup.h"
#include "fakes/FakePlatform.h"
#include "fakes/Matchers.h"
#include "fakes/Sample.h"
#include "storage/LegacyRecord.h"

namespace kaz {
namespace {

const std::string kConverted = "Your KAZ2 database has been converted to the new XML format (events.xml)\r\n"
                               "If you are using KAZ in networked mode, other users' shared events won't "
                               "show up until they also update to this new "
                               "version.\r\n"
                               "IMPORTANT: If you see any errors in your event list, simply delete "
                               "events.xml and restart KAZ to recreate it from "
                               "your original events.dat file.";

class ConversionStory : public testing::Test {
protected:
    ConversionStory() {
        machine.files.Put("C:\\KAZ\\Kaz.ini", "OWNER,Ann\r\nDATAPATH,C:\\Data\r\nNOAUTOBACKUPS,-1\r\n");
    }

    void PutOld(const std::string& name, const std::vector<std::string>& descriptions) {
        std::string records;
        cSharedLogging log(machine.files, machine.clock, machine.system, {});
        ErrorTrap trap(log, "", "");
        for (const std::string& description : descriptions) {
            records += LegacyRecordOf(
                Daily(std::to_string(100 + records.size()), description, DateValue(45100), 1000), trap);
        }
        machine.files.Put("C:\\Data\\" + name, records);
    }
    void Start() {
        app = std::make_unique<Application>(machine.Services());
        app->log.OverrideLogFilename("C:\\KAZ\\Log_KAZ.txt");
        Startup(*app).Run();
    }
    static std::vector<std::string> Shown(const clsDbXml& database) {
        std::vector<std::string> shown;
        for (const clsEvent& event : database.AllEvents())
            shown.push_back(event.Owner() + ": " + event.Desc());
        return shown;
    }

    FakePlatform machine;
    std::unique_ptr<Application> app;
};

TEST_F(ConversionStory, HappensOnceAndLeavesTheOldFiles) {
    PutOld("Events.dat", {"one", "two"});
    PutOld("Expired.dat", {"gone"});
    machine.files.Put("C:\\Data\\EventWavs.ini", "598,C:\\bell.wav\r\n");
    Start();
    EXPECT_THAT(machine.dialogs.messages, ElementsAre(kConverted));
    EXPECT_THAT(Shown(*app->events), ElementsAre("Ann: one", "Ann: two"));
    EXPECT_THAT(Shown(*app->expired), ElementsAre("Ann: gone"));
    EXPECT_FALSE(app->events->AllEvents()[0].PlayWav);
    EXPECT_EQ(app->events->AllEvents()[1].WavFile, "C:\\bell.wav");
    EXPECT_EQ(machine.pump.timesBusy, 2);
    EXPECT_FALSE(machine.pump.isBusy);
    EXPECT_EQ(machine.files.Text("C:\\Data\\Events.dat").size(), 2 * kLegacyRecordSize);
    EXPECT_EQ(machine.files.Kind("C:\\Data\\Expired.xml"), PathKind::File);

    app->events->DeleteRecord("100");
    Start();
    EXPECT_THAT(machine.dialogs.messages, ElementsAre(kConverted));
    EXPECT_THAT(Shown(*app->events), ElementsAre("Ann: two"));

    machine.files.Remove("C:\\Data\\Events.xml");
    Start();
    EXPECT_THAT(machine.dialogs.messages, ElementsAre(kConverted, kConverted));
    EXPECT_THAT(Shown(*app->events), ElementsAre("Ann: one", "Ann: two"));
}

TEST_F(ConversionStory, AnExpiredFileAloneIsConvertedInSilence) {
    PutOld("Expired.dat", {"gone"});
    machine.files.Put("C:\\Data\\Events.xml", "");
    PutOld("Events.dat", {"not wanted"});
    Start();
    EXPECT_THAT(machine.dialogs.messages, IsEmpty());
    EXPECT_THAT(Shown(*app->events), IsEmpty());
    EXPECT_THAT(Shown(*app->expired), ElementsAre("Ann: gone"));
}

TEST_F(ConversionStory, WhatCannotBeWrittenStaysInMemoryAndIsTold) {
    PutOld("Events.dat", {"one"});
    machine.files.At("C:\\Data").readOnly = true;
    Start();
    ASSERT_THAT(machine.dialogs.messages,
                ElementsAre(HasSubstr("C:\\Data\\Events.xml could not be written")));
    EXPECT_EQ(machine.files.Kind("C:\\Data\\Events.xml"), PathKind::Missing);
    EXPECT_EQ(machine.files.Text("C:\\Data\\Events.dat").size(), kLegacyRecordSize);
    EXPECT_THAT(Shown(*app->events), ElementsAre("Ann: one"));

    machine.files.At("C:\\Data").readOnly = false;
    EXPECT_TRUE(app->events->SaveDB());
    machine.dialogs.messages.clear();
    Start();
    EXPECT_THAT(Shown(*app->events), ElementsAre("Ann: one"));
    EXPECT_THAT(machine.dialogs.messages, IsEmpty());
}

TEST_F(ConversionStory, WhatCannotBeReadIsNotTakenForEmpty) {
    PutOld("Events.dat", {"one"});
    PutOld("Expired.dat", {"gone"});
    const std::string good = machine.files.Text("C:\\Data\\Events.dat");
    for (const std::string& damaged : {std::string(), std::string(2000, '\0'), good}) {
        machine.files.Put("C:\\Data\\Events.dat", damaged);
        machine.files.At("C:\\Data\\Events.dat").locked = damaged == good;
        machine.dialogs.messages.clear();
        Start();
        ASSERT_THAT(machine.dialogs.messages, ElementsAre(HasSubstr("Events.dat could not be read")));
        EXPECT_EQ(machine.files.Kind("C:\\Data\\Events.xml"), PathKind::Missing);
    }
    EXPECT_THAT(Shown(*app->expired), ElementsAre("Ann: gone"));
    EXPECT_EQ(app->events->DBFilename(), "C:\\Data\\Events.xml");

    machine.files.At("C:\\Data\\Events.dat").locked = false;
    Start();
    EXPECT_THAT(Shown(*app->events), ElementsAre("Ann: one"));
    EXPECT_EQ(machine.dialogs.messages.back(), kConverted);
}

}  // namespace
}  // namespace kaz
