#include "reminders/AgainMenu.h"

#include "platform/Dialogs.h"
#include "platform/Locale.h"

#include <string>

namespace kaz {

namespace {
constexpr const char* kLastAgain = "LastAgain";
}

void AgainMenu::ShowUnder(int button, bool canStart) {
    window_.SetCommand(IDM_AGAIN_START, "When it &starts", canStart);
    window_.ShowMenuUnder(button, 0, IDR_MENU_AGAIN);
}

std::optional<AgainChoice> AgainMenu::ChoiceOf(int command) {
    using Kind = AgainChoice::Kind;
    switch (command) {
    case IDM_AGAIN_5: return AgainChoice{Kind::Minutes, 5};
    case IDM_AGAIN_10: return AgainChoice{Kind::Minutes, 10};
    case IDM_AGAIN_30: return AgainChoice{Kind::Minutes, 30};
    case IDM_AGAIN_60: return AgainChoice{Kind::Minutes, 60};
    case IDM_AGAIN_START: return AgainChoice{Kind::WhenItStarts};
    case IDM_AGAIN_TOMORROW: return AgainChoice{Kind::TomorrowMorning};
    default: break;
    }
    Dialogs& dialogs = services_.platform.dialogs;
    std::string typed = "2 hours";
    while (true) {
        const auto answer = dialogs.InputBox(
            "Again in ...",
            "In how many minutes (45), hours (2 hours) or days (3 days), or at what time (14:30)?", typed);
        if (!answer || answer->empty()) return std::nullopt;
        if (const auto choice = AgainChoice::Read(*answer, services_.platform.locale.Data())) return choice;
        dialogs.Message("\"" + *answer + "\" is neither a number of minutes, hours or days nor a time.");
        typed = *answer;
    }
}

AgainChoice AgainMenu::Last() const {
    const auto last =
        AgainChoice::Read(services_.settings.TextOr(kLastAgain, ""), services_.platform.locale.Data());
    return last.value_or(AgainChoice{});
}

void AgainMenu::Keep(const AgainChoice& choice) {
    services_.settings.StoreSetting(kLastAgain, choice.Words());
}

}  // namespace kaz
