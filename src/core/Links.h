#pragma once

#include "core/Application.h"

#include <string>

namespace kaz {

// Opens a page, a file or a folder with the program that the system has for
// it. A refusal is told to the user.
void OpenForUser(const Platform& platform, const std::string& target);

void ShowHomePage(const Platform& platform);
void ShowUpdatePage(const Platform& platform);
// The help file beside the program. The user is told when it is not there.
void ShowHelp(const Platform& platform);

}  // namespace kaz
