// What this machine allows for the event file that KAZ_BENCH_EVENTS names, by code that does no more than
// what the name says.
#include "floor/Reader.h"
#include "floor/Writer.h"

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>

namespace bare {
namespace {

const char* EventFile() {
    const char* name = std::getenv("KAZ_BENCH_EVENTS");
    if (!name) throw std::runtime_error("KAZ_BENCH_EVENTS names no file");
    return name;
}

// Into a buffer that is there already.
void Read(std::string& buffer) {
    const int file = open(EventFile(), O_RDONLY);
    std::size_t at = 0;
    for (ssize_t got; at < buffer.size() && (got = read(file, buffer.data() + at, buffer.size() - at)) > 0;)
        at += static_cast<std::size_t>(got);
    close(file);
}

void ReadAndFind(benchmark::State& state, Search search) {
    std::string buffer = ReadWhole(EventFile());
    for (auto _ : state) {
        Read(buffer);
        benchmark::DoNotOptimize(FindAllFields(buffer, search));
    }
}

void MakeText(benchmark::State& state) {
    const std::vector<Record> records = ReadFile(EventFile());
    for (auto _ : state) {
        std::string text;
        text.reserve(records.size() * 1280 + 64);
        Write(records, [&](std::string_view piece) { text.append(piece); });
        benchmark::DoNotOptimize(text.data());
    }
}

void FlushFolder(const std::filesystem::path& folder) {
    const int file = open(folder.c_str(), O_RDONLY | O_DIRECTORY);
    fsync(file);
    close(file);
}

void WriteFlushRename(benchmark::State& state) {
    const std::string text = ReadWhole(EventFile());
    const std::filesystem::path folder = std::filesystem::temp_directory_path() / "kaz-bench-limits";
    std::filesystem::create_directories(folder);
    for (auto _ : state) {
        const int file = open((folder / "new").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        if (write(file, text.data(), text.size()) != static_cast<ssize_t>(text.size()))
            throw std::runtime_error("not written");
        fsync(file);
        close(file);
        std::filesystem::rename(folder / "new", folder / "saved");
        FlushFolder(folder);
    }
    std::filesystem::remove_all(folder);
}

BENCHMARK_CAPTURE(ReadAndFind, AtExpectedPlace, Search::AtExpectedPlace)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ReadAndFind, InOrder, Search::InOrder)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ReadAndFind, WordForWord, Search::WordForWord)->Unit(benchmark::kMillisecond);
BENCHMARK(MakeText)->Unit(benchmark::kMillisecond);
BENCHMARK(WriteFlushRename)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace bare
