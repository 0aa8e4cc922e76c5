#include "ui/list/EmptyList.h"

namespace kaz {

namespace {

bool HasEvents(const Application& app) {
    for (const auto* database : {&app.events, &app.shared, &app.expired})
        if (*database && (*database)->RecordCount() > 0) return true;
    return false;
}

}  // namespace

std::string WhyEmpty(const Application& application, std::int16_t category, bool narrowed) {
    if (!HasEvents(application))
        return "KAZ reminds you of what comes up: birthdays, bills, appointments. There are no events "
               "yet.\r\n"
               "Press Ctrl+N and fill in the first one, or Ctrl+I and write it in words: dentist tomorrow "
               "15:30\r\n"
               "Close this window when you like: KAZ goes on reminding you from the tray. F1 opens the help.";
    if (narrowed)
        return "No event has these letters in its text, category or owner. Esc in the box shows all again.";
    if (category == clsLayers::kShared)
        return "No event is ever here: a shared one is in the category that its owner has given it.\r\n"
               "Choose \"All Categories\": those that you share are green, those of others blue.";
    if (category != clsLayers::kAll)
        return "There are no events in this category. \"All Categories\" above shows the others.";
    return "No event is ahead. \"Show Expired\" above shows those that are over.";
}

}  // namespace kaz
