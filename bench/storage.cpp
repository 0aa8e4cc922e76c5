// What the event database costs inside a process: loading, saving, the rules and new codes.
// With KAZ_BENCH_EVENTS=FILE the loads and saves work on that file instead of events made here.

#include "base/Text.h"
#include "fakes/FakePlatform.h"
#include "platform/Files.h"
#include "platform/posix/PosixFileSystem.h"
#include "storage/EventOperations.h"
#include "storage/EventReplay.h"
#include "storage/clsDbXml.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <utility>

namespace kaz {
namespace {

// A database over real files in a folder of its own.
class Bench {
public:
    Bench() { std::filesystem::create_directories(folder_); }
    ~Bench() { std::filesystem::remove_all(folder_); }
    Bench(const Bench&) = delete;
    Bench& operator=(const Bench&) = delete;

    clsDbXml Database() { return clsDbXml(stores); }
    std::string Path(const std::string& name) const { return (folder_ / name).string(); }

    // The file that loads and saves work on, in the written layout.
    std::string EventFile(std::int64_t count) {
        if (const char* given = std::getenv("KAZ_BENCH_EVENTS")) return given;
        clsDbXml database = Database();
        for (std::int64_t i = 0; i < count; ++i)
            database.StoreRecord(Event(i));
        database.SetDBFilename(Path("Events.xml"));
        database.SaveDB();
        return database.DBFilename();
    }

    static clsEvent Event(std::int64_t i) {
        clsEvent event;
        event.Desc("Renew the passport photos, room B/12; ask about the fee (" + std::to_string(i) + ")");
        event.Owner("Single");
        event.Recurring(i % 3 != 0);
        event.RecurrenceType(static_cast<std::int32_t>(i % 6));
        event.DueDate(DateValue(46000 + static_cast<std::int32_t>(i % 400)));
        event.StartDate(event.DueDate());
        event.DueTime(DateValue::FromTime(static_cast<int>(i % 24), 30));
        event.DaysWarning(static_cast<std::int16_t>(i % 14));
        return event;
    }

