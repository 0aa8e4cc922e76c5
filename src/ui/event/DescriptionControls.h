#pragma once

#include "forms/Controls.h"
#include "model/clsEvent.h"
#include "resources/resource.h"

#include <string>

namespace kaz {

// The part of the event editor that holds the event's text.
class DescriptionControls {
public:
    explicit DescriptionControls(Window& window) : window_(window) {}

    void ShowNew();
    // One that is too long to be edited stays as it is, whatever else is changed.
    void Show(const clsEvent& event);
    // Copies the text into the event, without the empty lines at its start. A text box cannot show every byte
    // that a description may hold; one that the user has not touched keeps them all. Throws FieldFault.
    void Take(clsEvent& event) const;

    bool Enabled() const { return txtDesc.Enabled(); }

private:
    Window& window_;
    TextBox txtDesc{window_, IDC_txtDesc};
    std::string shown_;
};

}  // namespace kaz
