#include "forms/win32/StockControls.h"

#include "forms/win32/ListContents.h"
#include "win32/Gdi.h"
#include "win32/Text.h"

#include <commctrl.h>

#include <iterator>

namespace kaz {

ControlKind KindOf(HWND control) {
    static constexpr struct {
        const wchar_t* name;
        ControlKind kind;
    } kKinds[] = {{WC_BUTTONW, ControlKind::AnyButton}, {WC_COMBOBOXW, ControlKind::ComboBox},
                  {WC_EDITW, ControlKind::Edit},        {WC_LISTBOXW, ControlKind::ListBox},
                  {WC_STATICW, ControlKind::Static},    {WC_TABCONTROLW, ControlKind::TabStrip}};
    wchar_t name[64] = L"";
    GetClassNameW(control, name, static_cast<int>(std::size(name)));
    for (const auto& known : kKinds)
        if (lstrcmpiW(name, known.name) == 0) return known.kind;
    return ControlKind::Other;
}

std::optional<Raised> RaisedByCommand(HWND control, unsigned notification) {
    static constexpr struct {
        ControlKind kind;
        unsigned notification;
        Raised what;
    } kMeanings[] = {
        {ControlKind::AnyButton, BN_CLICKED, Raised::Click},
        {ControlKind::AnyButton, BN_SETFOCUS, Raised::Focus},
        {ControlKind::Edit, EN_CHANGE, Raised::Change},
        {ControlKind::Edit, EN_SETFOCUS, Raised::Focus},
        {ControlKind::Edit, EN_KILLFOCUS, Raised::Leave},
        {ControlKind::ComboBox, CBN_SELCHANGE, Raised::Select},
        {ControlKind::ComboBox, CBN_EDITCHANGE, Raised::Change},
        {ControlKind::ComboBox, CBN_SETFOCUS, Raised::Focus},
        {ControlKind::ListBox, LBN_SELCHANGE, Raised::Select},
        {ControlKind::ListBox, LBN_DBLCLK, Raised::DoubleClick},
        {ControlKind::ListBox, LBN_SETFOCUS, Raised::Focus},
        {ControlKind::Static, STN_CLICKED, Raised::Click},
        {ControlKind::Static, STN_DBLCLK, Raised::DoubleClick},
    };
    const ControlKind kind = KindOf(control);
    for (const auto& meaning : kMeanings)
        if (meaning.kind == kind && meaning.notification == notification) return meaning.what;
    return std::nullopt;
}

std::string ControlText(HWND control) {
    if (KindOf(control) == ControlKind::ListBox) {
        const ListContents list(control);
        const std::vector<int> selection = list.Selection();
        return selection.size() == 1 ? list.Item(selection.front()) : std::string();
    }
    const int length = GetWindowTextLengthW(control);
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(control, text.data(), length + 1)));
    return ToUtf8(text);
}

void SetControlText(HWND control, const std::string& text) { SetWindowTextW(control, ToWide(text).c_str()); }

int TextWidth(HWND control) {
    wchar_t text[256] = L"";
    const int length = GetWindowTextW(control, text, static_cast<int>(std::size(text)));
    const ControlContext device(control);
    SIZE size{};
    GetTextExtentPoint32W(device.Get(), text, length, &size);
    return size.cx;
}

}  // namespace kaz
