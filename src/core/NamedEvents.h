#pragma once

#include "model/clsEvent.h"

#include <cstddef>
#include <string>
#include <vector>

namespace kaz {

// "1 event", "2 events".
std::string Counted(std::size_t count, const std::string& one);

// Events in a sentence: the one that the user knows by its words, else how many.
std::string NameOf(const std::vector<clsEvent>& events);

}  // namespace kaz
