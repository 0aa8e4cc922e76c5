#include "reminders/AlarmFiles.h"

#include "base/Text.h"
#include "platform/Files.h"
#include "reminders/ReminderWindows.h"
#include "reminders/TrustedFiles.h"

namespace kaz {

namespace {

void Open(const ReminderServices& services, const std::string& file) {
    if (FileExists(services.files, file))
        services.shell.Open(file);
    else
        services.log.LogEvent("Can't run " + file + " - file not found");
}

}  // namespace

void AlarmFiles::Run(const clsEvent& event, const std::string& source) {
    ErrorTrap trap(services_.log, "DisplayAlarms", "clsReminder");
    trap([&] {
        const std::string file(Trim(event.Filename));
        if (source.empty() || TrustedFiles(services_.settings).Holds(source, file))
            Open(services_, file);
        else
            AskFirst(event, source, file);
    });
}

void AlarmFiles::AskFirst(const clsEvent& event, const std::string& source, const std::string& file) {
    const std::string refusal = "Not running " + file + " of " + source;
    if (!TrustedFiles::CanHold(source, file)) {
        services_.log.LogEvent(refusal + " - malformed name");
        return;
    }
    // The event can be gone by the time of the answer, so everything that is needed then is taken along.
    const auto answer = [services = services_, source, file, refusal](bool yes) {
        ErrorTrap trap(services.log, "DisplayAlarms", "clsReminder");
        trap([&] {
            if (yes) {
                TrustedFiles(services.settings).Add(source, file);
                services.saveSettings();
                Open(services, file);
            } else {
                services.log.LogEvent(refusal + " - not allowed");
            }
        });
    };
    if (!services_.windows.Ask({source, std::string(event.DescShown()), file, answer}))
        services_.log.LogEvent(refusal + " - too many questions are open");
}

}  // namespace kaz
