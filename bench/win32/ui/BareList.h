#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace kaz {

// What the main list is measured against: a virtual list of nine columns with a coloured one, as short as it
// can be written on the system's own control.
class BareList {
public:
    explicit BareList(int width, int height);
    ~BareList();
    BareList(const BareList&) = delete;
    BareList& operator=(const BareList&) = delete;

    HWND List() const { return list_; }
    // Makes the texts of that many rows and shows them.
    void Fill(int rows);
    void SortBy(std::size_t column);

private:
    struct Row {
        wchar_t cells[9][128];
    };
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wide, LPARAM narrow);
    LRESULT OnNotify(const NMHDR& header);

    HWND window_ = nullptr;
    HWND list_ = nullptr;
    std::vector<Row> rows_;
    std::vector<std::uint32_t> order_;
};

}  // namespace kaz
