#pragma once

#include "forms/Window.h"
#include "forms/win32/ControlView.h"
#include "win32/Gdi.h"

#include <string>
#include <vector>

namespace kaz {

// A toolbar of pictures only; their texts are the tooltips, and the names for screen readers. The pictures
// are loaded in the size of the monitor's resolution.
class Toolbar : public ControlView {
public:
    Toolbar(HWND toolbar, HINSTANCE module) : toolbar_(toolbar), module_(module) {}

    void SetButtons(const std::vector<ToolButton>& buttons);
    // Another tooltip, and whether it can be pressed.
    void SetButton(int command, const std::string& tooltip, bool enabled);

    std::optional<LRESULT> OnNotify(const NMHDR& header) override;
    void OnDpiChanged() override { LoadPictures(); }
    // Beneath the button of a command.
    POINT MenuPointOf(int command) const;

private:
    void LoadPictures();

    HWND toolbar_;
    HINSTANCE module_;
    std::vector<ToolButton> buttons_;
    ImageList pictures_;
};

}  // namespace kaz
