#include "ui/main/RowCommands.h"

#include "commands/WhyNot.h"
#include "resources/resource.h"
#include "ui/main/MainToolbar.h"

#include <algorithm>
#include <string>
#include <vector>

namespace kaz {

namespace {

struct RowCommand {
    int id;
    EventCommand command;
    const char* caption;
    const char* key;
    bool forAll;  // of the selected ones, rather than for one
};
constexpr RowCommand kCommands[] = {
    {IDM_EDIT, EventCommand::Edit, "&Edit", "\tEnter", false},
    {IDM_PUSH, EventCommand::Push, "&Push one day on", "\tCtrl+U", true},
    {IDM_SKIP, EventCommand::Skip, "S&kip to the next occurrence", "\tCtrl+K", false},
    {IDM_MOVEDAY, EventCommand::Move, "&Move to another date ...", "\tCtrl+D", false},
    {IDM_DELETE, EventCommand::Delete, "De&lete", "\tDel", true},
    {IDM_SHAREWITH, EventCommand::Share, "&Share with ...", "\tCtrl+S", false}};

// Of several events one is enough that the command fits.
std::string WhyNotFor(const RowCommand& command, const std::vector<EventRef>& events,
                      const std::optional<EventRef>& current, const Application& application) {
    std::string why = "no event is selected";
    if (!command.forAll) return current ? WhyNot(command.command, *current, application) : why;
    for (const EventRef& event : events)
        if (why = WhyNot(command.command, event, application); why.empty()) break;
    return why;
}

}  // namespace

void RowCommands::NameInMenu() {
    const auto current = list_.Current();
    const std::vector<EventRef> events = list_.Selected();
    const auto day = current ? commands_.NextDayOf(*current) : std::nullopt;
    for (const RowCommand& command : kCommands) {
        std::string caption = command.caption;
        if (day && command.id == IDM_SKIP) caption = "S&kip " + commands_.NameOfDay(*day);
        if (day && command.id == IDM_MOVEDAY) caption = "&Move " + commands_.NameOfDay(*day) + " to ...";
        const std::string why = WhyNotFor(command, events, current, app_);
        if (!why.empty()) caption += " (" + why + ")";
        window_.SetCommand(command.id, caption + command.key, why.empty());
    }
}

void RowCommands::ShowInToolbar() {
    const auto current = list_.Current();
    const std::vector<EventRef> events = list_.Selected();
    const std::vector<ToolButton> buttons = MainToolbar();
    for (const RowCommand& command : kCommands) {
        const auto button = std::ranges::find(buttons, command.id, &ToolButton::command);
        if (button == buttons.end()) continue;
        const std::string why = WhyNotFor(command, events, current, app_);
        window_.SetToolButton(IDC_Toolbar1, command.id,
                              button->tooltip + (why.empty() ? "" : ": not now, " + why), why.empty());
    }
}

}  // namespace kaz
