// bench_ui [memory ROWS]
//
// The main window against bare controls of the system, both in this run: prints the least time of several
// rounds of each and their ratio. With "memory" it shows that many rows and prints the most memory that the
// process has used.
#include "BareList.h"
#include "core/Application.h"
#include "core/MainWindow.h"
#include "platform/Files.h"
#include "platform/Form.h"
#include "platform/win32/Text.h"
#include "platform/win32/Win32Platform.h"
#include "resources/resource.h"
#include "ui/EventList.h"
#include "ui/EventListFill.h"
#include "ui/FormFactory.h"
#include "ui/month/ShowMonth.h"
#include "ui/month/frmMonthView.h"

#include <windows.h>
#include <commctrl.h>
#include <psapi.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <limits>
#include <string>

namespace kaz {
namespace {

double Now() {
    LARGE_INTEGER count, frequency;
    QueryPerformanceCounter(&count);
    QueryPerformanceFrequency(&frequency);
    return 1000.0 * static_cast<double>(count.QuadPart) / static_cast<double>(frequency.QuadPart);
}

void Pump() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

void PaintNow(HWND list) {
    UpdateWindow(list);
    Pump();
}

// The least time of the rounds, in milliseconds.
double Least(int rounds, const std::function<void()>& step) {
    double least = std::numeric_limits<double>::max();
    for (int i = 0; i < rounds; ++i) {
        const double begin = Now();
        step();
        least = std::min(least, Now() - begin);
    }
    return least;
}

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

std::string TemporaryFolder() {
    wchar_t path[MAX_PATH]{};
    GetTempPathW(MAX_PATH, path);
    return JoinPath(ToCodePage(path), "kaz-bench");
}

// The program's own main window over events in memory; the log is written as it is in the program.
class Program : public MainWindowEvents {
public:
    Program() {
        app_.platform.files.CreateFolder(TemporaryFolder());
        app_.runtimePath = TemporaryFolder();
        app_.log.OverrideLogFilename(JoinPath(app_.runtimePath, "Log_KAZ.txt"));
        app_.settings.StoreSetting("Owner", std::string("Smith"));
        app_.settings.StoreSetting("DataPath", app_.runtimePath);
        app_.layers.LoadLayers();
        app_.events = std::make_unique<clsDbXml>(app_.Storage());
        app_.expired = std::make_unique<clsDbXml>(app_.Storage());
        app_.events->LoadDB(JoinPath(app_.runtimePath, "Events.xml"));
        app_.expired->LoadDB(JoinPath(app_.runtimePath, "Expired.xml"));
        main_ = MakeMainWindow(app_, *this);
        main_->ShowWindow();
        list_ = GetDlgItem(FindWindowW(nullptr, L"KAZ"), IDC_ListEvents);
        Sleep(50);
        Pump();  // the first tick
    }
    ~Program() {
        main_->Unload();
        app_.platform.files.Delete(JoinPath(app_.runtimePath, "Log_KAZ.txt"));
    }

    HWND List() const { return list_; }
    HWND Window() const { return GetParent(list_); }
    Application& App() { return app_; }
    MainWindow& Main() { return *main_; }
    void Raise(int control, Raised what, int detail) {
        dynamic_cast<Form&>(*main_).OnRaised(control, what, detail);
    }

    // None of them is due, coming up or past, and none has an alarm: nothing of them is ever shown or saved.
    void Events(int count) {
        std::vector<clsEvent>& events = app_.events->AllEvents();
        events.clear();
        unsigned random = 12345;
        for (int i = 0; i < count; ++i) {
            random = random * 1664525U + 1013904223U;
            clsEvent event;
            event.IDCode = std::to_string(100000 + i);
            event.Desc("Event " + std::to_string(random) +
                       ": pay the caf\xE9 rent, see the e-mail of 3.2.; 50 percent deposit");
            event.Owner(i % 3 == 0 ? "Ann" : "Smith");
            event.Layer(static_cast<std::int16_t>(1 + random % 19));
            event.DueDate(app_.platform.clock.Today().PlusDays(1 + static_cast<int>((random >> 8) % 400)));
            events.push_back(event);
        }
    }

private:
    void fMain_ShutDownKAZ() override {}
    void fMain_Rescan() override {}
    void fMain_WindowClosed() override {}

