#pragma once

#include "model/clsEvent.h"

#include <functional>
#include <string_view>
#include <vector>

namespace kaz {

// The text of an event file, in pieces; events marked deleted are left out. Throws as `write` does.
void WriteEvents(const std::vector<clsEvent>& events, const std::function<void(std::string_view)>& write);

}  // namespace kaz
