#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace bare {

// One event as the floor program keeps it.
struct Record {
    std::string code, description, sharedLayer, email, owner, file, sound, shareNames;
    int due = 0, start = 0, daysLeft = 0, type = 0, alarmMinute = 0, dueMinute = 0;
    std::int16_t number = 0, dayOfMonth = 0, dayOfWeek = 0, warning = 0, layer = 0, minutesWarning = 0,
                 month = 0, period = 0, weekDays = 0;
    bool alarm = false, deleted = false, mailSent = false, recurring = false, shared = false, runFile = false,
         playSound = false, specific = false;
};

// A field with its tags, in the order of the file.
struct Tags {
    std::string_view open, close;
};

#define TAGS(name)                                                                                           \
    { "<" name ">", "</" name ">" }
inline constexpr std::array<Tags, 31> kTags = {{
    TAGS("IDCode"),      TAGS("AlarmSet"),       TAGS("AlarmTime"),
    TAGS("DayNumber"),   TAGS("DayOfMonth"),     TAGS("DayOfWeek"),
    TAGS("DaysLeft"),    TAGS("DaysWarning"),    TAGS("Deleted"),
    TAGS("MailSent"),    TAGS("Desc"),           TAGS("DueDate"),
    TAGS("DueTime"),     TAGS("Layer"),          TAGS("SharedLayerName"),
    TAGS("Email"),       TAGS("MinutesWarning"), TAGS("MonthNumber"),
    TAGS("Owner"),       TAGS("Period"),         TAGS("RecurrenceType"),
    TAGS("Recurring"),   TAGS("StartDate"),      TAGS("WeekDays"),
    TAGS("SharedEvent"), TAGS("ExecFile"),       TAGS("Filename"),
    TAGS("WavFile"),     TAGS("PlayWav"),        TAGS("ShareWithSpecific"),
    TAGS("ShareNames"),
}};
#undef TAGS

using Fields = std::array<std::string_view, kTags.size()>;

}  // namespace bare
