// The work of a day on an event file in the shortest way, as one process: what program_kaz is measured
// against. It trusts the order of the fields, checks nothing, logs nothing and does not flush to the disk.
//   bench_program_floor agenda|month|save|update FILE YYYY-MM-DD OUT
// The operations and what they print are those of program_kaz; to stderr go the milliseconds of filling the
// month, of any other operation those of the whole.
#include "floor/Days.h"
#include "floor/Reader.h"
#include "floor/Rules.h"
#include "floor/Writer.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace bare {
namespace {

void Update(std::vector<Record>& records, int today) {
    auto keep = records.begin();
    for (auto record = records.begin(); record != records.end(); ++record) {
        if (record->due < today) {
            if (!record->recurring) continue;
            MoveOn(*record, today, today);
        }
        record->daysLeft = record->due - today;
        if (keep != record) *keep = std::move(*record);
        ++keep;
    }
    records.erase(keep, records.end());
}

std::string Agenda(const std::vector<Record>& records) {
    std::string text;
    for (const Record& record : records) {
        if (record.daysLeft >= 1 && record.daysLeft <= record.warning)
            text.append("In ")
                .append(std::to_string(record.daysLeft))
                .append(record.daysLeft == 1 ? " day: " : " days: ");
        else if (record.daysLeft != 0)
            continue;
        text.append(record.description).append("\n");
    }
    return text;
}

std::string Month(const std::vector<Record>& records, int shown) {
    const int today = DayNumber(2026, 3, 2);
    const Civil month = CivilOf(shown);
    const int first = DayNumber(month.year, month.month, 1);
    const int last = DayNumber(month.year, month.month + 1, 1) - 1;
    std::vector<std::string> boxes(31);
    for (Record record : records) {  // a copy, since the walk moves it
        const auto enter = [&] {
            boxes[static_cast<std::size_t>(record.due - first)]
                .append(record.description, 0, 12)
                .append("\r\n");
        };
        if (!record.recurring) {
            if (record.due >= first && record.due <= last) enter();
            continue;
        }
        while (record.due < first)
            MoveOn(record, record.due + 1, today);
        for (; record.due <= last; MoveOn(record, record.due + 1, today))
            enter();
    }
    std::string text;
    for (const std::string& box : boxes)
        text.append(box);
    return text;
}

bool Save(const std::vector<Record>& records, const char* name) {
    std::FILE* file = std::fopen(name, "wb");
    if (!file) return false;
    std::setvbuf(file, nullptr, _IONBF, 0);
    bool written = true;
    Write(records,
          [&](std::string_view piece) { written &= std::fwrite(piece.data(), 1, piece.size(), file) > 0; });
    return std::fclose(file) == 0 && written;
}

double Since(std::chrono::steady_clock::time_point begin) {
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
}

int Run(const std::string& operation, const char* file, int day, const char* out) {
    auto begin = std::chrono::steady_clock::now();
    std::vector<Record> records = ReadFile(file);
    std::string text;
    bool done = true;
    if (operation == "month") {
        begin = std::chrono::steady_clock::now();
        text = Month(records, day);
    }
    if (operation == "agenda" || operation == "update") {
        Update(records, day);
        text = Agenda(records);
    }
    if (operation == "save" || operation == "update") done = Save(records, out);
    std::fprintf(stderr, "%.3f ms\n", Since(begin));
    std::fwrite(text.data(), 1, text.size(), stdout);
    std::fflush(stdout);
    return done ? 0 : 1;
}

}  // namespace
}  // namespace bare

int main(int count, char** arguments) {
    if (count != 5) return 2;
    // The memory goes with the process.
    std::_Exit(bare::Run(arguments[1], arguments[2], bare::DayOf(arguments[3]), arguments[4]));
}
