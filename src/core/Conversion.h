#pragma once

#include "core/Application.h"

#include <string>

namespace kaz {

enum class Conversion { NotNeeded, Done, Failed };

// Where `fileName` does not exist but the old binary file of the same name does, reads the old file's events
// into `target` and saves them as `fileName`. The old file stays, so that the user can convert it again. A
// failure is told to the user: when the old file could not be read, nothing is written; when the new one
// could not be written, the events are in `target` nevertheless, under the new file's name.
Conversion ConvertOldDatabase(Application& app, clsDbXml& target, const std::string& fileName);

}  // namespace kaz
