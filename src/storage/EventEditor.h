#pragma once

#include "model/clsEvent.h"

namespace kaz {

enum class EditMode { Whole, SharingOnly };

// Lets the user change one event. The event operations ask for it; the user interface answers with its
// dialog.
class EventEditor {
public:
    virtual ~EventEditor() = default;
    // Modal. True when the user saved; the event is the caller's own copy and is unchanged otherwise.
    virtual bool Edit(clsEvent& event, EditMode mode) = 0;
};

}  // namespace kaz
