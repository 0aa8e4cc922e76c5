#include "ui/forecast/Forecast.h"

#include "base/DateText.h"
#include "base/Text.h"
#include "platform/Clock.h"
#include "platform/Locale.h"
#include "reminders/ReminderDay.h"
#include "reminders/ReminderText.h"

#include <algorithm>
#include <utility>

namespace kaz {

void Forecast::Look(const Application& application, DateValue first) {
    rows_.clear();
    const std::int32_t last = std::min(first.Day() + kDays - 1, kLastDay);
    for (std::int32_t day = first.Day(); day <= last; ++day)
        AddDay(application, DateValue(day));
}

void Forecast::AddDay(const Application& application, DateValue day) {
    const LocaleData& locale = application.platform.locale.Data();
    ReminderDay told(VisibleEvents(application.settings), day);
    told.AddReminders(application.events.get());
    told.AddAlarms(application.events.get(), EventSource::Local);
    if (application.Networked()) told.AddAlarms(application.shared.get(), EventSource::Shared);

    const std::size_t before = rows_.size();
    const auto time = [&](DateValue moment) { return FormatDate(moment, "HH:NN", locale); };
    const auto add = [&](const char* window, const std::vector<ReminderLine>& added) {
        ReminderLines lines;
        lines.Add(added);
        for (const ReminderLine& line : lines.All())
            rows_.push_back({"", window, line.time ? time(*line.time) : "", OneLine(line.text)});
    };
    add(kHeadingToday, told.TodaysLines());
    for (const ReminderDay::Alarm& alarm : told.Alarms()) {
        const bool runs = alarm.event->ExecFile;
        std::string text = OneLine(alarm.event->DescShown());
        if (alarm.source == EventSource::Shared) text += " (" + alarm.event->Owner() + ")";
        if (runs) text += " - " + alarm.event->Filename;
        rows_.push_back({"", runs ? "Runs a file" : kHeadingAlarm, time(alarm.minute), std::move(text)});
    }
    add(kHeadingComingUp, told.UpcomingLines());
    if (rows_.size() == before) rows_.push_back({"", "", "", "Nothing"});
    const bool isToday = day == application.platform.clock.Today();
    rows_[before][kDay] =
        FormatDate(day, "DDD " + application.DatePattern(), locale) + (isToday ? ", today" : "");
}

std::string_view Forecast::CellText(int row, int column) const noexcept {
    return rows_[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
}

PaperList Forecast::OnPaper(std::string note) const {
    PaperList list{
        .title = "What KAZ will tell you", .note = std::move(note), .nothing = "Nothing", .rows = {}};
    for (const Row& row : rows_) {
        std::string text;
        for (const Column column : {kWindow, kTime, kText})
            if (const std::string& cell = row[column]; !cell.empty())
                text += (text.empty() ? "" : "  ") + cell;
        list.rows.push_back({row[kDay], text});
    }
    return list;
}

}  // namespace kaz
