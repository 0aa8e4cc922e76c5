#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace kaz {

// What the main list is measured against: a list of nine columns with a coloured one, as short as it can be
// written on the system's own control.
class BareList {
public:
    // Where the control has the texts from: it asks for those that are to be seen, or it keeps them all.
    enum class Rows { AskedFor, Kept };

    BareList(int width, int height, Rows rows);
    ~BareList();
    BareList(const BareList&) = delete;
    BareList& operator=(const BareList&) = delete;

    HWND List() const { return list_; }
    // The nine columns, on any report list.
    static void AddColumns(HWND list);
    // Makes the texts of that many rows and shows them.
    void Fill(int rows);
    void SortBy(std::size_t column);

private:
    void Insert();
    struct Row {
        wchar_t cells[9][128];
    };
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wide, LPARAM narrow);
    LRESULT OnNotify(const NMHDR& header);

    Rows kind_;
    HWND window_ = nullptr;
    HWND list_ = nullptr;
    std::vector<Row> rows_;
    std::vector<std::uint32_t> order_;
};

}  // namespace kaz
