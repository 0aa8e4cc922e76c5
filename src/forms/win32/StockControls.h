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

// For list boxes, combo boxes and tab strips.
void SetControlItems(HWND control, const std::vector<std::string>& items);
std::vector<std::string> ControlItems(HWND control);
std::vector<int> ControlSelection(HWND control);
void SetControlSelection(HWND control, const std::vector<int>& positions);

}  // namespace kaz
