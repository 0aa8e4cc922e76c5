#pragma once

#include "platform/Paper.h"

#include <string>
#include <vector>

namespace kaz {

// A list on paper, on as many pages as it takes.
struct PaperList {
    struct Row {
        std::string label;  // in a column of its own; a row without one belongs to the row above
        std::string text;   // wrapped
    };

    std::string title;
    std::string note;          // beside the title
    std::string nothing;       // what stands there instead of no rows
    bool boxesToTick = false;  // before each row
    std::vector<Row> rows;
};

// A row stays together if a page can hold it. Throws DeviceError when the paper is too small.
std::vector<PaperPage> LayOutList(const PaperList& list, const Paper& paper);

}  // namespace kaz
