#include "forms/win32/Toolbar.h"

#include "forms/win32/PictureStrip.h"
#include "forms/win32/ScreenPlacement.h"
#include "win32/Text.h"

#include <algorithm>
#include <utility>

namespace kaz {

namespace {

constexpr int kPictureSize = 16;  // in units of 1/96 inch
constexpr int kPadding = 10;

}  // namespace

void Toolbar::SetButtons(const std::vector<ToolButton>& buttons) {
    if (!toolbar_) return;
    buttons_ = buttons;
    SendMessageW(toolbar_, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
    // The texts are there for screen readers; none of them fits into zero rows.
    SendMessageW(toolbar_, TB_SETEXTENDEDSTYLE, 0, TBSTYLE_EX_MIXEDBUTTONS | TBSTYLE_EX_DOUBLEBUFFER);
    LoadPictures();
    // All at once: the control lays out all its buttons for each addition.
    std::vector<TBBUTTON> items;
    std::vector<std::wstring> texts;
    texts.reserve(buttons_.size());
    for (const ToolButton& button : buttons_) {
        TBBUTTON item{};
        item.fsStyle = BTNS_SEP;
        if (button.startsGroup) items.push_back(item);
        item.iBitmap = static_cast<int>(texts.size());
        item.idCommand = button.command;
        item.fsState = TBSTATE_ENABLED;
        item.fsStyle = BTNS_BUTTON;
        item.iString = reinterpret_cast<INT_PTR>(texts.emplace_back(ToWide(button.tooltip)).c_str());
        items.push_back(item);
    }
    SendMessageW(toolbar_, TB_ADDBUTTONSW, items.size(), reinterpret_cast<LPARAM>(items.data()));
}

void Toolbar::SetButton(int command, const std::string& tooltip, bool enabled) {
    for (ToolButton& button : buttons_)
        if (button.command == command) button.tooltip = tooltip;
    const auto id = static_cast<WPARAM>(command);
    if ((SendMessageW(toolbar_, TB_ISBUTTONENABLED, id, 0) != 0) != enabled)
        SendMessageW(toolbar_, TB_ENABLEBUTTON, id, MAKELPARAM(enabled, 0));
}

// One strip that is added as a whole: adding icon by icon was the slowest part of opening the main window.
void Toolbar::LoadPictures() {
    const int size = ToPixels(toolbar_, kPictureSize);
    const int count = static_cast<int>(buttons_.size());
    PictureStrip strip(size, count);
    for (int at = 0; at < count; ++at)
        strip.Put(at, module_, ToWide(buttons_[static_cast<std::size_t>(at)].key).c_str());
    ImageList pictures(ImageList_Create(size, size, ILC_COLOR32, count, 0));
    ImageList_Add(pictures.Get(), strip.Get(), nullptr);
    SendMessageW(toolbar_, TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(pictures.Get()));
    const int padding = ToPixels(toolbar_, kPadding);
    SendMessageW(toolbar_, TB_SETPADDING, 0, MAKELPARAM(padding, padding));
    SendMessageW(toolbar_, TB_SETBUTTONSIZE, 0, MAKELPARAM(size + padding, size + padding));
    pictures_ = std::move(pictures);
}

std::optional<LRESULT> Toolbar::OnNotify(const NMHDR& header) {
    if (header.code != TBN_GETINFOTIPW) return std::nullopt;
    const auto& asked = reinterpret_cast<const NMTBGETINFOTIPW&>(header);
    const auto button = std::find_if(buttons_.begin(), buttons_.end(), [&](const ToolButton& candidate) {
        return candidate.command == asked.iItem;
    });
    if (button != buttons_.end()) lstrcpynW(asked.pszText, ToWide(button->tooltip).c_str(), asked.cchTextMax);
    return 0;
}

POINT Toolbar::MenuPointOf(int command) const {
    RECT place{};
    SendMessageW(toolbar_, TB_GETRECT, static_cast<WPARAM>(command), reinterpret_cast<LPARAM>(&place));
    POINT point{place.left, place.bottom};
    ClientToScreen(toolbar_, &point);
    return point;
}

}  // namespace kaz
