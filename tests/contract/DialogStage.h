#pragma once

#include "Stage.h"
#include "core/Application.h"
#include "fakes/FakePlatform.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace kaz {

// The program with its data in "C:\KAZ" and with this stage's windows; the rest of the machine is fake.
class DialogContract : public testing::Test {
protected:
    DialogContract() {
        app.log.OverrideLogFilename("C:\\KAZ\\Log_KAZ.txt");
        app.settingsFileName = "C:\\KAZ\\Kaz.ini";
        machine.files.Put("C:\\KAZ\\alarm.wav", SampleWave());
    }
    Platform Services() {
        machine.UseWindows(stage->Windows());
        machine.pump.waiting = [this] { stage->Pump().ProcessPending(); };
        return machine.Services();
    }
    // What was told since the last call.
    std::vector<std::string> Told() { return std::exchange(machine.dialogs.messages, {}); }

    FakePlatform machine;
    std::unique_ptr<Stage> stage = Stage::Make();
    Application app{Services()};
};

}  // namespace kaz
