#pragma once

#include "core/Application.h"

#include <string>

namespace kaz {

// Packs the user's data, the settings and the log into "Autobackups" under the application's folder. The
// archive is named by the day of the week and `word`, so that a week of backups is kept and nothing has to be
// pruned. Returns whether all that is there went in; the log tells how it went.
bool MakeAutoBackup(Application& app, const std::string& word);

}  // namespace kaz
