#include "forms/win32/HotKey.h"

#include "base/Text.h"

#include <string_view>

namespace kaz {

namespace {

constexpr int kHotKey = 1;

UINT ModifierOf(std::string_view name) {
    static constexpr struct {
        std::string_view name;
        UINT modifier;
    } kModifiers[] = {{"Ctrl", MOD_CONTROL}, {"Alt", MOD_ALT}, {"Shift", MOD_SHIFT}, {"Win", MOD_WIN}};
    for (const auto& known : kModifiers)
        if (known.name == name) return known.modifier;
    return 0;
}

UINT KeyOf(const std::string& name) {
    if (name == "Space") return VK_SPACE;
    if (name.size() == 1 && (IsDigit(name[0]) || (name[0] >= 'A' && name[0] <= 'Z')))
        return static_cast<unsigned char>(name[0]);
    for (UINT number = 1; number <= 12; ++number)
        if (name == "F" + std::to_string(number)) return VK_F1 + number - 1;
    return 0;
}

}  // namespace

bool HotKey::Set(HWND window, const std::string& keys) {
    if (window_) UnregisterHotKey(window_, kHotKey);
    window_ = nullptr;
    if (keys.empty()) return true;
    UINT modifiers = MOD_NOREPEAT;
    UINT key = 0;
    for (const std::string_view part : Split(keys, "+")) {
        const UINT modifier = ModifierOf(part);
        modifiers |= modifier;
        if (modifier == 0) key = KeyOf(std::string(part));
    }
    if (key == 0 || !RegisterHotKey(window, kHotKey, modifiers, key)) return false;
    window_ = window;
    return true;
}

}  // namespace kaz
