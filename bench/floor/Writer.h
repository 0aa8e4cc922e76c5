#pragma once

#include "floor/Record.h"

#include <functional>
#include <vector>

namespace bare {

// Gives the file's text to `take` in pieces of 256 KB.
void Write(const std::vector<Record>& records, const std::function<void(std::string_view)>& take);

}  // namespace bare
