// A calendar program around KCalendarCore.
#include "Arguments.h"

#include <KCalendarCore/Event>
#include <KCalendarCore/ICalFormat>
#include <KCalendarCore/MemoryCalendar>
#include <KCalendarCore/Recurrence>
#include <QCoreApplication>
#include <QDate>
#include <QTimeZone>
#include <cstdlib>

using namespace KCalendarCore;

namespace {

QByteArray BeginOf(const Event::Ptr& event) { return event->summary().left(12).toLocal8Bit(); }

void PrintAgenda(const MemoryCalendar& calendar, QDate today) {
    const QDateTime before(today.addDays(-1), QTime(23, 59, 59), QTimeZone::utc());
    const Event::List events = calendar.rawEvents();
    for (const Event::Ptr& event : events) {
        QDate due = event->dtStart().date();
        if (event->recurs() && due < today) due = event->recurrence()->getNextDateTime(before).date();
        const qint64 left = today.daysTo(due);
        if (!due.isValid() || left < 0) continue;
        if (left == 0)
            std::printf("%s\n", qPrintable(event->summary()));
        else if (left <= event->nonKDECustomProperty("X-DAYS-WARNING").toInt())
            std::printf("In %lld days: %s\n", left, qPrintable(event->summary()));
    }
}

void PrintMonth(const MemoryCalendar& calendar, QDate first) {
    const Stopwatch stopwatch;
    const QDateTime from(first, QTime(0, 0), QTimeZone::utc());
    const QDateTime to(first.addMonths(1).addDays(-1), QTime(23, 59, 59), QTimeZone::utc());
    const Event::List events = calendar.rawEvents();
    for (const Event::Ptr& event : events) {
        if (event->recurs()) {
            const auto times = event->recurrence()->timesInInterval(from, to);
            for (const QDateTime& time : times)
                std::printf("%d %s\n", time.date().day(), BeginOf(event).constData());
        } else if (event->dtStart().date() >= from.date() && event->dtStart().date() <= to.date()) {
            std::printf("%d %s\n", event->dtStart().date().day(), BeginOf(event).constData());
        }
    }
}

}  // namespace

int main(int count, char** values) {
    const Arguments arguments(count, values);
    if (!arguments.valid) return 2;
    const QCoreApplication application(count, values);
    const MemoryCalendar::Ptr calendar(new MemoryCalendar(QTimeZone::utc()));
    ICalFormat format;
    if (!format.load(calendar, QString::fromStdString(arguments.file))) return 1;
    bool done = true;
    if (arguments.operation == "agenda")
        PrintAgenda(*calendar, {arguments.year, arguments.month, arguments.day});
    else if (arguments.operation == "month")
        PrintMonth(*calendar, {arguments.year, arguments.month, 1});
    else
        done = format.save(calendar, QString::fromStdString(arguments.out));
    std::fflush(stdout);
    std::_Exit(done ? 0 : 1);  // the memory goes with the process
}
