#include "fakes/FakeLocale.h"
#include "fakes/FakePlatform.h"
#include "ui/print/CalendarPages.h"
#include "ui/print/PrintLists.h"

#include <gtest/gtest.h>

#include <random>

namespace kaz {
namespace {

constexpr PaperRect kA4{0, 0, 21000, 29700};
constexpr PaperRect kLetter{0, 0, 21590, 27940};
constexpr PaperRect kA4Landscape{0, 0, 29700, 21000};
constexpr PaperRect kLetterLandscape{0, 0, 27940, 21590};
constexpr PaperRect kPostcard{0, 0, 10000, 14800};
constexpr PaperRect kA5Landscape{0, 0, 21000, 14800};
constexpr int kRounding = 1;

std::string Join(const std::vector<PaperPage>& pages) {
    std::string all;
    for (const PaperPage& page : pages)
        for (const PaperText& text : page.texts)
            all.append(text.text).append(" ");
    return all;
}

std::size_t Occurrences(const std::string& text, const std::string& of) {
    std::size_t count = 0;
    for (auto at = text.find(of); at != std::string::npos; at = text.find(of, at + of.size()))
        ++count;
    return count;
}

// What holds on every page, whatever is on it: everything inside the margins and no text over another.
void CheckPages(const std::vector<PaperPage>& pages, const Paper& paper, const std::string& what) {
    const int margin = std::min({2000, paper.Width() / 10, paper.Height() / 10}) - kRounding;
    const auto inside = [&](const PaperRect& place) {
        return place.left >= margin && place.top >= margin && place.left <= place.right &&
               place.top <= place.bottom && place.right <= paper.Width() - margin &&
               place.bottom <= paper.Height() - margin;
    };
    ASSERT_FALSE(pages.empty()) << what;
    for (const PaperPage& page : pages) {
        std::vector<PaperRect> places;
        for (const PaperBar& bar : page.bars)
            EXPECT_TRUE(inside(bar.place)) << what << ", a bar at " << bar.place.left << " " << bar.place.top;
        for (const PaperText& text : page.texts) {
            const PaperRect place{text.left, text.top, text.left + paper.TextWidth(text.text, text.font),
                                  text.top + paper.LineHeight(text.font)};
            EXPECT_TRUE(inside(place)) << what << ", outside: " << text.text;
            for (const PaperRect& other : places)
                EXPECT_FALSE(place.left < other.right && other.left < place.right &&
                             place.top < other.bottom && other.top < place.bottom)
                    << what << ", over another text: " << text.text;
            places.push_back(place);
        }
    }
}

class Pages : public testing::Test {
protected:
    // Words of all lengths, now and then one that is wider than a line.
    std::string Text() {
        std::string text;
        for (auto words = random_() % 40; words > 0; --words)
            text.append(random_() % 30 == 0 ? 300 : 1 + random_() % 12, "aimWelt"[random_() % 7]).append(" ");
        return text;
    }
    MonthGrid Month(int month, unsigned most) {
        MonthGrid grid(month, 2023, DateValue::FromCivil(2023, 3, 15), true);
        for (int day = 1; day <= grid.Length(); ++day)
            for (auto count = random_() % (most + 1); count > 0; --count) {
                clsEvent event;
                event.Desc("#" + Text());
                event.Owner("Smith");
                event.DueDate(grid.DateOf(day));
                grid.Place(event);
            }
        return grid;
    }
    std::mt19937 random_{20230315};
};

TEST_F(Pages, ListsStayInsideTheMarginsAndKeepEveryWord) {
    for (const PaperRect& size : {kA4, kLetter, kA4Landscape, kPostcard})
        for (const unsigned rows : {0U, 1U, 30U, 400U}) {
            const FakePaper paper(size, size.right == kLetter.right ? 2500 : 420);
            const std::string what = std::to_string(size.right) + ", " + std::to_string(rows) + " rows";
            std::vector<std::string> tasks(rows);
            for (std::string& task : tasks)
                task = "#" + Text();
            const auto pages = LayOutList(TasksOnPaper(tasks, "Printed 15/03/2023"), paper);
            CheckPages(pages, paper, "Tasks " + what);
            EXPECT_EQ(rows, Occurrences(Join(pages), "#")) << what;
            EXPECT_EQ(1U, Occurrences(Join(pages), "Page " + std::to_string(pages.size()) + " of"));

            const MonthGrid grid = Month(3, rows / 8);
            std::size_t events = 0;
            for (int day = 1; day <= grid.Length(); ++day)
                events += grid.Count(day);
            const auto month = LayOutList(MonthOnPaper(MonthList(grid, FakeLocale::German()), "x"), paper);
            CheckPages(month, paper, "Month " + what);
            EXPECT_EQ(events, Occurrences(Join(month), "#")) << what;
        }
    // Between full pages nothing is left empty: a page holds at least half of what it could.
    const FakePaper paper(kA4);
    const auto pages = LayOutList(TasksOnPaper(std::vector<std::string>(200, "Milk"), ""), paper);
    EXPECT_LE(pages.size(), 6U);
    EXPECT_THROW(LayOutList(TasksOnPaper({"Milk"}, ""), FakePaper({0, 0, 5000, 3000})), RuntimeError);
}

TEST_F(Pages, ACalendarKeepsEachEventInTheBoxOfItsDay) {
    for (const PaperRect& size : {kA4Landscape, kLetterLandscape, kA4, kA5Landscape})
        for (const unsigned most : {0U, 2U, 30U})
            for (const int month : {1, 2, 7}) {
                const FakePaper paper(size, 420);
                const MonthGrid grid = Month(month, most);
                const LocaleData locale = FakeLocale::German();
                const auto pages = LayOutCalendar({"Calendar for", "From", grid, locale}, paper);
                const std::string what =
                    "Month " + std::to_string(month) + " on " + std::to_string(size.right);
                CheckPages(pages, paper, what);
                ASSERT_EQ(1U, pages.size());
                std::size_t more = 0;
                for (const PaperText& text : pages[0].texts) {
                    if (text.text[0] == '+') more += std::stoul(text.text.substr(1));
                    if (text.font.points < 10 && text.text != "From") {
                        EXPECT_LT(paper.TextWidth(text.text, text.font), paper.Width() / 7) << what;
                    }
                }
                std::size_t events = 0;
                for (int day = 1; day <= grid.Length(); ++day)
                    events += grid.Count(day);
                EXPECT_EQ(events, Occurrences(Join(pages), "#") + more) << what;
            }
    EXPECT_THROW(LayOutCalendar({"", "", Month(1, 1), FakeLocale::English()}, FakePaper(kPostcard)),
                 RuntimeError);
}

}  // namespace
}  // namespace kaz
