#include "forms/win32/Clipboard.h"

#include <cstring>

namespace kaz {

bool PutOnClipboard(HWND owner, const std::wstring& text) {
    const SIZE_T bytes = (text.size() + 1) * sizeof(wchar_t);
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes);
    void* const target = memory ? GlobalLock(memory) : nullptr;
    if (target) {
        std::memcpy(target, text.c_str(), bytes);
        GlobalUnlock(memory);
    }
    bool put = false;
    if (target && OpenClipboard(owner)) {
        put = EmptyClipboard() && SetClipboardData(CF_UNICODETEXT, memory);
        CloseClipboard();
    }
    // The system owns what it has taken.
    if (memory && !put) GlobalFree(memory);
    return put;
}

}  // namespace kaz
