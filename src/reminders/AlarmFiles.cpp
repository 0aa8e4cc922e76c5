#include "reminders/AlarmFiles.h"

#include "base/Text.h"
#include "platform/Files.h"
#include "platform/Shell.h"
#include "support/cSHAREDSettings.h"

#include <algorithm>
#include <iterator>
#include <string>

namespace kaz {

namespace {

// The files that events of other users may run on this machine, as the user allowed them, one by one. They
// are kept as the set "TrustedFiles" of the settings, each as the user in whose file the event came, "|" and
// file. The owner that the event claims counts for nothing: another one can be forged to go with a file that
// the user has allowed.
class TrustedFiles {
public:
    explicit TrustedFiles(cSHAREDSettings& settings) : settings_(settings) {}

    bool Holds(const std::string& source, const std::string& file) const;
    void Add(const std::string& source, const std::string& file);

    // Names with control characters cannot be kept in the settings file, where a line break starts another
    // setting, and one that is not shown as it is must not be asked for; nor is one that no path can have.
    // Such a file is never run.
    static bool CanHold(const std::string& source, const std::string& file);

private:
    cSHAREDSettings& settings_;
};

constexpr const char* kSet = "TrustedFiles";
constexpr std::size_t kLongestPath = 32767;  // of Windows

// These show a name in another order than the system reads it: "txt.exe" as "exe.txt".
constexpr const char* kTurnText[] = {"\xE2\x80\xAA", "\xE2\x80\xAB", "\xE2\x80\xAC",
                                     "\xE2\x80\xAD", "\xE2\x80\xAE", "\xE2\x81\xA6",
                                     "\xE2\x81\xA7", "\xE2\x81\xA8", "\xE2\x81\xA9"};

bool IsPlain(const std::string& text) {
    return std::none_of(text.begin(), text.end(), IsControl) &&
           std::none_of(std::begin(kTurnText), std::end(kTurnText),
                        [&](const char* turn) { return text.find(turn) != std::string::npos; });
}

bool TrustedFiles::Holds(const std::string& source, const std::string& file) const {
    return settings_.ValueInSet(kSet, source + "|" + file);
}

void TrustedFiles::Add(const std::string& source, const std::string& file) {
    if (CanHold(source, file) && !Holds(source, file)) settings_.AddToSet(kSet, source + "|" + file);
}

bool TrustedFiles::CanHold(const std::string& source, const std::string& file) {
    return file.size() <= kLongestPath && IsPlain(source) && IsPlain(file);
}

std::string Open(const Stores& stores, const std::string& file) {
    if (!FileExists(stores.platform.files, file)) {
        stores.log.LogEvent("Can't run " + file + " - file not found");
        return "The file \"" + file + "\" was not run: it is not there.";
    }
    stores.platform.shell.OpenBehind(file);
    stores.log.LogEvent("Opened " + file);
    return "";
}

}  // namespace

std::string AlarmFiles::Run(const clsEvent& event, const std::string& source) {
    const std::string file(Trim(event.Filename));
    std::string whyNot = "The file \"" + file + "\" was not run: the system refused it. The log says more.";
    ErrorTrap trap(stores_.log, "DisplayAlarms", "clsReminder");
    trap([&] {
        const bool mayRun = source.empty() || TrustedFiles(stores_.settings).Holds(source, file);
        whyNot = mayRun ? Open(stores_, file) : AskFirst(event, source, file);
    });
    return whyNot;
}

std::string AlarmFiles::AskFirst(const clsEvent& event, const std::string& source, const std::string& file) {
    const std::string refusal = "Not running " + file + " of " + source;
    if (!TrustedFiles::CanHold(source, file)) {
        stores_.log.LogEvent(refusal + " - malformed name");
        return "The file of \"" + source + "\" was not run: its name is malformed.";
    }
    // The event can be gone by the time of the answer, so everything that is needed then is taken along.
    const auto answer = [stores = stores_, save = save_, source, file, refusal](bool yes) {
        ErrorTrap trap(stores.log, "DisplayAlarms", "clsReminder");
        trap([&] {
            if (yes) {
                TrustedFiles(stores.settings).Add(source, file);
                save();
                Open(stores, file);
            } else {
                stores.log.LogEvent(refusal + " - not allowed");
            }
        });
    };
    if (windows_.Ask({source, std::string(event.DescShown()), file, answer})) return "";
    stores_.log.LogEvent(refusal + " - too many questions are open");
    return "The file \"" + file + "\" was not run: too many questions are open. Answer them first.";
}

}  // namespace kaz
