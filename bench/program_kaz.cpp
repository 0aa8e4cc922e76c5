// The work of a day without any window, as one process, to be timed beside other programs:
//   agenda FILE YYYY-MM-DD       what is due that day and what comes up, a line each
//   month  FILE YYYY-MM-DD       the boxes of that day's month; stderr gets the milliseconds of filling them
//   save   FILE YYYY-MM-DD OUT   loads and writes the file
//   update FILE YYYY-MM-DD OUT   day change: loads, moves past events on, lists, saves safely
// The month is seen from 2 March 2026.

#include "base/DateText.h"
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
#include "model/MonthGrid.h"
#include "platform/Platform.h"
#include "platform/ZipArchiver.h"
#include "platform/posix/PosixFileSystem.h"
#include "reminders/ReminderText.h"
#include "reminders/ReminderWindows.h"
#include "reminders/clsReminder.h"
#include "storage/clsDbXml.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>
#include <vector>

namespace kaz {
namespace {

// The library of the real one alone would take longer to load than a thousand events.
struct NoArchiver : ZipArchiver {
    bool ZpInit() noexcept override { return false; }
    bool ZpSetOptions(const ZipOptions&) noexcept override { return false; }
    int ZpArchive(const std::string&, const std::vector<std::string>&) noexcept override {
        return kZipNothingToDo;
    }
    std::string ZpRead(const std::string&, const std::string&) noexcept override { return {}; }
    std::string LastMessage() const override { return {}; }
};

struct Fakes {
    Platform Services(FileSystem& files) {
        return {clock,  dialogs, files, locale, pump,    printer, random,
                screen, shell,   sound, system, windows, zip};
    }

    FakeClock clock;
    FakeDialogs dialogs;
    FakeLocale locale;
    FakePrinter printer;
    FakePump pump;
    FakeRandom random;
    FakeScreen screen;
    FakeShell shell;
    FakeSound sound;
    FakeSystemInfo system;
    FakeWindowFactory windows;
    NoArchiver zip;
};

class Program {
public:
    explicit Program(const std::string& out) : out_(out) {
        log_.OverrideLogFilename(out + ".log");
        settings_.sSet("Owner", std::string("Single"));
    }

    bool Run(const std::string& operation, const std::string& file, DateValue today) {
        machine_.clock.now = today;
        events_.LoadDB(file);
        if (operation == "save") return SaveTo(out_);
        if (operation == "month") {
            PrintMonth(today.Civil());
            return true;
        }
        if (operation == "agenda")
            MoveOn();
        else if (operation == "update")
            Update();
        else
            return false;
        PrintAgenda();
        return true;
    }

private:
    bool SaveTo(const std::string& file) {
        events_.SetDBFilename(file);
        return events_.SaveDB();
    }

    void Update() {
        events_.SetDBFilename(out_);
        expired_.SetDBFilename(out_ + ".expired");
        clsReminder(stores_, reminderWindows_, &events_, &expired_).UpdateAllEvents();
    }

    // What the update does, in memory only.
    void MoveOn() {
        const DateValue today = machine_.clock.Today();
        events_.ChangeEach([&](clsEvent& event) {
            if (event.DueDate() < today && event.Recurring()) event.CalcNextDueDate(today, log_);
            event.CalcDaysLeft(today);
        });
    }

    void PrintMonth(CivilDate wanted) const {
        const auto begin = std::chrono::steady_clock::now();
        MonthGrid grid(wanted.month, wanted.year, DateValue::FromCivil(2026, 3, 2), false);
        for (const clsEvent& event : events_.AllEvents())
            grid.Place(event);
        std::string text;
        for (int day = 1; day <= grid.Length(); ++day)
            for (std::size_t position = 0; position < grid.Count(day); ++position)
                text.append(grid.LineInBox(day, position)).append("\r\n");
        const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - begin;
        std::fprintf(stderr, "%.3f ms\n", took.count());
        std::fwrite(text.data(), 1, text.size(), stdout);
    }

    void PrintAgenda() const {
        std::string text;
        for (const clsEvent& event : events_.AllEvents()) {
            if (event.DaysLeft() == 0)
                text.append(event.Desc()).append("\n");
            else if (event.DaysLeft() >= 1 && event.DaysLeft() <= event.DaysWarning())
                text.append(UpcomingLine(event.DaysLeft(), event.Desc())).append("\n");
        }
        std::fwrite(text.data(), 1, text.size(), stdout);
    }

    std::string out_;
    PosixFileSystem files_;
    Fakes machine_;
    Platform platform_ = machine_.Services(files_);
    cSharedLogging log_{files_, machine_.clock, machine_.system, {"KAZ", "benchmark"}};
    cSHAREDSettings settings_{files_, machine_.locale, machine_.dialogs, log_};
    clsLayers layers_{settings_, machine_.locale};
    Stores stores_{platform_, log_, settings_, layers_};
    cSharedSound player_{machine_.sound, files_, log_};
    OpenWindows openWindows_;
    const std::string folder_ = ".";
    SideFile side_{files_, log_};
    Outcomes outcomes_{side_};
    Quiet quiet_{platform_, settings_, folder_};
    ReminderWindows reminderWindows_{
        {platform_, settings_, openWindows_, log_, player_, outcomes_, folder_, quiet_}};
    clsDbXml events_{stores_};
    clsDbXml expired_{stores_};
};

}  // namespace
}  // namespace kaz

int main(int count, char** arguments) try {
    if (count < 4) return 2;
    const kaz::DateValue today = kaz::TextToDate(arguments[3], kaz::LocaleData());
    kaz::Program program(count > 4 ? arguments[4] : "bench.out");
    const bool done = program.Run(arguments[1], arguments[2], today);
    std::fflush(stdout);
    // The memory goes with the process, as in the programs that this one is timed beside.
    std::_Exit(done ? 0 : 1);
} catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
}
