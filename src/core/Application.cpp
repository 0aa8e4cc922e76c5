#include "core/Application.h"

#include "core/Names.h"
#include "platform/Files.h"
#include "platform/SystemInfo.h"

namespace kaz {

Application::Application(const Platform& services)
    : platform(services),
      log(platform.files, platform.clock, platform.system, {std::string(kApplicationName), VersionText()}),
      errors(log),
      settings(platform.files, platform.locale, platform.dialogs, log),
      layers(settings, platform.locale),
      runtimePath(platform.system.ModuleFolder()) {
    log.ApplicationFolder(runtimePath);
}

std::string Application::DataPath() const { return settings.TextOr("DataPath", runtimePath); }

std::string Application::Owner() const { return settings.TextOr("Owner", std::string(kNoOwner)); }

StorageServices Application::Storage() {
    return {platform.files, platform.clock, platform.random, platform.locale, log, settings, layers};
}

void Application::EndProgram() {
    openWindows.UnloadAll();
    if (settingsInitialised) settings.SaveSettings(settingsFileName);
}

}  // namespace kaz
