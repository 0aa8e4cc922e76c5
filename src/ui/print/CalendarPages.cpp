#include "ui/print/CalendarPages.h"

#include "base/DateText.h"
#include "base/RuntimeError.h"
#include "platform/Locale.h"
#include "platform/Paper.h"
#include "ui/print/PageFrame.h"
#include "ui/print/PrintDocument.h"
#include "ui/print/TextWrap.h"

#include <algorithm>
#include <string>
#include <vector>

namespace kaz {

namespace {

// The lines for a day's box of that width and so many lines: each event in up to two lines if there is room
// for all, else each in one, and as the last resort the first of them and how many more there are.
std::vector<std::string> DayBoxText(const std::vector<std::string>& events, const Paper& paper,
                                    PaperFont font, int width, std::size_t lines);

constexpr std::size_t kLinesOfAnEvent = 2;

std::vector<std::string> DayBoxText(const std::vector<std::string>& events, const Paper& paper,
                                    PaperFont font, int width, std::size_t lines) {
    std::vector<std::string> text;
    if (lines == 0) return text;
    if (events.size() <= lines) {
        for (const std::string& event : events)
            for (std::string& line : WrapText(paper, event, font, width, kLinesOfAnEvent))
                text.push_back(std::move(line));
        if (text.size() <= lines) return text;
        text.clear();
    }
    const bool all = events.size() <= lines;
    const std::size_t shown = all ? events.size() : lines - 1;
    for (std::size_t event = 0; event < shown; ++event)
        text.push_back(ShortenText(paper, events[event], font, width));
    if (!all) text.push_back("+" + std::to_string(events.size() - shown) + " more");
    return text;
}

constexpr PaperFont kDayNameFont{11, true};
constexpr PaperFont kNumberFont{12, true};
constexpr PaperFont kEventFont{9, false};
constexpr int kPadding = kMillimetre * 6 / 5;
constexpr int kGridLine = kMillimetre / 4;
constexpr Grey kGridGrey = 120;
constexpr Grey kWeekendGrey = 238;
constexpr Grey kDayNameGrey = 216;

bool IsWeekend(int column) { return column == 0 || column == MonthGrid::kColumns - 1; }

class CalendarSetter {
public:
    CalendarSetter(const PaperCalendar& calendar, const Paper& paper)
        : calendar_(calendar),
          paper_(paper),
          frame_(paper, calendar.title, calendar.note),
          area_(frame_.Area()),
          boxesTop_(area_.top + paper.LineHeight(kDayNameFont) + 2 * kPadding),
          rows_(calendar.grid.BoxOf(calendar.grid.Length()) / MonthGrid::kColumns + 1),
          page_(frame_.AddPage()) {
        // The last resort of a day's box has to fit into it.
        const PaperRect box = Box(0);
        const int least = paper.LineHeight(kNumberFont) + paper.LineHeight(kEventFont) + 2 * kPadding;
        if (box.Height() < least || TextWidthInside(box) < paper.TextWidth("+9999 more", kEventFont))
            throw RuntimeError(ErrorNumber::DeviceError, "The paper is too small for a calendar.");
    }

    std::vector<PaperPage> Set() && {
        AddShades();
        AddRules();
        AddDayNames();
        for (int day = 1; day <= calendar_.grid.Length(); ++day)
            AddDay(day);
        return std::move(frame_).TakePages();
    }

private:
    // The edge before a column or a row; what does not divide evenly is spread over them.
    int Left(int column) const { return area_.left + area_.Width() * column / MonthGrid::kColumns; }
    int Top(int row) const { return boxesTop_ + (area_.bottom - boxesTop_) * row / rows_; }
    PaperRect Box(int box) const {
        const int column = box % MonthGrid::kColumns;
        const int row = box / MonthGrid::kColumns;
        return {Left(column), Top(row), Left(column + 1), Top(row + 1)};
    }

    static int TextWidthInside(const PaperRect& box) { return box.Width() - 2 * kPadding; }