    Win32Platform machine_{GetModuleHandleW(nullptr)};
    Application app_{machine_.Services()};
    std::shared_ptr<MainWindow> main_;
    HWND list_ = nullptr;
};

void Print(const char* what, double ours, double bare) {
    std::printf("%-34s %9.3f ms   bare %9.3f ms   ratio %5.2f\n", what, ours, bare, ours / bare);
}

void Compare() {
    constexpr int kRounds = 15;
    Program program;
    RECT place{};
    GetWindowRect(program.List(), &place);
    BareList bare(place.right - place.left, place.bottom - place.top);
    // One window at a time in front, so that both are painted whole.
    const auto front = [](HWND list) {
        SetForegroundWindow(GetParent(list));
        Pump();
    };
    const auto ours = [&](int rounds, const std::function<void()>& step) {
        front(program.List());
        return Least(rounds, [&] {
            step();
            PaintNow(program.List());
        });
    };
    const auto theirs = [&](int rounds, const std::function<void()>& step) {
        front(bare.List());
        return Least(rounds, [&] {
            step();
            PaintNow(bare.List());
        });
    };

    double fill10k = 0;
    for (const int rows : {1000, 10000, 100000}) {
        program.Events(rows);
        const double fill = ours(kRounds, [&] { program.Main().FillEvents(clsLayers::kAll); });
        if (rows == 10000) fill10k = fill;
        Print(("fill " + std::to_string(rows) + " rows").c_str(), fill,
              theirs(kRounds, [&] { bare.Fill(rows); }));
        int clicks = 0;
        const double sort = ours(kRounds, [&] {
            program.Raise(IDC_ListEvents, Raised::ColumnClick, ++clicks % 2 ? kEventColumn : kLeftColumn);
        });
        clicks = 0;
        Print(("sort " + std::to_string(rows) + " rows").c_str(), sort,
              theirs(kRounds, [&] { bare.SortBy(++clicks % 2 ? 4 : 0); }));
        if (rows == 100000) std::printf("fill 100000 / fill 10000: %.2f\n", fill / fill10k);
    }

    program.Events(10000);
    program.Main().FillEvents(clsLayers::kAll);
    bare.Fill(10000);
    const double scroll = ours(kRounds, [&] { Scroll(program.List()); });
    Print("scroll 20 pages of 10000 rows", scroll, theirs(kRounds, [&] { Scroll(bare.List()); }));

    const double tick = Least(50, [&] { SendMessageW(program.Window(), WM_TIMER, IDT_TimerRefresh, 0); });
    std::printf("idle tick, 10000 events            %9.3f ms\n", tick);

    EventListFill fill(program.App());
    fill.AddLocal(clsLayers::kAll);
    EventList list(program.App().platform.locale);
    list.Show(fill.TakeRows());
    int hits = 0;
    const double find = Least(50, [&] { hits += list.Find("not in any event", 0).has_value(); });
    std::printf("find in 10000 rows, %d hits         %9.3f ms\n", hits, find);
}

std::vector<std::string> ComingUp(int count, int shift) {
    std::vector<std::string> lines;
    for (int i = 0; i < count; ++i)
        lines.push_back("In " + std::to_string(1 + (i * 7 + shift) % 30) +
                        " days: pay the caf\xE9 rent, number " + std::to_string(i));
    return lines;
}

// The coming-up window against a bare list box that gets the same lines in their order at once.
void CompareReminders() {
    constexpr int kRounds = 15;
    constexpr int kLines = 1231;
    Program program;
    frmReminder& form = program.App().reminderWindows.Open(ReminderKind::ComingUp);
    form.Heading("COMING UP");
    form.ShowOnTop();
    Pump();
    const HWND window = FindWindowW(nullptr, L"COMING UP");
    const HWND list = GetDlgItem(window, IDC_lstReminders);
    RECT place{};
    GetClientRect(list, &place);
    int shift = 0;
    const double ours = Least(kRounds, [&] {
        form.ReplaceList(ComingUp(kLines, ++shift));
        PaintNow(list);
    });

    const HWND bare = CreateWindowExW(0, L"LISTBOX", L"",
                                      WS_OVERLAPPEDWINDOW | WS_VISIBLE | WS_VSCROLL | LBS_NOINTEGRALHEIGHT,
                                      40, 40, place.right, place.bottom, nullptr, nullptr, nullptr, nullptr);
    SendMessageW(bare, WM_SETFONT, static_cast<WPARAM>(SendMessageW(list, WM_GETFONT, 0, 0)), FALSE);
    Pump();
    const double theirs = Least(kRounds, [&] {
        std::vector<std::string> lines = ComingUp(kLines, ++shift);
        std::sort(lines.begin(), lines.end());
        SendMessageW(bare, WM_SETREDRAW, FALSE, 0);
        SendMessageW(bare, LB_RESETCONTENT, 0, 0);
        for (const std::string& line : lines)
            SendMessageA(bare, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(line.c_str()));
        SendMessageW(bare, WM_SETREDRAW, TRUE, 0);
        InvalidateRect(bare, nullptr, TRUE);
        PaintNow(bare);
    });
    Print("coming up, 1231 lines", ours, theirs);
    DestroyWindow(bare);
}

// The month window: its opening, a step to the next month, and a step after another program has saved the
// file.
void MeasureMonth() {
    constexpr int kRounds = 15;
    Program program;
    Application& app = program.App();
    const CivilDate today = app.platform.clock.Today().Civil();
    const auto grid = [] {
        return GetDlgItem(FindWindowW(nullptr, L"KAZ Monthly View (All Categories)"), IDC_Calbox);
    };
    const auto close = [&] {
        if (const auto form = app.openWindows.Find(frmMonthView::kName)) app.openWindows.Unload(*form);
    };
    for (const int count : {1000, 10000}) {
        program.Events(count);
        app.events->SaveDB();
        const double open = Least(kRounds, [&] {
            close();
            ShowMonth(app, today.month, today.year);
            PaintNow(grid());
        });
        const auto form = app.openWindows.Find(frmMonthView::kName);
        int steps = 0;
        const auto step = [&] {
            form->OnRaised(++steps % 2 ? IDC_cmd_nextmonth : IDC_cmd_prevmonth, Raised::Click, 0);
            PaintNow(grid());
        };
        const double next = Least(kRounds, step);
        const double paint = Least(kRounds, [&] {
            InvalidateRect(grid(), nullptr, FALSE);
            PaintNow(grid());
        });
        double reloaded = std::numeric_limits<double>::max();
        double load = reloaded;
        const std::string file = app.events->DBFilename();
        for (int round = 0; round < kRounds; ++round) {
            WriteWholeFile(app.platform.files, file, ReadWholeFile(app.platform.files, file));
            reloaded = std::min(reloaded, Least(1, step));
            load = std::min(load, Least(1, [&] { clsDbXml(app.Storage()).LoadDB(file); }));
        }
        close();
        std::printf(
            "month of %5d: open %.1f ms, next %.1f ms, next with reload %.1f ms (load %.1f), paint %.2f ms\n",
            count, open, next, reloaded, load, paint);
    }
    app.platform.files.Delete(app.events->DBFilename());
}

void ShowMemory(int rows) {
    Program program;
    program.Events(rows);
    program.Main().FillEvents(clsLayers::kAll);
    PaintNow(program.List());
    PROCESS_MEMORY_COUNTERS memory{};
    memory.cb = sizeof memory;
    GetProcessMemoryInfo(GetCurrentProcess(), &memory, sizeof memory);
    std::printf("%d rows: at most %.1f MB\n", rows,
                static_cast<double>(memory.PeakWorkingSetSize) / 1048576.0);
}

}  // namespace
}  // namespace kaz

int main(int count, char** arguments) {
    if (count > 2 && std::string(arguments[1]) == "memory")
        kaz::ShowMemory(std::stoi(arguments[2]));
    else {
        kaz::Compare();
        kaz::CompareReminders();
        kaz::MeasureMonth();
    }
    return 0;
}
