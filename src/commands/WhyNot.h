#pragma once

#include "commands/EventCommands.h"

#include <string>

namespace kaz {

// The commands that a user can give for an event of a list.
enum class EventCommand { Edit, Push, Skip, Move, Delete, Share };

// Why the command would do nothing with the event, in a few words such as "it is shown once"; "" when it is
// worth trying.
std::string WhyNot(EventCommand command, const EventRef& event, const Application& application);

}  // namespace kaz