    void AddShades() {
        page_.bars.push_back({{area_.left, area_.top, area_.right, boxesTop_}, kDayNameGrey});
        for (int box = 0; box < rows_ * MonthGrid::kColumns; ++box)
            if (calendar_.grid.DayIn(box) != 0 && IsWeekend(box % MonthGrid::kColumns))
                page_.bars.push_back({Box(box), kWeekendGrey});
    }
    void AddRules() {
        const auto across = [&](int top) {
            page_.bars.push_back({{area_.left, top, area_.right, top + kGridLine}, kGridGrey});
        };
        across(area_.top);
        for (int row = 0; row < rows_; ++row)
            across(Top(row));
        across(area_.bottom - kGridLine);
        for (int column = 0; column <= MonthGrid::kColumns; ++column) {
            const int left = std::min(Left(column), area_.right - kGridLine);
            page_.bars.push_back({{left, area_.top, left + kGridLine, area_.bottom}, kGridGrey});
        }
    }
    void AddDayNames() {
        const int room = TextWidthInside(Box(0));
        const auto fits = [&](const std::string& name) {
            return paper_.TextWidth(name, kDayNameFont) <= room;
        };
        const LocaleData& locale = calendar_.locale;
        const bool whole = std::all_of(locale.dayNames.begin(), locale.dayNames.end(), fits);
        for (int column = 0; column < MonthGrid::kColumns; ++column) {
            const auto& names = whole ? locale.dayNames : locale.shortDayNames;
            const std::string name =
                ShortenText(paper_, names[static_cast<std::size_t>(column)], kDayNameFont, room);
            const int left = (Left(column) + Left(column + 1) - paper_.TextWidth(name, kDayNameFont)) / 2;
            page_.texts.push_back({left, area_.top + kPadding, name, kDayNameFont});
        }
    }
    void AddDay(int day) {
        const PaperRect box = Box(calendar_.grid.BoxOf(day));
        const int left = box.left + kPadding;
        int top = box.top + kPadding;
        page_.texts.push_back({left, top, std::to_string(day), kNumberFont});
        top += paper_.LineHeight(kNumberFont);
        const int line = paper_.LineHeight(kEventFont);
        const auto lines = static_cast<std::size_t>(std::max(0, (box.bottom - kPadding - top) / line));
        std::vector<std::string> events;
        for (std::size_t position = 0; position < calendar_.grid.Count(day); ++position)
            events.push_back(calendar_.grid.FullLine(day, position));
        for (std::string& text : DayBoxText(events, paper_, kEventFont, TextWidthInside(box), lines)) {
            page_.texts.push_back({left, top, std::move(text), kEventFont});
            top += line;
        }
    }

    const PaperCalendar& calendar_;
    const Paper& paper_;
    PageFrame frame_;
    PaperRect area_;
    int boxesTop_;
    int rows_;
    PaperPage& page_;
};

}  // namespace

std::vector<PaperPage> LayOutCalendar(const PaperCalendar& calendar, const Paper& paper) {
    return CalendarSetter(calendar, paper).Set();
}

void PrintCalendar(Application& app, const MonthGrid& grid) {
    const LocaleData& locale = app.platform.locale.Data();
    const auto date = [&](DateValue day) { return FormatDate(day, app.DatePattern(), locale); };
    app.log.LogEvent("Printing calendar");
    const PaperCalendar calendar{.title = "Calendar for " + FormatDate(grid.First(), "MMMM YYYY", locale),
                                 .note = "From " + date(grid.First()) + " to " +
                                         date(grid.DateOf(grid.Length())) + "  " + PrintedToday(app),
                                 .grid = grid,
                                 .locale = locale};
    const auto layOut = [&](const Paper& paper) {
        app.log.LogEvent("Starting print loop");
        std::vector<std::string> days;
        for (int day = 1; day <= grid.Length(); ++day)
            days.push_back("CurrentDate: " + date(grid.DateOf(day)));
        app.log.LogEvents(days);
        return LayOutCalendar(calendar, paper);
    };
    if (PrintDocument(app, {"Calendar", Orientation::Landscape}, layOut))
        app.log.LogEvent("Finished printing calendar");
}

}  // namespace kaz
