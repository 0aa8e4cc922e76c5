#include "storage/EventOperations.h"

#include "storage/Owner.h"
#include "storage/clsLayers.h"

#include <string_view>
#include <unordered_set>
#include <utility>

namespace kaz {

namespace {

clsEvent SharedLike(clsEvent event, const clsEvent& other) {
    event.ShareLike(other);
    return event;
}

}  // namespace

std::optional<std::string> EventOperations::AddEvent(EventEditor& editor) {
    clsEvent event;
    if (!editor.Edit(event, EditMode::Whole)) return std::nullopt;
    CatchUp();
    context_.events.StoreRecord(Updated(std::move(event)), true);
    const std::string code = context_.events.AllEvents().back().IDCode;
    context_.events.SaveDB();
    return code;
}

bool EventOperations::EditEvent(const std::string& code, bool fromExpired, EditMode mode,
                                EventEditor& editor) {
    const clsEvent* found = Source(fromExpired).ReadEvent(code);
    if (!found || OwnerRefuses(*found, "Only ", " can edit it")) return false;

    const clsEvent before = *found;
    clsEvent copy = before;
    if (!editor.Edit(copy, mode)) return false;
    CatchUp();
    // Its day may have passed while the dialog was open.
    fromExpired = fromExpired || HasExpired(before);

    // A deleted event stays in memory with its mark until the file is read again.
    const clsEvent* still = Source(fromExpired).ReadEvent(code);
    // A change of sharing alone moves no date, neither on nor back, and must not make a mail go out again.
    if (mode == EditMode::Whole)
        copy = Updated(std::move(copy));
    else if (still && !still->Deleted)
        copy = SharedLike(*still, copy);
    if (!still || (still->Deleted && !copy.Deleted)) {
        const bool keep =
            context_.dialogs.AskYesNo("This event was deleted or moved while you were editing it.\r\nDo you "
                                      "want to keep your version as a new event?");
        if (!keep) return false;
        copy.IDCode.clear();
        fromExpired = false;
    }
    copy.Deleted = false;
    const clsEvent stored = still ? *still : copy;
    return StoreBack(std::move(copy), stored, fromExpired);
}

void EventOperations::PushEvent(const std::string& code, bool fromExpired) {
    CatchUp();
    const clsEvent* found = Source(fromExpired).ReadEvent(code);
    if (!found) {
        context_.log.LogEvent("Unable to push event with ID " + code + ". Not found in database.");
        return;
    }
    const clsEvent before = *found;
    clsEvent copy = before;
    copy.DueDate(copy.DueDate().PlusDays(1));
    StoreBack(std::move(copy), before, fromExpired);
    // Kept on purpose: the expired database is saved in every case, also when nothing leaves it.
    context_.expired.SaveDB();
}

void EventOperations::DeleteEvents(const std::vector<std::string>& codes) {
    // All are looked at before the first message, behind which the events may be read anew.
    std::vector<clsEvent> others;
    std::vector<std::string> own;
    for (const clsEvent* event : Find(context_.events, codes)) {
        if (IsOthers(*event))
            others.push_back(*event);
        else
            own.push_back(event->IDCode);
    }
    for (const clsEvent& event : others)
        OwnerRefuses(event, "Only ", " can delete it.");
    if (!own.empty()) context_.events.DeleteRecords(own);
}

void EventOperations::DeleteExpiredEvents(const std::vector<std::string>& codes) {
    if (!Find(context_.expired, codes).empty()) context_.expired.DeleteRecords(codes);
}

// In one walk, however many they are. Of two events with the same code the first is meant.
std::vector<const clsEvent*> EventOperations::Find(const clsDbXml& database,
                                                   const std::vector<std::string>& codes) {
    std::unordered_set<std::string_view> wanted(codes.begin(), codes.end());
    std::vector<const clsEvent*> found;
    for (const clsEvent& event : database.AllEvents())
        if (wanted.erase(event.IDCode) > 0) found.push_back(&event);
    return found;
}

bool EventOperations::IsOthers(const clsEvent& event) const {
    return context_.settings.Flag("Networked") && event.Owner() != CurrentOwner(context_.settings);
}

bool EventOperations::OwnerRefuses(const clsEvent& event, const std::string& textBefore,
                                   const std::string& textAfter) {
    if (!IsOthers(event)) return false;
    context_.dialogs.Message("You're not the owner of this event.  " + textBefore + event.Owner() +
                             textAfter);
    return true;
}

bool EventOperations::HasExpired(const clsEvent& event) {
    const clsEvent* current = context_.events.ReadEvent(event.IDCode);
    if (current && !current->Deleted) return false;
    const clsEvent* expired = context_.expired.ReadEvent(event.IDCode);
    return expired && !expired->Deleted && expired->Desc() == event.Desc() &&
           expired->DueDate() == event.DueDate() && expired->Owner() == event.Owner();
}

void EventOperations::CatchUp() {
    context_.events.CatchUp();
    context_.expired.CatchUp();
}

clsEvent EventOperations::Updated(clsEvent event) {
    const DateValue today = context_.clock.Today();
    event.CalcNextDueDate(today, context_.log);
    event.CalcDaysLeft(today);
    event.Layer(clsLayers::OwnOr(event.Layer()));
    return event;
}

bool EventOperations::StoreBack(clsEvent event, const clsEvent& before, bool fromExpired) {
    const std::string code = event.IDCode;
    const auto holder = [&](clsDbXml& database) {
        const clsEvent* found = database.ReadEvent(code);
        return found && !found->Deleted ? found : nullptr;
    };
    // A crash between two saves leaves one event in both files.
    const auto isSame = [&](const clsEvent& other) {
        return other.Desc() == before.Desc() && other.DueDate() == before.DueDate();
    };
    const clsEvent* current = fromExpired ? holder(context_.events) : nullptr;
    context_.events.StoreRecord(std::move(event), current && !isSame(*current));
    if (!context_.events.SaveDB()) return true;
    // An event leaves the expired file only once it is safe in the other.
    const clsEvent* expired = holder(context_.expired);
    if (expired && isSame(*expired)) context_.expired.DeleteRecord(code);
    return true;
}

}  // namespace kaz
