#pragma once

#include "forms/ReportList.h"
#include "forms/Window.h"
#include "support/cSHAREDSettings.h"

#include <vector>

namespace kaz {

// Which columns the main list shows, in what order and how wide, as the user has chosen it: the setting
// "ListColumns".
class ListColumns {
public:
    // `control` is the list of the window. Both outlive the object.
    ListColumns(Window& window, int control, cSHAREDSettings& settings)
        : window_(window),
          control_(control),
          settings_(settings) {}

    // Once the list has its columns.
    void Restore();
    // Stores nothing as long as the columns are as they were made.
    void Save();
    // Has the menu say which are shown. The column of the events is always.
    void MarkCommands();
    void Toggle(int column);
    // As they were made.
    void Reset();

private:
    ReportList& List() const { return window_.Report(control_); }

    Window& window_;
    int control_;
    cSHAREDSettings& settings_;
    std::vector<ColumnPlace> made_;
};

}  // namespace kaz
