#pragma once

#include "fakes/FakeClock.h"
#include "fakes/FakeDialogs.h"
#include "fakes/FakeLocale.h"
#include "fakes/FakePrinter.h"
#include "fakes/FakePump.h"
#include "fakes/FakeRandom.h"
#include "fakes/FakeScreen.h"
#include "fakes/FakeShell.h"
#include "fakes/FakeSound.h"
#include "fakes/FakeSystemInfo.h"
#include "fakes/FakeWindowFactory.h"
#include "fakes/MemoryFileSystem.h"
#include "platform/Platform.h"
#include "platform/zip/LibzipArchiver.h"

namespace kaz {

// The whole machine as fakes. A test sets the scene through the members, hands Services() to what it tries,
// and looks at the members again:
//
//     FakePlatform machine;
//     machine.clock.Set(2023, 3, 15, 9, 30);
//     machine.locale.data = FakeLocale::German();
//     machine.files.Put("C:\\KAZ\\Kaz.ini", "OWNER,Smith\r\n");
//     machine.dialogs.yesNo = {true};
//     machine.files.faults.FailAt(3, ErrorNumber::DiskFull);
//     Application application(machine.Services());
//     ...
//     EXPECT_THAT(machine.dialogs.messages, ElementsAre("..."));
//
// A test of a single class needs no more than the fakes which that class asks for. The machine has the folder
// "C:\KAZ", where the program's own file is.
class FakePlatform {
public:
    FakePlatform() {
        files.CreateFolder(system.moduleFolder);
        files.CreateFolder(system.temporaryFolder);
    }
    FakePlatform(const FakePlatform&) = delete;
    FakePlatform& operator=(const FakePlatform&) = delete;

    Platform Services() { return Services(files); }
    // On the disk of another machine, as two who share a folder have it.
    Platform Services(FileSystem& disk) {
        return {clock,  dialogs, disk,  locale, pump,      printer, random,
                screen, shell,   sound, system, *factory_, zip};
    }
    // Windows from elsewhere than `windows`, for Services() from now on.
    void UseWindows(WindowFactory& factory) { factory_ = &factory; }

    FakeClock clock;
    FakeDialogs dialogs;
    MemoryFileSystem files;
    FakeLocale locale;
    FakePrinter printer;
    FakePump pump;
    FakeRandom random;
    FakeScreen screen;
    FakeShell shell;
    FakeSound sound;
    FakeSystemInfo system;
    FakeWindowFactory windows;
    LibzipArchiver zip{files};  // the real one: it asks the machine for nothing but files

private:
    WindowFactory* factory_ = &windows;
};

}  // namespace kaz
