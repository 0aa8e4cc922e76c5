#include "BareList.h"

#include <commctrl.h>

#include <algorithm>
#include <cwchar>
#include <numeric>

namespace kaz {

namespace {

constexpr wchar_t kListClass[] = L"kaz.bench.bare";

}  // namespace

BareList::BareList(int width, int height, Rows rows) : kind_(rows) {
    WNDCLASSW type{};
    type.lpfnWndProc = Procedure;
    type.hInstance = GetModuleHandleW(nullptr);
    type.lpszClassName = kListClass;
    RegisterClassW(&type);
    window_ = CreateWindowW(kListClass, L"Bare", WS_OVERLAPPEDWINDOW, 20, 20, width + 40, height + 60,
                            nullptr, nullptr, type.hInstance, nullptr);
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    list_ = CreateWindowW(WC_LISTVIEWW, L"",
                          WS_CHILD | WS_VISIBLE | WS_BORDER | LVS_REPORT | LVS_SHOWSELALWAYS |
                              (rows == Rows::AskedFor ? LVS_OWNERDATA : 0U),
                          0, 0, width, height, window_, nullptr, type.hInstance, nullptr);
    AddColumns(list_);
    ShowWindow(window_, SW_SHOW);
    UpdateWindow(window_);
}

void BareList::AddColumns(HWND list) {
    ListView_SetExtendedListViewStyle(list, LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER);
    for (int at = 0; at < 9; ++at) {
        wchar_t header[] = L"Column";
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT | LVCF_WIDTH;
        column.pszText = header;
        column.cx = at == 4 ? 250 : 60;
        SendMessageW(list, LVM_INSERTCOLUMNW, static_cast<WPARAM>(at), reinterpret_cast<LPARAM>(&column));
    }
}

BareList::~BareList() { DestroyWindow(window_); }

void BareList::Fill(int rows) {
    rows_.resize(static_cast<std::size_t>(rows));
    order_.resize(rows_.size());
    std::iota(order_.begin(), order_.end(), 0U);
    unsigned random = 12345;
    for (Row& row : rows_) {
        random = random * 1664525U + 1013904223U;
        const unsigned left = (random >> 8) % 400;
        const auto write = [](wchar_t(&cell)[128], const wchar_t* format, auto... values) {
            std::swprintf(cell, 128, format, values...);
        };
        write(row.cells[0], L"%04u", left);
        std::wcscpy(row.cells[1], L"Mon");
        write(row.cells[2], L"%02u/%02u", left % 12 + 1, left % 28 + 1);
        write(row.cells[3], L"%u", 2023 + left / 300);
        write(row.cells[4], L"Event %u: pay the caf\u00e9 rent, see the e-mail of 3.2.; 50 percent deposit",
              random);
        std::wcscpy(row.cells[5], L"Home");
        for (int at = 6; at < 9; ++at)
            row.cells[at][0] = L'\0';
    }
    if (kind_ == Rows::Kept) return Insert();
    ListView_SetItemCountEx(list_, rows, LVSICF_NOINVALIDATEALL);
    InvalidateRect(list_, nullptr, FALSE);
}

void BareList::Insert() {
    SendMessageW(list_, WM_SETREDRAW, FALSE, 0);
    SendMessageW(list_, LVM_DELETEALLITEMS, 0, 0);
    SendMessageW(list_, LVM_SETITEMCOUNT, rows_.size(), 0);
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        LVITEMW item{};
        item.mask = LVIF_TEXT;
        item.iItem = static_cast<int>(i);
        item.pszText = rows_[i].cells[0];
        SendMessageW(list_, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
        for (item.iSubItem = 1; item.iSubItem < 9; ++item.iSubItem) {
            item.pszText = rows_[i].cells[item.iSubItem];
            SendMessageW(list_, LVM_SETITEMTEXTW, i, reinterpret_cast<LPARAM>(&item));
        }
    }
    SendMessageW(list_, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(list_, nullptr, TRUE);
}

void BareList::SortBy(std::size_t column) {
    std::stable_sort(order_.begin(), order_.end(), [&](std::uint32_t a, std::uint32_t b) {
        return std::wcscmp(rows_[a].cells[column], rows_[b].cells[column]) < 0;
    });
    InvalidateRect(list_, nullptr, FALSE);
}

LRESULT CALLBACK BareList::Procedure(HWND window, UINT message, WPARAM wide, LPARAM narrow) {
    auto* self = reinterpret_cast<BareList*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (message == WM_NOTIFY && self) return self->OnNotify(*reinterpret_cast<NMHDR*>(narrow));
    return DefWindowProcW(window, message, wide, narrow);
}

LRESULT BareList::OnNotify(const NMHDR& header) {
    if (header.code == LVN_GETDISPINFOW) {
        auto& item = reinterpret_cast<NMLVDISPINFOW&>(const_cast<NMHDR&>(header)).item;
        if (item.mask & LVIF_TEXT)
            item.pszText = rows_[order_[static_cast<std::size_t>(item.iItem)]].cells[item.iSubItem];
        return 0;
    }
    if (header.code != NM_CUSTOMDRAW) return 0;
    auto& draw = reinterpret_cast<NMLVCUSTOMDRAW&>(const_cast<NMHDR&>(header));
    switch (draw.nmcd.dwDrawStage) {
    case CDDS_PREPAINT: return CDRF_NOTIFYITEMDRAW;
    case CDDS_ITEMPREPAINT: return CDRF_NOTIFYSUBITEMDRAW;
    case CDDS_ITEMPREPAINT | CDDS_SUBITEM:
        draw.clrText = draw.iSubItem == 4 && draw.nmcd.dwItemSpec % 3 == 0 ? RGB(255, 0, 0) : RGB(0, 0, 0);
        return CDRF_DODEFAULT;
    default: return CDRF_DODEFAULT;
    }
}

}  // namespace kaz
