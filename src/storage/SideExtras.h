#pragma once

#include "model/clsEvent.h"
#include "storage/SideLine.h"

#include <functional>
#include <string_view>
#include <vector>

namespace kaz {

// Whether the entry is one of those that make up an event's extras.
bool IsExtra(const SideLine& line);

// The entries for the event's extras. `file` as in SideKey.
std::vector<SideLine> ExtraLines(const clsEvent& event, std::string_view file);

// Gives each event the extras that the entries of that file have for it, and none where they have none. An
// entry whose check is not the event's is left alone: its event has been changed by a program that knows
// nothing of it, or has gone. A whole text has a sum of its own. `left` hears of those whose field is another
// by now.
void GiveExtras(std::vector<clsEvent>& events, const SideLines& lines, std::string_view file,
                const std::function<void(const SideLine& line)>& left = {});

}  // namespace kaz
