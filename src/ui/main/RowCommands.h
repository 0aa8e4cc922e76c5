#pragma once

#include "commands/EventCommands.h"
#include "forms/Window.h"
#include "ui/list/EventListView.h"

namespace kaz {

// Which commands fit what is selected in the list: the others are grey in its menu and in the toolbar, and
// say why.
class RowCommands {
public:
    // All of them outlive the object.
    RowCommands(Window& window, const Application& application, const EventListView& list,
                const EventCommands& commands)
        : window_(window),
          app_(application),
          list_(list),
          commands_(commands) {}

    // Before the menu is shown.
    void NameInMenu();
    // Whenever another row is selected, or the rows are others.
    void ShowInToolbar();

private:
    Window& window_;
    const Application& app_;
    const EventListView& list_;
    const EventCommands& commands_;
};

}  // namespace kaz
