#include "ui/list/EventList.h"

#include "fakes/FakeLocale.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kaz {
namespace {

struct Sample {
    std::string left, event, type;
};

EventRows Rows(const std::vector<Sample>& samples) {
    EventRows rows;
    for (std::size_t i = 0; i < samples.size(); ++i) {
        EventCells cells;
        cells[kLeftColumn] = samples[i].left;
        cells[kEventColumn] = samples[i].event;
        cells[kTypeColumn] = samples[i].type;
        rows.Add(cells, "10000" + std::to_string(i), EventSource::Local, EventType::Own);
    }
    return rows;
}

class EventListTest : public testing::Test {
protected:
    std::string Column(int column) const {
        std::string texts;
        for (int row = 0; row < list.RowCount(); ++row)
            texts.append(row == 0 ? "" : "|").append(list.CellText(row, column));
        return texts;
    }

    FakeLocale locale;
    EventList list{locale};
};

TEST_F(EventListTest, RowsStartInTheOrderOfDaysLeftAndStayInTheChosenOrderWhenRefilled) {
    list.Show(Rows({{"0012", "b", "S"}, {"0003", "c", ""}, {"---", "a", "E"}, {"0013", "d", "*"}}));
    EXPECT_EQ("---|0003|0012|0013", Column(kLeftColumn));
    EXPECT_EQ(Colour::Rgb(255, 0, 0), list.CellColour(0, kEventColumn));
    EXPECT_EQ(Colour{}, list.CellColour(0, kTypeColumn));
    EXPECT_EQ(Colour{}, list.CellColour(1, kEventColumn));
    EXPECT_EQ(Colour::Rgb(0, 0, 255), list.CellColour(2, kEventColumn));
    EXPECT_EQ(Colour::Rgb(0, 128, 0), list.CellColour(3, kEventColumn));

    list.SortBy(kEventColumn);
    EXPECT_EQ("d|c|b|a", Column(kEventColumn));
    EXPECT_EQ("100000", list.Code(2));
    list.Show(Rows({{"0001", "x", ""}, {"0002", "z", ""}, {"0003", "y", ""}}));
    EXPECT_EQ("z|y|x", Column(kEventColumn));
}

TEST_F(EventListTest, OneDirectionServesAllColumnsAndEqualTextsInAnyCaseKeepTheirFillOrder) {
    list.Show(Rows({{"1", "same begin, B", ""},
                    {"2", "Äpfel", ""},
                    {"3", "same begin, a", ""},
                    {"4", "SAME BEGIN, b", ""},
                    {"5", "", ""},
                    {"6", "same", ""},
                    {"7", "äPFEL", ""},
                    {"8", std::string("same\0\0", 6), ""}}));
    list.SortBy(kEventColumn);
    EXPECT_EQ("2|7|1|4|3|8|6|5", Column(kLeftColumn));
    list.SortBy(kEventColumn);
    EXPECT_EQ("5|6|8|3|1|4|2|7", Column(kLeftColumn));
    list.SortBy(kLeftColumn);
    EXPECT_EQ("8|7|6|5|4|3|2|1", Column(kLeftColumn));
    EXPECT_FALSE(list.Ascending());
    list.SortBy(kEventColumns);  // no such column: nothing changes
    EXPECT_EQ(kLeftColumn, list.SortColumn());
}

TEST_F(EventListTest, ManyEqualTextsKeepTheirOrderToo) {
    std::vector<Sample> samples(200);
    for (std::size_t i = 0; i < samples.size(); ++i)
        samples[i] = {std::to_string(1000 + i), i % 2 ? "odd" : "even", ""};
    list.Show(Rows(samples));
    for (const std::string first : {"odd", "even"}) {
        list.SortBy(kEventColumn);
        EXPECT_EQ(first, list.CellText(0, kEventColumn));
        for (int row = 1; row < list.RowCount(); ++row) {
            if (row == 100) continue;
            EXPECT_LT(list.CellText(row - 1, kLeftColumn), list.CellText(row, kLeftColumn));
        }
    }
}

TEST_F(EventListTest, FindsTheFirstHitInDisplayOrderAndNothingInRowsThatAreGone) {
    list.Show(Rows({{"0003", "Call the CafÉ", ""}, {"0001", "café", ""}, {"0002", "tea", ""}}));
    EXPECT_EQ(0, list.Find("CAFÉ", 0));
    EXPECT_EQ(2, list.Find("CAFÉ", 1));
    EXPECT_EQ(std::nullopt, list.Find("coffee", 0));
    EXPECT_EQ(std::nullopt, list.Find("a", 3));
    EXPECT_EQ(std::nullopt, list.Find("0003", 0));  // other columns do not count
    list.Show({});
    EXPECT_EQ(0, list.RowCount());
    EXPECT_EQ("", list.CellText(0, kEventColumn));
    EXPECT_EQ(Colour{}, list.CellColour(-1, kEventColumn));
    EXPECT_EQ(std::nullopt, list.Find("a", 0));
}

}  // namespace
}  // namespace kaz
