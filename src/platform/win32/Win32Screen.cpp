#include "platform/win32/Win32Screen.h"

#include <windows.h>
#include <shellapi.h>

namespace kaz {

bool Win32Screen::IsTaken() const {
    QUERY_USER_NOTIFICATION_STATE state = QUNS_ACCEPTS_NOTIFICATIONS;
    if (FAILED(SHQueryUserNotificationState(&state))) return false;
    // Not the states of an empty chair (locked, screen saver), nor the first hour of a new computer:
    // reminders have to be there when the user comes.
    return state == QUNS_BUSY || state == QUNS_RUNNING_D3D_FULL_SCREEN || state == QUNS_PRESENTATION_MODE;
}

}  // namespace kaz
