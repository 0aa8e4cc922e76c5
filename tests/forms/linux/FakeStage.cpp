#include "../Stage.h"
#include "fakes/FakePump.h"
#include "fakes/FakeWindowFactory.h"
#include "resources/resource.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

namespace kaz {

namespace {

// What the real window knows from its template.
bool IsCheckBox(int control) {
    static constexpr int kCheckBoxes[] = {IDC_chkExpired,       IDC_chkNoSound, IDC_chkSilentStart,
                                          IDC_chkTimed,         IDC_chkShared,  IDC_chkEmailTo,
                                          IDC_chkSpecificShare, IDC_chkRunFile, IDC_chkMakeNoise,
                                          IDC_chkQuietScreen,   IDC_chkAlways,  IDC_chkStartAtLogon};
    return (control >= IDC_chkDay && control < IDC_chkDay + 7) ||
           std::ranges::count(kCheckBoxes, control) > 0;
}
const std::vector<int> kOptionGroups[] = {{IDC_optSingle, IDC_optNetworked},
                                          {IDC_optUSDate, IDC_optEuroDate},
                                          {IDC_optRepeat, IDC_optShowOnce},
                                          {IDC_optNoEnd, IDC_optLastDay, IDC_optTimes}};

class FakeStage : public Stage {
public:
    WindowFactory& Windows() override { return windows_; }
    MessagePump& Pump() override { return pump_; }
    std::vector<Window*> All(int dialog) override {
        const auto all = windows_.All(dialog);
        return {all.begin(), all.end()};
    }

    void OnModal(int dialog, std::function<void(Window&)> user) override {
        windows_.OnModal([dialog, user = std::move(user)](FakeWindow& window) {
            EXPECT_EQ(dialog, window.Dialog());
            user(window);
        });
    }

    void Click(Window& window, int id) override {
        for (const std::vector<int>& group : kOptionGroups)
            if (std::ranges::count(group, id) > 0) return Fake(window).Pick(id, group);
        IsCheckBox(id) ? Fake(window).Toggle(id) : Fake(window).Click(id);
    }
    void Type(Window& window, int control, const std::string& text) override {
        Fake(window).Type(control, text);
    }
    void ClickInto(Window& window, int control) override { Fake(window).ClickInto(control); }
    void TypeAtCaret(Window& window, char letter) override { Fake(window).TypeAtCaret(letter); }
    void Choose(Window& window, int control, int position) override {
        Fake(window).Choose(control, position);
    }
    void ClickHeader(Window& window, int list, int column) override {
        Fake(window).Raise(list, Raised::ColumnClick, column);
    }
    void SelectRows(Window& window, int list, const std::vector<int>& rows) override {
        Fake(window).Report(list).UserSelects(rows);
        Fake(window).Raise(list, Raised::Select);
    }
    void Open(Window& window, int control) override {
        Fake(window).Raise(control, Raised::DoubleClick, Fake(window).Grid(control).Selected());
    }
    void Press(Window& window, int grid, DayKey key) override {
        if (Fake(window).focus == grid && Fake(window).Count(key == DayKey::Up ? 1 : -1)) return;
        DayCursor& cursor = Fake(window).Grid(grid).Cursor();
        const int before = cursor.Selected();
        if (const int out = cursor.Press(key); out != 0)
            Fake(window).Raise(grid, Raised::LeadsOut, out);
        else if (cursor.Selected() != before)
            Fake(window).Raise(grid, Raised::Select, cursor.Selected());
    }
    void TurnWheel(Window& window, int, int clicks) override { Fake(window).Raise(0, Raised::Wheel, clicks); }
    void CloseBox(Window& window) override { Fake(window).CloseBox(); }
    void PressEnter(Window& window, int control) override {
        window.SetFocus(control);
        Fake(window).Raise(control, Raised::Enter);
    }
    void PressEscape(Window& window, int control) override {
        window.SetFocus(control);
        Fake(window).Raise(0, Raised::CloseBox, kByEscape);
    }
    void Tell(Window& window, Raised what) override { Fake(window).Raise(0, what); }
    void Tick(Window& window, int timer) override { EXPECT_TRUE(Fake(window).Tick(timer)) << timer; }
    void Wait(int milliseconds) override { windows_.Advance(milliseconds); }

    std::vector<std::string> Column(Window& window, int list, int column) override {
        return Fake(window).Report(list).Column(column);
    }
    std::string SortMark(Window& window, int list) override {
        const FakeReportList& report = Fake(window).Report(list);
        if (report.sortColumn < 0) return {};
        return std::to_string(report.sortColumn) + (report.sortAscending ? " up" : " down");
    }
    std::string Day(Window& window, int grid) override {
        const FakeDayGrid& days = Fake(window).Grid(grid);
        return days.Days().WholeDay(days.Selected());
    }
    int Focus(Window& window) override { return Fake(window).focus; }

private:
    static FakeWindow& Fake(Window& window) { return dynamic_cast<FakeWindow&>(window); }

    FakeWindowFactory windows_;
    FakePump pump_;
};

}  // namespace

std::unique_ptr<Stage> Stage::Make() { return std::make_unique<FakeStage>(); }

}  // namespace kaz
