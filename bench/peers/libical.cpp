// A calendar program around libical.
#include "Arguments.h"

#include <libical/ical.h>

#include <cstdlib>
#include <cstring>

namespace {

std::string ReadWhole(const std::string& name) {
    std::string text;
    std::FILE* file = std::fopen(name.c_str(), "rb");
    if (!file) return text;
    std::fseek(file, 0, SEEK_END);
    text.resize(static_cast<std::size_t>(std::ftell(file)));
    std::rewind(file);
    if (std::fread(text.data(), 1, text.size(), file) != text.size()) text.clear();
    std::fclose(file);
    return text;
}

icaltimetype DayOf(icaltimetype time) {
    time.hour = time.minute = time.second = 0;
    time.is_date = 1;
    return time;
}

icaltimetype DayOf(int year, int month, int day) {
    icaltimetype time = icaltime_null_date();
    time.year = year;
    time.month = month;
    time.day = day;
    return time;
}

// All days of the event from `first` to `last`, until `take` has had enough.
template <typename Take>
void ForEachDay(icalcomponent* event, icaltimetype first, icaltimetype last, Take take) {
    const icaltimetype start = DayOf(icalcomponent_get_dtstart(event));
    icalproperty* rule = icalcomponent_get_first_property(event, ICAL_RRULE_PROPERTY);
    if (!rule) {
        if (icaltime_compare(start, first) >= 0 && icaltime_compare(start, last) <= 0) take(start);
        return;
    }
    icalrecur_iterator* days = icalrecur_iterator_new(icalproperty_get_rrule(rule), start);
    if (icaltime_compare(start, first) < 0) icalrecur_iterator_set_start(days, first);
    for (icaltimetype day = icalrecur_iterator_next(days);
         !icaltime_is_null_time(day) && icaltime_compare(day, last) <= 0; day = icalrecur_iterator_next(days))
        if (icaltime_compare(day, first) >= 0 && !take(day)) break;
    icalrecur_iterator_free(days);
}

int DaysWarning(icalcomponent* event) {
    for (icalproperty* property = icalcomponent_get_first_property(event, ICAL_X_PROPERTY); property;
         property = icalcomponent_get_next_property(event, ICAL_X_PROPERTY))
        if (std::strcmp(icalproperty_get_x_name(property), "X-DAYS-WARNING") == 0)
            return std::atoi(icalproperty_get_x(property));
    return 0;
}

template <typename Take>
void ForEachEvent(icalcomponent* calendar, Take take) {
    for (icalcomponent* event = icalcomponent_get_first_component(calendar, ICAL_VEVENT_COMPONENT); event;
         event = icalcomponent_get_next_component(calendar, ICAL_VEVENT_COMPONENT))
        take(event);
}

void PrintAgenda(icalcomponent* calendar, icaltimetype today) {
    const icaltimetype never = DayOf(9999, 12, 31);
    ForEachEvent(calendar, [&](icalcomponent* event) {
        ForEachDay(event, today, never, [&](icaltimetype day) {
            // Right within a year, and no warning is longer.
            const int left =
                icaltime_day_of_year(day) - icaltime_day_of_year(today) + (day.year - today.year) * 366;
            if (left == 0)
                std::printf("%s\n", icalcomponent_get_summary(event));
            else if (left <= DaysWarning(event))
                std::printf("In %d days: %s\n", left, icalcomponent_get_summary(event));
            return false;
        });
    });
}

void PrintMonth(icalcomponent* calendar, int year, int month) {
    const Stopwatch stopwatch;
    const icaltimetype first = DayOf(year, month, 1);
    const icaltimetype last = DayOf(year, month, icaltime_days_in_month(month, year));
    ForEachEvent(calendar, [&](icalcomponent* event) {
        ForEachDay(event, first, last, [&](icaltimetype day) {
            std::printf("%d %.12s\n", day.day, icalcomponent_get_summary(event));
            return true;
        });
    });
}

bool Save(icalcomponent* calendar, const std::string& name) {
    char* text = icalcomponent_as_ical_string_r(calendar);
    std::FILE* file = std::fopen(name.c_str(), "wb");
    if (!file) return false;
    const bool written = std::fputs(text, file) >= 0;
    return std::fclose(file) == 0 && written;
}

}  // namespace

int main(int count, char** values) {
    const Arguments arguments(count, values);
    if (!arguments.valid) return 2;
    const std::string text = ReadWhole(arguments.file);
    icalcomponent* calendar = icalparser_parse_string(text.c_str());
    if (!calendar) return 1;
    bool done = true;
    if (arguments.operation == "agenda")
        PrintAgenda(calendar, DayOf(arguments.year, arguments.month, arguments.day));
    else if (arguments.operation == "month")
        PrintMonth(calendar, arguments.year, arguments.month);
    else
        done = Save(calendar, arguments.out);
    std::fflush(stdout);
    std::_Exit(done ? 0 : 1);  // the memory goes with the process
}
