#include "ui/print/PrintDocument.h"

#include "base/DateText.h"
#include "platform/BusyPointer.h"
#include "platform/Clock.h"
#include "platform/Dialogs.h"
#include "platform/Locale.h"

#include <memory>

namespace kaz {

bool PrintDocument(Application& app, const PrintRequest& request, const LayOut& layOut) {
    try {
        const std::unique_ptr<PrintJob> job = app.platform.printer.Ask(request.document, request.orientation);
        if (!job) return false;
        const BusyPointer busy(app.platform.pump);
        return job->Print(layOut(*job));
    } catch (...) {
        const ErrorInfo failure = CurrentError();
        app.log.LogError(failure, "PrintDocument", request.document);
        app.platform.dialogs.Message("Nothing was printed. " + failure.description);
        return false;
    }
}

std::string PrintedToday(const Application& app) {
    return "Printed " + FormatDate(app.platform.clock.Today(), app.DatePattern(), app.platform.locale.Data());
}

}  // namespace kaz
