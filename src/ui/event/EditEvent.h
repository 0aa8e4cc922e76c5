#pragma once

#include "core/Application.h"
#include "storage/EventOperations.h"

namespace kaz {

// The event editor as a modal dialog (frmEvent): true when the user saved; else the event is as it was. The
// dialog counts among the open windows while it is shown, so that the end of the program ends it too, as if
// the user had given up.
bool EditEvent(Application& application, clsEvent& event, EditMode mode);

}  // namespace kaz
