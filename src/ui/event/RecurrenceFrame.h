#pragma once

#include "forms/Controls.h"
#include "model/clsEvent.h"
#include "resources/resource.h"

namespace kaz {

// What stands under one tab of the event editor: the fields of one kind of recurrence.
class RecurrenceFrame {
public:
    RecurrenceFrame(Window& window, int type)
        : window_(window),
          first_(IDC_fraEvent + FRAME_CONTROLS * type) {}
    virtual ~RecurrenceFrame() = default;
    RecurrenceFrame(const RecurrenceFrame&) = delete;
    RecurrenceFrame& operator=(const RecurrenceFrame&) = delete;

    // Fills the lists and offers what suits `today`.
    virtual void ShowNew(DateValue today) = 0;
    virtual void Show(const clsEvent& event) = 0;
    // Copies the fields of this kind into the event; throws FieldFault.
    virtual void Take(clsEvent& event) const = 0;

    void Visible(bool visible) {
        for (int control = first_; control < first_ + FRAME_CONTROLS; ++control)
            window_.SetControlVisible(control, visible);
    }

protected:
    kaz::Window& window() const { return window_; }

private:
    Window& window_;
    int first_;
};

}  // namespace kaz
