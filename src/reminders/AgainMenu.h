#pragma once

#include "forms/Window.h"
#include "reminders/AgainChoice.h"
#include "reminders/ReminderServices.h"
#include "resources/resource.h"

#include <array>
#include <optional>

namespace kaz {

// The menu of the times at which a reminder can come again, and the one that was chosen last, which the
// settings keep.
class AgainMenu {
public:
    static constexpr std::array kCommands{IDM_AGAIN_5,  IDM_AGAIN_10,    IDM_AGAIN_30,      IDM_AGAIN_60,
                                          IDM_AGAIN_AT, IDM_AGAIN_START, IDM_AGAIN_TOMORROW};

    AgainMenu(Window& window, const ReminderServices& services) : window_(window), services_(services) {}

    // `canStart` is whether what it is about begins at a time to come.
    void ShowUnder(int button, bool canStart);
    // What a command of the menu means; asks for a time of one's own. Nothing when the user gave up.
    std::optional<AgainChoice> ChoiceOf(int command);

    AgainChoice Last() const;
    void Keep(const AgainChoice& choice);

private:
    Window& window_;
    ReminderServices services_;
};

}  // namespace kaz
