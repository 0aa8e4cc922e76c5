#include "Stage.h"
#include "fakes/Matchers.h"
#include "forms/ReportList.h"
#include "resources/resource.h"

namespace kaz {
namespace {

// What every form relies on, whatever it is for.
class WindowTest : public testing::Test, public WindowListener {
protected:
    void OnRaised(int control, Raised what, int) noexcept override {
        if (control == watched) raised.push_back(what);
    }
    void Make(int dialog) {
        window = stage->Windows().Create(dialog);
        window->SetListener(this);
    }

    std::unique_ptr<Stage> stage = Stage::Make();
    std::unique_ptr<Window> window;
    int watched = -1;
    std::vector<Raised> raised;
};

TEST_F(WindowTest, IsMadeHiddenAndCanBeShownAndHidden) {
    Make(IDD_REMINDER);
    EXPECT_FALSE(window->IsVisible());
    window->Show(Activation::KeepFocus);
    EXPECT_TRUE(window->IsVisible());
    window->BringToFront();
    window->SetTopMost(true);
    EXPECT_TRUE(window->IsVisible());
    window->Hide();
    EXPECT_FALSE(window->IsVisible());
    window->BringToFront();
    EXPECT_FALSE(window->IsVisible());
}

TEST_F(WindowTest, TellsWhatTheUserDoesAndNotWhatTheProgramDoes) {
    Make(IDD_REMINDER);
    window->Show(Activation::TakeFocus);
    watched = IDC_txtSleep;
    window->SetText(IDC_txtSleep, "10");
    EXPECT_THAT(raised, IsEmpty());
    stage->Type(*window, IDC_txtSleep, "15");
    EXPECT_THAT(raised, Contains(Raised::Change));
    EXPECT_EQ("15", window->Text(IDC_txtSleep));

    raised.clear();
    watched = IDC_cmdContinue;
    stage->Click(*window, IDC_cmdContinue);
    EXPECT_THAT(raised, Contains(Raised::Click).Times(1));
    raised.clear();
    window->SetEnabled(IDC_cmdContinue, false);
    stage->Click(*window, IDC_cmdContinue);
    EXPECT_FALSE(window->Enabled(IDC_cmdContinue));
    window->SetEnabled(IDC_cmdContinue, true);
    window->SetControlVisible(IDC_cmdContinue, false);
    stage->Click(*window, IDC_cmdContinue);
    EXPECT_FALSE(window->ControlVisible(IDC_cmdContinue));
    EXPECT_THAT(raised, Not(Contains(Raised::Click)));
}

TEST_F(WindowTest, ChoicesOfTheProgramAreNotTold) {
    Make(IDD_MAIN);
    watched = IDC_cmbCategories;
    window->SetItems(IDC_cmbCategories, {"Work", "Home", "Work"});
    EXPECT_EQ(-1, window->Selected(IDC_cmbCategories));
    window->Select(IDC_cmbCategories, 2);
    EXPECT_THAT(raised, IsEmpty());
    EXPECT_EQ(2, window->Selected(IDC_cmbCategories));
    EXPECT_THAT(window->Items(IDC_cmbCategories), ElementsAre("Work", "Home", "Work"));
    stage->Choose(*window, IDC_cmbCategories, 1);
    EXPECT_THAT(raised, Contains(Raised::Select).Times(1));
    EXPECT_EQ("Home", window->Text(IDC_cmbCategories));

    raised.clear();
    watched = IDC_chkExpired;
    window->SetChecked(IDC_chkExpired, true);
    EXPECT_THAT(raised, IsEmpty());
    stage->Click(*window, IDC_chkExpired);
    EXPECT_THAT(raised, Contains(Raised::Click).Times(1));
    EXPECT_FALSE(window->Checked(IDC_chkExpired));
}

TEST_F(WindowTest, AControlThatIsNotThereReadsAsEmpty) {
    Make(IDD_REMINDER);
    window->SetText(IDC_chkExpired, "x");
    window->SetItems(IDC_cmbCategories, {"x"});
    EXPECT_EQ("", stage->Find(IDD_REMINDER)->Text(IDC_txtAnswer));
    EXPECT_EQ(-1, window->Selected(IDC_txtAnswer));
    EXPECT_EQ(-1, window->Report(IDC_ListEvents).Current());
}

TEST_F(WindowTest, TheCloseBoxOnlyTells) {
    Make(IDD_REMINDER);
    window->Show(Activation::TakeFocus);
    watched = 0;
    stage->CloseBox(*window);
    EXPECT_THAT(raised, Contains(Raised::CloseBox).Times(1));
    EXPECT_TRUE(window->IsVisible());
}

TEST_F(WindowTest, TimersTickUntilTheyAreStopped) {
    Make(IDD_REMINDER);
    watched = IDT_Timer1;
    window->StartTimer(IDT_Timer1, 60000);
    window->StartTimer(IDT_Timer1, 20);  // the later interval counts
    stage->Wait(200);
    EXPECT_GE(raised.size(), 2U);
    window->StopTimer(IDT_Timer1);
    raised.clear();
    stage->Wait(60);
    EXPECT_THAT(raised, IsEmpty());
}

TEST_F(WindowTest, SizeAndState) {
    Make(IDD_MAIN);
    window->SetSize({640, 420});
    EXPECT_EQ(640, window->Size().width);
    EXPECT_EQ(420, window->Size().height);
    EXPECT_FALSE(window->IsVisible());
    EXPECT_EQ(WindowState::Normal, window->State());

    window->SetState(WindowState::Maximised);
    EXPECT_FALSE(window->IsVisible());
    EXPECT_EQ(WindowState::Maximised, window->State());
    window->Show(Activation::TakeFocus);
    EXPECT_EQ(WindowState::Maximised, window->State());
    window->SetState(WindowState::Minimised);
    EXPECT_EQ(WindowState::Minimised, window->State());
    window->SetState(WindowState::Normal);
    EXPECT_EQ(WindowState::Normal, window->State());
    EXPECT_TRUE(window->IsVisible());
}

class Numbers : public ReportRows {
public:
    int RowCount() const noexcept override { return count; }
    std::string_view CellText(int row, int column) const noexcept override {
        static constexpr std::string_view kDigits = "0123456789";
        return kDigits.substr(static_cast<std::size_t>(column == 0 ? row : 9 - row) % 10, 1);
    }
    Colour CellColour(int, int) const noexcept override { return {}; }
    int count = 0;
};

TEST_F(WindowTest, AReportListShowsItsRowsAndKeepsTheSelectionInPlace) {
    Numbers rows;
    Make(IDD_MAIN);
    window->Show(Activation::TakeFocus);
    watched = IDC_ListEvents;
    ReportList& list = window->Report(IDC_ListEvents);
    list.SetColumns({{"Up", 50}, {"Down", 50}});
    list.SetRows(&rows);
    EXPECT_EQ(-1, list.Current());

    rows.count = 6;
    list.Refresh();
    EXPECT_THAT(stage->Column(*window, IDC_ListEvents, 1), ElementsAre("9", "8", "7", "6", "5", "4"));
    EXPECT_THAT(list.Selection(), IsEmpty());
    list.Select(5);
    list.Select(2);
    list.Select(6);  // there is no such row
    EXPECT_THAT(list.Selection(), ElementsAre(2, 5));
    EXPECT_EQ(2, list.Current());
    EXPECT_THAT(raised, Not(Contains(Raised::Select)));

    rows.count = 4;
    list.Refresh();
    EXPECT_THAT(list.Selection(), ElementsAre(2));
    stage->SelectRows(*window, IDC_ListEvents, {0, 3});
    EXPECT_THAT(raised, Contains(Raised::Select));
    EXPECT_THAT(list.Selection(), ElementsAre(0, 3));
    EXPECT_EQ(3, list.Current());
    list.ClearSelection();
    EXPECT_EQ(3, list.Current());
    EXPECT_THAT(list.Selection(), IsEmpty());
    raised.clear();
    list.SetSelection({1, 3, 4});
    EXPECT_THAT(list.Selection(), ElementsAre(1, 3));
    list.SetSelection({0, 1, 2, 3});
    EXPECT_THAT(list.Selection(), ElementsAre(0, 1, 2, 3));
    EXPECT_EQ(3, list.Current());
    EXPECT_THAT(raised, Not(Contains(Raised::Select)));

    EXPECT_EQ("", stage->SortMark(*window, IDC_ListEvents));
    list.ShowSortMark(1, false);
    EXPECT_EQ("1 down", stage->SortMark(*window, IDC_ListEvents));
    list.ShowSortMark(0, true);
    EXPECT_EQ("0 up", stage->SortMark(*window, IDC_ListEvents));
}

}  // namespace
}  // namespace kaz
