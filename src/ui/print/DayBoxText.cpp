#include "ui/print/DayBoxText.h"

#include "ui/print/TextWrap.h"

namespace kaz {

namespace {

constexpr std::size_t kLinesOfAnEvent = 2;

}  // namespace

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

}  // namespace kaz
