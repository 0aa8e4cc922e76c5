#include "../Stage.h"
#include "fakes/FakePump.h"
#include "fakes/FakeWindowFactory.h"
#include "resources/resource.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace kaz {

namespace {

// What the real window knows from its template.
constexpr int kCheckBoxes[] = {IDC_chkExpired, IDC_chkNoSound, IDC_chkSilentStart,
                               IDC_chkTimed,   IDC_chkShared,  IDC_chkSpecificShare};
constexpr std::pair<int, int> kOptionPairs[] = {{IDC_optSingle, IDC_optNetworked},
                                                {IDC_optUSDate, IDC_optEuroDate}};

class FakeStage : public Stage {
public:
    WindowFactory& Windows() override { return windows_; }
    MessagePump& Pump() override { return pump_; }
    Window* Find(int dialog) override { return windows_.Newest(dialog); }

    void OnModal(int, std::function<void(Window&)> user) override { windows_.OnModal(std::move(user)); }

    void Click(Window& window, int control) override {
        for (const auto& [one, other] : kOptionPairs)
            if (control == one || control == other) return Fake(window).Pick(control, {one, other});
        const bool isCheckBox = std::ranges::find(kCheckBoxes, control) != std::end(kCheckBoxes);
        isCheckBox ? Fake(window).Toggle(control) : Fake(window).Click(control);
    }
    void Type(Window& window, int control, const std::string& text) override {
        Fake(window).Type(control, text);
    }
    void Choose(Window& window, int control, int position) override {
        Fake(window).Choose(control, position);
    }
    void Command(Window& window, int command) override { Fake(window).Click(command); }
    void ClickHeader(Window& window, int list, int column) override {
        Fake(window).Raise(list, Raised::ColumnClick, column);
    }
    void SelectRows(Window& window, int list, const std::vector<int>& rows) override {
        Fake(window).Report(list).UserSelects(rows);
        Fake(window).Raise(list, Raised::Select);
    }
    void Press(Window& window, int grid, DayKey key) override {
        DayCursor& cursor = Fake(window).Grid(grid).Cursor();
        const int before = cursor.Selected();
        if (const int out = cursor.Press(key); out != 0)
            Fake(window).Raise(grid, Raised::LeadsOut, out);
        else if (cursor.Selected() != before)
            Fake(window).Raise(grid, Raised::Select, cursor.Selected());
    }
    void PressEnter(Window& window, int grid) override {
        Fake(window).Raise(grid, Raised::DoubleClick, window.Grid(grid).Selected());
    }
    void TurnWheel(Window& window, int, int clicks) override { Fake(window).Raise(0, Raised::Wheel, clicks); }
    void CloseBox(Window& window) override { Fake(window).CloseBox(); }
    void Wait(int milliseconds) override { windows_.Advance(milliseconds); }

    std::vector<std::string> Column(Window& window, int list, int column) override {
        return Fake(window).Report(list).Column(column);
    }
    std::string SortMark(Window& window, int list) override {
        const FakeReportList& report = Fake(window).Report(list);
        if (report.sortColumn < 0) return {};
        return std::to_string(report.sortColumn) + (report.sortAscending ? " up" : " down");
    }

private:
    static FakeWindow& Fake(Window& window) { return dynamic_cast<FakeWindow&>(window); }

    FakeWindowFactory windows_;
    FakePump pump_;
};

}  // namespace

std::unique_ptr<Stage> Stage::Make() { return std::make_unique<FakeStage>(); }

}  // namespace kaz
