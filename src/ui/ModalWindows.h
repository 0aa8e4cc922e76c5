#pragma once

#include "core/Application.h"
#include "ui/main/MainDialogs.h"

#include <string>

namespace kaz {

// Each opens its window and returns when the user has closed it; throws InternalError when the window cannot
// be made.

// The options dialog; true when the options were saved. The databases are still those of the options before:
// see Application::ReopenDatabases.
bool ShowOptions(Application& application);
// The category editor; true when the names were saved.
bool ShowCategories(Application& application);
void ShowAbout(Application& application);
// The backups, and what can be put back of them.
void ShowRestore(Application& application);
// What becomes of what is not saved, when the program is to end.
UnsavedAnswer AskAboutUnsaved(Application& application, const std::string& text);

}  // namespace kaz
