#include "ui/month/ShowMonth.h"

#include "forms/WindowFactory.h"
#include "ui/event/EditEvent.h"
#include "ui/month/frmMonthView.h"
#include "ui/print/CalendarPages.h"
#include "ui/print/PrintLists.h"

namespace kaz {

namespace {

std::shared_ptr<frmMonthView> Open(Application& application) {
    const MonthPrinting printing{[&application](const MonthGrid& grid) { PrintMonthList(application, grid); },
                                 [&application](const MonthGrid& grid) { PrintCalendar(application, grid); }};
    const EventCommands::Editor editor = [&application](clsEvent& event, EditMode mode) {
        return EditEvent(application, event, mode);
    };
    auto form = std::make_shared<frmMonthView>(application.platform.windows.Create(IDD_MONTH), application,
                                               editor, printing);
    application.openWindows.Add(form);
    form->OnRaised(0, Raised::Load, 0);
    return form;
}

}  // namespace

void ShowMonth(Application& application, int month, int year) {
    auto form = std::dynamic_pointer_cast<frmMonthView>(application.openWindows.Find(frmMonthView::kName));
    if (!form) form = Open(application);
    form->LoadMonth(static_cast<std::int16_t>(month), static_cast<std::int16_t>(year));
    form->ShowWindow();
}

}  // namespace kaz
