#include "core/Links.h"

#include "base/RuntimeError.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/Shell.h"
#include "platform/SystemInfo.h"
#include "support/Endpoints.h"
#include "support/Names.h"

#include <string>

namespace kaz {

namespace {

// As a person would say it.
std::string InWords(const RuntimeError& error) {
    switch (error.Number()) {
    case ErrorNumber::FileNotFound: return "it is not there";
    case ErrorNumber::PathNotFound: return "its folder is not there";
    case ErrorNumber::PermissionDenied: return "you have no right to open it";
    default: return error.Description();
    }
}

}  // namespace

void OpenForUser(const Platform& platform, const std::string& target) {
    try {
        platform.shell.Open(target);
    } catch (const RuntimeError& error) {
        platform.dialogs.Message(target + " could not be opened: " + InWords(error) + ".");
    }
}

void ShowHomePage(const Platform& platform) { OpenForUser(platform, std::string(kHomePage)); }

void ShowUpdatePage(const Platform& platform) { OpenForUser(platform, std::string(kUpdatePage)); }

void ShowHelp(const Platform& platform) {
    const std::string file = JoinPath(platform.system.ModuleFolder(), kHelpFile);
    if (FileExists(platform.files, file))
        OpenForUser(platform, file);
    else
        platform.dialogs.Message("The help file " + file + " is missing.");
}

}  // namespace kaz
