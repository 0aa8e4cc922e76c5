#include "unit/model/GoldenRules.h"

#include "base/Text.h"
#include "fakes/TestData.h"

#include <cstdio>
#include <fstream>
#include <map>
#include <sstream>
#include <stdexcept>

namespace kaz {

namespace {

DateValue ReadDate(const std::string& text) {
    int year = 0, month = 0, day = 0, hour = 0, minute = 0;
    const int read = std::sscanf(text.c_str(), "%d-%d-%d %d:%d", &year, &month, &day, &hour, &minute);
    if (read != 3 && read != 5) throw std::runtime_error("No date: " + text);
    return DateValue::FromCivil(year, month, day).PlusMinutes(hour * 60 + minute);
}

void ReadField(RecurrenceRule& rule, const std::string& field) {
    const auto equals = field.find('=');
    const std::string name = field.substr(0, equals);
    const std::string value = field.substr(equals + 1);
    if (name == "StartDate") {
        rule.startDate = ReadDate(value);
        return;
    }
    static const std::map<std::string, std::int16_t RecurrenceRule::*> kFields{
        {"WeekDays", &RecurrenceRule::weekDays},       {"DayOfMonth", &RecurrenceRule::dayOfMonth},
        {"MonthNumber", &RecurrenceRule::monthNumber}, {"Period", &RecurrenceRule::period},
        {"Daynumber", &RecurrenceRule::dayNumber},     {"DayOfWeek", &RecurrenceRule::dayOfWeek}};
    rule.*kFields.at(name) = static_cast<std::int16_t>(std::stoi(value));
}

GoldenRule ReadLine(const std::string& line) {
    std::vector<std::string> columns;
    for (const auto column : Split(line, "|"))
        columns.emplace_back(Trim(column));
    if (columns.size() != 5) throw std::runtime_error("Five columns wanted: " + line);

    GoldenRule golden;
    golden.line = line;
    std::istringstream fields(columns[0]);
    fields >> golden.rule.type;
    for (std::string field; fields >> field;)
        ReadField(golden.rule, field);
    golden.reference = ReadDate(columns[1]);
    golden.today = columns[2] == "-" ? golden.reference.DateOnly() : ReadDate(columns[2]);
    if (columns[3].starts_with("error ")) {
        golden.error = std::stoi(columns[3].substr(6));
    } else if (columns[3] != "unchanged") {
        const DateValue start = columns[4].empty() ? golden.rule.startDate : ReadDate(columns[4]);
        golden.expected = Occurrence{ReadDate(columns[3]), start};
    }
    return golden;
}

}  // namespace

std::vector<GoldenRule> ReadGoldenRules() {
    std::ifstream file(TestData() + "/golden/recurrence.txt");
    std::vector<GoldenRule> rules;
    for (std::string line; std::getline(file, line);) {
        while (!line.empty() && (line.back() == '\r' || line.back() == ' '))
            line.pop_back();
        if (!line.empty() && line.front() != '#') rules.push_back(ReadLine(line));
    }
    if (rules.empty()) throw std::runtime_error("The table of rules is missing or empty");
    return rules;
}

}  // namespace kaz
