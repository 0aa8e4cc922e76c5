#pragma once

#include "forms/win32/StockControls.h"

namespace kaz {

// The lines of a list box, a combo box or a tab strip under one set of names; positions count from 0. Of any
// other control it is an empty list.
class ListContents {
public:
    explicit ListContents(HWND control);

    // As far down as before, as far as there are lines.
    void SetItems(const std::vector<std::string>& items);
    std::vector<std::string> Items() const;
    int Count() const;
    std::string Item(int position) const;
    std::vector<int> Selection() const;
    void Select(const std::vector<int>& positions);

private:
    // A message of the three kinds of list; 0 where a kind has none.
    struct Messages {
        UINT list, combo, tab;
    };
    LRESULT Send(const Messages& messages, WPARAM wParam = 0, LPARAM lParam = 0) const;
    bool IsMultiple() const;
    // `expected` lines will follow.
    void Clear(std::size_t expected);
    void Append(const std::wstring& text);
    // Lets a list box scroll sideways to the end of its longest line, where it can scroll at all.
    void FitWidth(const std::vector<std::string>& items);

    HWND control_;
    ControlKind kind_;
};

}  // namespace kaz
