#include "WindowFixture.h"

#include <set>

namespace kaz {
namespace {

// Counts what it is asked for.
class ManyRows : public ReportRows {
public:
    int RowCount() const noexcept override { return count; }
    std::string_view CellText(int row, int column) const noexcept override {
        EXPECT_LT(row, count);
        asked.insert(row);
        text = "Row " + std::to_string(row) + " column " + std::to_string(column) + filling;
        return text;
    }
    Colour CellColour(int row, int column) const noexcept override {
        EXPECT_LT(row, count);
        return column == 1 ? Colour::Rgb(255, 0, 0) : Colour{};
    }

    int count = 10000;
    std::string filling;
    mutable std::set<int> asked;
    mutable std::string text;
};

class ReportListTest : public WindowFixture {
protected:
    ReportListTest() { list.SetColumns({{"One", 100}, {"Two", 100}}); }
    void Paint() {
        UpdateWindow(At(IDC_REPORT));
        Settle();
    }

    ManyRows rows;
    ReportList& list = window->Report(IDC_REPORT);
};

TEST_F(ReportListTest, AsksOnlyForTheRowsThatItPaints) {
    Show();
    list.SetRows(&rows);
    Paint();
    const auto page = static_cast<std::size_t>(ListView_GetCountPerPage(At(IDC_REPORT)));
    EXPECT_GE(rows.asked.size(), page);
    EXPECT_LE(rows.asked.size(), page + 3);
    rows.asked.clear();
    list.Select(9000);
    Paint();
    EXPECT_TRUE(rows.asked.contains(9000));
    EXPECT_LE(rows.asked.size(), 3 * page + 3);
    EXPECT_THAT(list.Selection(), ElementsAre(9000));
}

TEST_F(ReportListTest, RowsThatGoAreNotAskedForAndTheListScrollsBack) {
    Show();
    list.SetRows(&rows);
    list.Select(9999);
    Paint();
    rows.count = 3;
    InvalidateRect(At(IDC_REPORT), nullptr, TRUE);
    Paint();
    rows.asked.clear();
    list.Refresh();
    Paint();
    EXPECT_THAT(rows.asked, ElementsAre(0, 1, 2));
    EXPECT_EQ(0, ListView_GetTopIndex(At(IDC_REPORT)));
    EXPECT_THAT(list.Selection(), IsEmpty());
    list.SetRows(nullptr);
    Paint();
    EXPECT_EQ(0, ListView_GetItemCount(At(IDC_REPORT)));
    EXPECT_EQ(-1, list.Current());
}

TEST_F(ReportListTest, TheEnterKeyOpensARowAndLongTextsAreCut) {
    for (int i = 0; i < 1500; ++i)
        rows.filling += "ä🎂";
    Show();
    list.SetRows(&rows);
    window->SetFocus(IDC_REPORT);
    Key(At(IDC_REPORT), VK_RETURN);
    EXPECT_THAT(raised, IsEmpty());
    list.Select(4);
    Paint();
    Key(At(IDC_REPORT), VK_RETURN);
    EXPECT_THAT(raised, ElementsAre(RaisedEvent{IDC_REPORT, Raised::DoubleClick}));
    raised.clear();
    Key(At(IDC_REPORT), VK_DOWN);
    EXPECT_THAT(list.Selection(), ElementsAre(5));
    EXPECT_THAT(raised, Contains(RaisedEvent{IDC_REPORT, Raised::Select}));
}

TEST_F(ReportListTest, OneColumnGrowsWithTheWindowUnlessTheUserHasSetItsWidth) {
    list.SetColumns({{"One", 100}, {"Two", 180, true}, {"Three", 50}});
    list.SetRows(&rows);
    const auto width = [&](int column) { return ListView_GetColumnWidth(At(IDC_REPORT), column); };
    const auto fills = [&] {
        RECT client{};
        GetClientRect(At(IDC_REPORT), &client);
        return client.right == width(0) + width(1) + width(2);
    };
    for (const int wide : {900, 600, 760}) {
        window->SetSize({wide, 400});
        EXPECT_TRUE(fills()) << wide;
    }
    rows.count = 1;  // without its scroll bar there is more room
    list.Refresh();
    EXPECT_TRUE(fills());
    window->SetSize({10, 400});
    EXPECT_EQ(180, width(1));
    ListView_SetColumnWidth(At(IDC_REPORT), 1, 123);  // as the user does with the mouse
    window->SetSize({900, 400});
    EXPECT_EQ(123, width(1));
}

}  // namespace
}  // namespace kaz
