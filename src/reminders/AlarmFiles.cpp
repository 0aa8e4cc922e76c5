#include "reminders/AlarmFiles.h"

#include "base/Text.h"
#include "platform/Files.h"
#include "reminders/ReminderWindows.h"
#include "reminders/TrustedFiles.h"

namespace kaz {

void AlarmFiles::Run(const clsEvent& event, bool ofAnotherUser) {
    ErrorTrap trap(services_.log, "DisplayAlarms", "clsReminder");
    trap([&] {
        const std::string file(Trim(event.Filename));
        if (!FileExists(services_.files, file))
            services_.log.LogEvent("Can't run " + file + " - file not found");
        else if (!ofAnotherUser || TrustedFiles(services_.settings).Holds(event.Owner(), file))
            services_.shell.Open(file);
        else
            AskFirst(event, file);
    });
}

void AlarmFiles::AskFirst(const clsEvent& event, const std::string& file) {
    const std::string refusal = "Not running " + file + " of " + event.Owner();
    if (!TrustedFiles::CanHold(event.Owner(), file)) {
        services_.log.LogEvent(refusal + " - malformed name");
        return;
    }
    const std::string question = "The event \"" + event.Desc() + "\" of " + event.Owner() +
                                 " wants to run this file on your computer:\r\n\r\n" + file +
                                 "\r\n\r\nDo you want to run it, now and from now on?";
    // The event can be gone by the time of the answer, so everything that is needed then is taken along.
    services_.windows.AskLater(question,
                               [services = services_, owner = event.Owner(), file, refusal](bool yes) {
                                   ErrorTrap trap(services.log, "DisplayAlarms", "clsReminder");
                                   trap([&] {
                                       if (yes) {
                                           TrustedFiles(services.settings).Add(owner, file);
                                           services.shell.Open(file);
                                       } else {
                                           services.log.LogEvent(refusal + " - not allowed");
                                       }
                                   });
                               });
}

}  // namespace kaz
