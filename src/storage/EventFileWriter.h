#pragma once

#include "model/clsEvent.h"
#include "platform/SafeFileWriter.h"

#include <vector>

namespace kaz {

// The text of an event file, written in pieces; events marked deleted are left out. Throws as OutputFile
// does.
void WriteEvents(SafeFileWriter& file, const std::vector<clsEvent>& events);

}  // namespace kaz
