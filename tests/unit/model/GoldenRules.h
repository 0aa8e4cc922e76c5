#pragma once

#include "model/Recurrence.h"

#include <optional>
#include <string>
#include <vector>

namespace kaz {

// One line of golden/recurrence.txt.
struct GoldenRule {
    std::string line;
    RecurrenceRule rule;
    DateValue reference;
    DateValue today;
    std::optional<Occurrence> expected;  // nothing when the dates stay as they are
    int error = 0;
};

// Throws std::runtime_error when the file is missing or a line makes no sense.
std::vector<GoldenRule> ReadGoldenRules();

}  // namespace kaz
