#pragma once

#include "core/Application.h"
#include "storage/EventEditor.h"

namespace kaz {

// The event editor as a modal dialog (frmEvent). It counts among the open windows while it is shown, so that
// the end of the program ends it too, as if the user had given up.
class EventEditorDialog : public EventEditor {
public:
    // The application outlives the object.
    explicit EventEditorDialog(Application& application) : app_(application) {}

    bool Edit(clsEvent& event, EditMode mode) override;

private:
    Application& app_;
};

}  // namespace kaz
