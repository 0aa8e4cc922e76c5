#pragma once

#include "forms/Window.h"

#include <windows.h>

#include <optional>

namespace kaz {

// The system's own controls in plain words. A null handle reads as empty and ignores what it is told.

enum class ControlKind { Other, AnyButton, ComboBox, Edit, ListBox, Static, TabStrip };
ControlKind KindOf(HWND control);

// What a control's WM_COMMAND notification means; nothing for those that nobody needs.
std::optional<Raised> RaisedByCommand(HWND control, unsigned notification);

// Throws InvalidCall for a character that the code page cannot hold.
std::string ControlText(HWND control);
void SetControlText(HWND control, const std::string& text);
// Of the text in one line, in pixels.
int TextWidth(HWND control);

}  // namespace kaz
