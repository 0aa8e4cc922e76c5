#pragma once

#include <windows.h>

#include <string>

namespace kaz {

// In the place of what is there. False while another program keeps the clipboard, or when there is no memory.
bool PutOnClipboard(HWND owner, const std::wstring& text);

}  // namespace kaz
