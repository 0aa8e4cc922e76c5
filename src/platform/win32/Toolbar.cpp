#include "platform/win32/Toolbar.h"

#include "platform/win32/ScreenPlacement.h"
#include "platform/win32/Text.h"

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
    for (std::size_t at = 0; at < buttons_.size(); ++at) {
        const ToolButton& button = buttons_[at];
        TBBUTTON item{};
        item.fsStyle = BTNS_SEP;
        if (button.startsGroup) SendMessageW(toolbar_, TB_ADDBUTTONSW, 1, reinterpret_cast<LPARAM>(&item));
        const std::wstring text = ToWide(button.tooltip);
        item.iBitmap = static_cast<int>(at);
        item.idCommand = button.command;
        item.fsState = TBSTATE_ENABLED;
        item.fsStyle = BTNS_BUTTON;
        item.iString = reinterpret_cast<INT_PTR>(text.c_str());
        SendMessageW(toolbar_, TB_ADDBUTTONSW, 1, reinterpret_cast<LPARAM>(&item));
    }
}

void Toolbar::LoadPictures() {
    const int size = ToPixels(toolbar_, kPictureSize);
    ImageList pictures(ImageList_Create(size, size, ILC_COLOR32, static_cast<int>(buttons_.size()), 0));
    for (const ToolButton& button : buttons_) {
        const Icon icon(static_cast<HICON>(
            LoadImageW(module_, ToWide(button.key).c_str(), IMAGE_ICON, size, size, LR_DEFAULTCOLOR)));
        ImageList_ReplaceIcon(pictures.Get(), -1, icon.Get());
    }
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

POINT Toolbar::MenuPoint() const {
    TBBUTTON hot{};
    const auto at = SendMessageW(toolbar_, TB_GETHOTITEM, 0, 0);
    SendMessageW(toolbar_, TB_GETBUTTON, static_cast<WPARAM>(std::max<LRESULT>(at, 0)),
                 reinterpret_cast<LPARAM>(&hot));
    return MenuPointOf(hot.idCommand);
}

POINT Toolbar::MenuPointOf(int command) const {
    RECT place{};
    SendMessageW(toolbar_, TB_GETRECT, static_cast<WPARAM>(command), reinterpret_cast<LPARAM>(&place));
    POINT point{place.left, place.bottom};
    ClientToScreen(toolbar_, &point);
    return point;
}

}  // namespace kaz