    PosixFileSystem files;
    FakePlatform machine;
    cSharedLogging log{files, machine.clock, machine.system, {"KAZ", "benchmark"}};
    cSHAREDSettings settings{files, machine.locale, machine.dialogs, log};
    clsLayers layers{settings, machine.locale};
    Stores stores{machine.Services(files), log, settings, layers};

private:
    std::filesystem::path folder_ = std::filesystem::temp_directory_path() / "kaz-bench-storage";
};

void Load(benchmark::State& state, Bench& bench, const std::string& file) {
    for (auto _ : state) {
        clsDbXml database = bench.Database();
        database.LoadDB(file);
        benchmark::DoNotOptimize(database.RecordCount());
        if (database.RecordCount() == 0) throw std::runtime_error("nothing loaded");
        state.PauseTiming();
        database.ChangeEvents([](std::vector<clsEvent>& events) { events.clear(); });
        state.ResumeTiming();
    }
}

void LoadAsWritten(benchmark::State& state) {
    Bench bench;
    Load(state, bench, bench.EventFile(state.range(0)));
}

// Every block off the written layout.
void LoadOtherLayout(benchmark::State& state) {
    Bench bench;
    const std::string text = ReadWholeFile(bench.files, bench.EventFile(state.range(0)));
    WriteWholeFile(bench.files, bench.Path("Other.xml"), ReplaceAll(text, kLineBreak, "\n"));
    Load(state, bench, bench.Path("Other.xml"));
}

void Save(benchmark::State& state) {
    Bench bench;
    clsDbXml database = bench.Database();
    database.LoadDB(bench.EventFile(state.range(0)));
    database.SetDBFilename(bench.Path("Saved.xml"));
    bool shared = false;
    for (auto _ : state) {
        // A save of what stands in the file already would write nothing.
        shared = !shared;
        database.ChangeEvents([&](std::vector<clsEvent>& events) { events.front().SharedEvent = shared; });
        if (!database.SaveDB()) throw std::runtime_error("not saved");
    }
}

// What a save cannot do without.
void WriteFlushReplace(benchmark::State& state) {
    Bench bench;
    const std::string text = ReadWholeFile(bench.files, bench.EventFile(state.range(0)));
    for (auto _ : state) {
        const auto file = bench.files.Create(bench.Path("New"));
        file->Write(text);
        file->Flush();
        file->Close();
        bench.files.Replace(bench.Path("New"), bench.Path("Saved.xml"));
    }
}

// All but one, as one command of the list.
void DeleteMany(benchmark::State& state) {
    Bench bench;
    const std::string file = bench.EventFile(state.range(0));
    const std::string before = ReadWholeFile(bench.files, file);
    for (auto _ : state) {
        state.PauseTiming();
        WriteWholeFile(bench.files, file, before);
        clsDbXml events = bench.Database();
        clsDbXml expired = bench.Database();
        events.LoadDB(file);
        std::vector<std::string> codes;
        for (const clsEvent& event : events.AllEvents())
            codes.push_back(event.IDCode);
        codes.pop_back();
        state.ResumeTiming();
        EventOperations(events, expired, bench.stores).DeleteEvents(codes);
    }
}

// The same taken back, event by event, as one command.
void UndoDeletion(benchmark::State& state) {
    Bench bench;
    const std::string file = bench.EventFile(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        clsDbXml events = bench.Database();
        clsDbXml expired = bench.Database();
        events.LoadDB(file);
        expired.LoadDB(bench.Path("Expired.xml"));
        std::vector<std::string> codes;
        for (const clsEvent& event : std::as_const(events).AllEvents())
            codes.push_back(event.IDCode);
        EventOperations operations(events, expired, bench.stores);
        operations.DeleteEvents(codes);
        std::vector<ChangedEvent> changes = operations.TakeChanges();
        for (ChangedEvent& change : changes)
            change.Reverse();
        state.ResumeTiming();
        const auto result = EventReplay(events, expired, bench.stores).Run(std::move(changes));
        state.PauseTiming();
        if (result.done.size() != codes.size()) throw std::runtime_error("not all are back");
        state.ResumeTiming();
    }
}

// The others' shared files, as LoadMultiple finds them.
constexpr int kUsers = 50;

std::string ShareOf(Bench& bench, int eventsEach) {
    std::string names;
    for (int user = 0; user < kUsers; ++user) {
        clsDbXml database = bench.Database();
        for (int i = 0; i < eventsEach; ++i)
            database.StoreRecord(Bench::Event(i));
        const std::string name = "User" + std::to_string(user);
        database.SetDBFilename(bench.Path("Shared_" + name + ".xml"));
        database.SaveDB();
        names.append(name).append(kLineBreak);
    }
    bench.settings.StoreSetting("SharedDataPath", bench.Path(""));
    bench.log.NOLOGGING(true);
    WriteWholeFile(bench.files, bench.Path("KAZShared.ini"), names);
    return bench.Path("KAZShared.ini");
}

void LoadUsers(benchmark::State& state) {
    Bench bench;
    const std::string list = ShareOf(bench, static_cast<int>(state.range(0)) / kUsers);
    for (auto _ : state) {
        clsDbXml database = bench.Database();
        database.LoadMultiple(list);
        if (database.RecordCount() != state.range(0)) throw std::runtime_error("not all loaded");
        state.PauseTiming();
        database.ChangeEvents([](std::vector<clsEvent>& events) { events.clear(); });
        state.ResumeTiming();
    }
}

void ChangeCheck(benchmark::State& state) {
    Bench bench;
    clsDbXml database = bench.Database();
    database.LoadMultiple(ShareOf(bench, 1));
    for (auto _ : state)
        if (database.DatabaseChanged()) throw std::runtime_error("nothing has changed");
}

// The calls of the system that a check cannot do without.
void FileTimes(benchmark::State& state) {
    Bench bench;
    std::vector<std::string> paths{ShareOf(bench, 1)};
    for (int user = 0; user < kUsers; ++user)
        paths.push_back(bench.Path("Shared_User" + std::to_string(user) + ".xml"));
    for (auto _ : state)
        for (const std::string& path : paths)
            benchmark::DoNotOptimize(bench.files.ModificationTime(path));
}

void AddOneByOneAndSave(benchmark::State& state) {
    Bench bench;
    for (auto _ : state) {
        clsDbXml database = bench.Database();
        database.SetDBFilename(bench.Path("Added.xml"));
        for (std::int64_t i = 0; i < state.range(0); ++i)
            database.StoreRecord(Bench::Event(i));
        if (!database.SaveDB()) throw std::runtime_error("not saved");
    }
}

// One call, five years behind.
void Rule(benchmark::State& state) {
    const DateValue today = DateValue::FromCivil(2026, 3, 2);
    const DateValue start = DateValue::FromCivil(2021, 3, 4);
    clsEvent event;
    event.RecurrenceType(static_cast<std::int32_t>(state.range(0)));
    event.WeekDays(128);
    event.DayOfMonth(31);
    event.MonthNumber(state.range(0) == RecurNthWeekday ? std::int16_t{1} : kEveryMonthByDay);
    event.Daynumber(5);
    event.DayOfWeek(1);
    event.Period(1);
    Bench bench;
    for (auto _ : state) {
        event.StartDate(start);
        event.DueDate(start);
        event.CalcNextDueDate(today, bench.log);
        benchmark::DoNotOptimize(event);
    }
}

BENCHMARK(LoadAsWritten)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(LoadOtherLayout)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(Save)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(WriteFlushReplace)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(LoadUsers)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(ChangeCheck)->Unit(benchmark::kMicrosecond);
BENCHMARK(FileTimes)->Unit(benchmark::kMicrosecond);
BENCHMARK(AddOneByOneAndSave)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(DeleteMany)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(UndoDeletion)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(Rule)->DenseRange(RecurWeekdays, RecurEveryNDays);

}  // namespace
}  // namespace kaz
