#include "BareList.h"
#include "BenchProgram.h"
#include "Benches.h"
#include "Timing.h"
#include "resources/resource.h"
#include "ui/list/EventList.h"
#include "ui/list/EventListFill.h"

#include <windows.h>
#include <commctrl.h>

#include <algorithm>
#include <stdexcept>

namespace kaz {
namespace {

void Scroll(HWND list) {
    const int rows = ListView_GetItemCount(list);
    SendMessageW(list, LVM_ENSUREVISIBLE, 0, FALSE);
    PaintNow(list);
    for (int page = 1; page <= 20; ++page) {
        SendMessageW(list, LVM_ENSUREVISIBLE, static_cast<WPARAM>(std::min(rows - 1, page * rows / 20)),
                     FALSE);
        PaintNow(list);
    }
}

// With the list's window in front, so that all of it is painted.
double LeastPainted(HWND list, const std::function<void()>& step) {
    SetForegroundWindow(GetParent(list));
    Pump();
    return Least(kRounds, [&] {
        step();
        PaintNow(list);
    });
}

}  // namespace

void MeasureLists() {
    BenchProgram program;
    RECT place{};
    GetWindowRect(program.List(), &place);
    BareList bare(place.right - place.left, place.bottom - place.top, BareList::Rows::AskedFor);
    BareList stock(place.right - place.left, place.bottom - place.top, BareList::Rows::Kept);

    for (const int rows : {1000, 10000, 100000}) {
        const std::string count = " " + std::to_string(rows);
        program.Events(rows);
        Print("fill" + count,
              LeastPainted(program.List(), [&] { program.Main().FillEvents(clsLayers::kAll); }));
        Print("fill" + count + " bare", LeastPainted(bare.List(), [&] { bare.Fill(rows); }));
        if (rows == 10000)
            Print("fill" + count + " stock", LeastPainted(stock.List(), [&] { stock.Fill(rows); }));
        int clicks = 0;
        Print("sort" + count, LeastPainted(program.List(), [&] {
                  program.Raise(IDC_ListEvents, Raised::ColumnClick,
                                ++clicks % 2 ? kEventColumn : kLeftColumn);
              }));
        clicks = 0;
        Print("sort" + count + " bare",
              LeastPainted(bare.List(), [&] { bare.SortBy(++clicks % 2 ? 4 : 0); }));
    }

    program.Events(10000);
    program.Main().FillEvents(clsLayers::kAll);
    bare.Fill(10000);
    Print("scroll", LeastPainted(program.List(), [&] { Scroll(program.List()); }));
    Print("scroll bare", LeastPainted(bare.List(), [&] { Scroll(bare.List()); }));
    Print("tick", Least(50, [&] { SendMessageW(program.Window(), WM_TIMER, IDT_TimerRefresh, 0); }));

    EventListFill fill(program.App());
    fill.AddLocal(clsLayers::kAll);
    EventList list(program.App().platform.locale);
    list.Show(fill.TakeRows());
    Print("find", Least(50, [&] {
              if (list.Find("not in any event", 0)) throw std::logic_error("found");
          }));
}

}  // namespace kaz
