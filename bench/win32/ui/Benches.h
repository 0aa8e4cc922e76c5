#pragma once

#include <string>
#include <vector>

namespace kaz {

constexpr int kRounds = 15;

// Each prints its lines.
void MeasureLists();
void MeasureReminders();
// On copies of these event files.
void MeasureMonth(const std::vector<std::string>& files);

}  // namespace kaz
