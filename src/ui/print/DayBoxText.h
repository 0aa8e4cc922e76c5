#pragma once

#include "platform/Paper.h"

#include <string>
#include <vector>

namespace kaz {

// The lines for a day's box of that width and so many lines: each event in up to two lines if there is room
// for all, else each in one, and as the last resort the first of them and how many more there are.
std::vector<std::string> DayBoxText(const std::vector<std::string>& events, const Paper& paper,
                                    PaperFont font, int width, std::size_t lines);

}  // namespace kaz
