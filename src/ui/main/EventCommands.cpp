#include "ui/main/EventCommands.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "platform/Dialogs.h"

#include <algorithm>
#include <iterator>

namespace kaz {

namespace {

constexpr std::string_view kReallyDelete = "Are you sure you want to delete the selected event(s)?";

// A box of a whole page would push its buttons off the screen.
std::string Beginning(const std::string& text) {
    constexpr std::size_t kLongest = 200;
    return text.size() <= kLongest ? text : text.substr(0, kLongest).append("...");
}

}  // namespace

std::optional<std::string> EventCommands::Add() {
    const auto editor = editors_();
    return Operations().AddEvent(*editor);
}

std::optional<std::string> EventCommands::Edit(const Row& row, EditMode mode) {
    if (Refuses(row, "edit") || row.code.empty()) return std::nullopt;
    const auto editor = editors_();
    const bool expired = row.source == EventSource::Expired;
    if (!Operations().EditEvent(row.code, expired, mode, *editor)) return std::nullopt;
    return row.code;
}

std::optional<std::string> EventCommands::Push(int row) {
    const Row pushed = RowAt(row);
    if (Refuses(pushed, "push") || pushed.type == "E") return std::nullopt;
    Operations().PushEvent(pushed.code, false);
    return pushed.code;
}

bool EventCommands::Delete(const std::vector<int>& rows) {
    std::vector<Row> doomed;
    std::transform(rows.begin(), rows.end(), std::back_inserter(doomed),
                   [this](int row) { return RowAt(row); });
    if (doomed.empty()) return false;
    // What is deleted by a key pressed too much, or because another row is selected than the user thinks, is
    // seen here.
    const bool several = doomed.size() > 1;
    const std::string what = several ? std::to_string(doomed.size()) + " events"
                                     : std::string(list_.CellText(rows.front(), kEventColumn));
    Dialogs& dialogs = app_.platform.dialogs;
    if (!dialogs.AskYesNo(std::string(kReallyDelete) + "\r\n" + Beginning(what),
                          several ? Dialogs::Default::No : Dialogs::Default::Yes))
        return false;

    std::vector<std::string> current;
    std::vector<std::string> expired;
    bool refused = false;
    for (const Row& row : doomed) {
        if (row.IsForeign())
            refused = true;
        else
            (row.source == EventSource::Expired ? expired : current).push_back(row.code);
    }
    EventOperations operations = Operations();
    operations.DeleteEvents(current);
    operations.DeleteExpiredEvents(expired);
    if (refused) dialogs.Message("You can't delete events belonging to another user");
    return true;
}

std::optional<std::string> EventCommands::ShareWith(int row, const std::vector<int>& rows) {
    std::vector<std::string> others;
    for (const int other : rows)
        if (const Row at = RowAt(other); other != row && at.source == EventSource::Local && !at.IsForeign())
            others.push_back(at.code);

    auto edited = Edit(RowAt(row), EditMode::SharingOnly);
    const clsEvent* found = edited ? app_.events->ReadEvent(*edited) : nullptr;
    if (!found || others.empty()) return edited;
    const clsEvent model = *found;
    for (const std::string& code : others) {
        const clsEvent* other = app_.events->ReadEvent(code);
        if (!other) continue;
        clsEvent copy = *other;
        copy.ShareLike(model);
        app_.events->StoreRecord(std::move(copy));
    }
    app_.events->SaveDB();
    return edited;
}

EventCommands::Row EventCommands::RowAt(int row) const {
    if (row < 0 || row >= list_.RowCount()) return {{}, {}, EventSource::Local};
    const std::string_view type = list_.CellText(row, kTypeColumn);
    // The types are few, and the list's own texts go with its next filling.
    const std::string_view kept = type == "S" ? "S" : type == "E" ? "E" : type == "*" ? "*" : "";
    return {std::string(Trim(list_.Code(row))), kept, list_.Source(row)};
}

bool EventCommands::Refuses(const Row& row, const char* what) {
    if (!row.IsForeign()) return false;
    app_.platform.dialogs.Message("You can't " + std::string(what) +
                                  " a shared item belonging to someone else");
    return true;
}

EventOperations EventCommands::Operations() {
    if (!app_.events || !app_.expired)
        throw RuntimeError(ErrorNumber::InternalError, "The event files could not be opened");
    return EventOperations(
        {*app_.events, *app_.expired, app_.settings, app_.platform.clock, app_.platform.dialogs, app_.log});
}

}  // namespace kaz
