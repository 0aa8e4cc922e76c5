#pragma once

#include "base/DateValue.h"
#include "support/fSHAREDErrorRpt.h"

#include <map>
#include <memory>
#include <string>

namespace kaz {

// Opens the error report window for a failure, without ever getting in the user's way: it takes
// no keyboard, stops nothing, and there is one at a time. What fails while it is open is in the
// log, and the same failure is shown again after an hour at the earliest, so that one which comes
// back every 30 seconds shows one window.
class ErrorReports {
public:
    ErrorReports(const Platform& platform, OpenWindows& openWindows, cSharedLogging& log)
        : platform_(platform),
          openWindows_(openWindows),
          log_(log) {}

    // Throws InternalError when the window cannot be made.
    void Show(const std::string& text, const std::string& extra);

private:
    bool WasShownLately(const std::string& text);

    Platform platform_;
    OpenWindows& openWindows_;
    cSharedLogging& log_;
    std::weak_ptr<fSHAREDErrorRpt> open_;
    std::map<std::string, DateValue> shown_;  // what was shown within the last hour, and when
};

}  // namespace kaz
