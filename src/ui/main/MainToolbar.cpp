#include "ui/main/MainToolbar.h"

#include "resources/resource.h"

namespace kaz {

// The keys in brackets are those of the accelerator table of the window's template.
std::vector<ToolButton> MainToolbar() {
    return {
        {"exit", IDM_EXIT, "End the program (Ctrl+Q)"},
        {"addevent", IDM_ADD, "Add a new event (Ctrl+N)", true},
        {"editevent", IDM_EDIT, "Edit selected event (Enter)"},
        {"pushevent", IDM_PUSH,
         "Change due date to NEXT occurrence (one day on; Skip goes to the rule's next date) (Ctrl+U)"},
        {"skipevent", IDM_SKIP, "Skip to the next occurrence (Ctrl+K)"},
        {"deleteevent", IDM_DELETE, "Delete selected event(s) (Del)"},
        {"tasklist", IDM_TASKLIST, "Show task list (Ctrl+T)", true},
        {"monthview", IDM_MONTHVIEW, "Monthly Calendar (Ctrl+M)"},
        {"editlayers", IDM_EDITLAYERS, "Edit category names (Ctrl+L)"},
        {"reminders", IDM_REMINDERSMENU, "Reminders (Ctrl+R)"},
        {"options", IDM_OPTIONS, "Settings (Ctrl+O)", true},
        {"refresh", IDM_REFRESH, "Refresh event list (F5)"},
        {"log", IDM_LOG, "View program log (Ctrl+G)"},
        {"help", IDM_HELPMENU, "Show help (Ctrl+H)"},
    };
}

}  // namespace kaz
