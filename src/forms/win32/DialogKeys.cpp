#include "forms/win32/DialogKeys.h"

#include <string_view>

namespace kaz {

namespace {

// A plain key such as Del belongs to the text that is being typed, and so do the keys of its undo and
// clipboard.
bool TypesText(const MSG& message) {
    if (message.message != WM_KEYDOWN || GetKeyState(VK_MENU) < 0) return false;
    constexpr std::wstring_view kTextKeys = L"ACVXYZ";
    if (GetKeyState(VK_CONTROL) < 0 && kTextKeys.find(static_cast<wchar_t>(message.wParam)) == kTextKeys.npos)
        return false;
    if (message.wParam >= VK_F1 && message.wParam <= VK_F24) return false;
    return (SendMessageW(message.hwnd, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL) != 0;
}

}  // namespace

void DialogKeys::Load(HINSTANCE module, int dialog) {
    accelerators_ = LoadAcceleratorsW(module, MAKEINTRESOURCEW(dialog));
}

bool DialogKeys::Translate(HWND window, MSG& message) {
    translating_ = true;
    const bool used =
        (accelerators_ && !TypesText(message) && TranslateAcceleratorW(window, accelerators_, &message)) ||
        IsDialogMessageW(window, &message);
    translating_ = false;
    return used;
}

}  // namespace kaz
