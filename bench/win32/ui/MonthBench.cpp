#include "BareMonth.h"
#include "BenchProgram.h"
#include "Benches.h"
#include "Timing.h"
#include "platform/Files.h"
#include "resources/resource.h"
#include "ui/month/ShowMonth.h"
#include "ui/month/frmMonthView.h"

#include <windows.h>

#include <algorithm>
#include <limits>

namespace kaz {
namespace {

HWND Grid() { return GetDlgItem(FindWindowW(nullptr, L"KAZ Monthly View (All Categories)"), IDC_Calbox); }

// Its opening, a step to the next month, and a step after another program has saved the file.
void MeasureProgram(BenchProgram& program, const std::string& count) {
    Application& app = program.App();
    const CivilDate today = app.platform.clock.Today().Civil();
    const auto close = [&] {
        if (const auto form = app.openWindows.Find(frmMonthView::kName)) app.openWindows.Unload(*form);
    };
    Print("month open" + count, Least(kRounds, [&] {
              close();
              ShowMonth(app, today.month, today.year);
              PaintNow(Grid());
          }));
    const auto form = app.openWindows.Find(frmMonthView::kName);
    int steps = 0;
    const auto step = [&] {
        form->OnRaised(++steps % 2 ? IDC_cmd_nextmonth : IDC_cmd_prevmonth, Raised::Click, 0);
        PaintNow(Grid());
    };
    Print("month next" + count, Least(kRounds, step));

    const std::string file = app.events->DBFilename();
    double reload = std::numeric_limits<double>::max();
    for (int round = 0; round < kRounds; ++round) {
        WriteWholeFile(app.platform.files, file, ReadWholeFile(app.platform.files, file));
        reload = std::min(reload, Least(1, step));
    }
    Print("month reload" + count, reload);
    Print("month load" + count, Least(kRounds, [&] { clsDbXml(app.Storage()).LoadDB(file); }));
    close();
}

void MeasureBare(int lines, const std::string& count) {
    BareMonth bare(lines);
    double open = std::numeric_limits<double>::max();
    for (int round = 0; round < kRounds; ++round) {
        bare.Close();
        open = std::min(open, Least(1, [&] { bare.Open(); }));
    }
    Print("month open" + count + " bare", open);
    Print("month next" + count + " bare", Least(kRounds, [&] { bare.Next(); }));
    bare.RemoveBoxes();
    Print("month paint" + count + " bare", Least(kRounds, [&] { bare.Paint(); }));
}

}  // namespace

void MeasureMonth(const std::vector<std::string>& files) {
    BenchProgram program;
    Application& app = program.App();
    const std::string copy = JoinPath(app.runtimePath, "Events.xml");
    for (const std::string& file : files) {
        WriteWholeFile(app.platform.files, copy, ReadWholeFile(app.platform.files, file));
        app.events->LoadDB(copy);
        const int events = app.events->RecordCount();
        const std::string count = " " + std::to_string(events);
        MeasureProgram(program, count);
        // As many lines as a month has of so many events.
        MeasureBare(2 * events, count);
    }
    app.platform.files.Delete(copy);
}

}  // namespace kaz
