#pragma once

#include "platform/Clock.h"
#include "platform/Dialogs.h"
#include "storage/EventEditor.h"
#include "storage/clsDbXml.h"
#include "support/cSHAREDSettings.h"
#include "support/cSharedLogging.h"

#include <optional>
#include <string>
#include <vector>

namespace kaz {

// What the user does to events: add, edit, push and delete, with the rule of ownership. A refusal is told in
// a message box and changes nothing. The databases are looked into anew after every dialog, since alarms, a
// new day or another user's save may have changed them while it was open.
class EventOperations {
public:
    struct Context {
        clsDbXml& events;
        clsDbXml& expired;
        const cSHAREDSettings& settings;
        const Clock& clock;
        Dialogs& dialogs;
        cSharedLogging& log;
    };

    explicit EventOperations(const Context& context) : context_(context) {}

    // The code of the stored event; nothing when the user gave up.
    std::optional<std::string> AddEvent(EventEditor& editor);
    // Edits an event of the events database or, with `fromExpired`, of the expired one, from where it moves
    // back to the current events. True when it was stored.
    bool EditEvent(const std::string& code, bool fromExpired, EditMode mode, EventEditor& editor);
    // Puts the due date off by one day; an expired event becomes current again.
    void PushEvent(const std::string& code, bool fromExpired);
    // Deletes the events with one save; those of another owner are refused, each with a message.
    void DeleteEvents(const std::vector<std::string>& codes);
    // Has no regard to ownership.
    void DeleteExpiredEvents(const std::vector<std::string>& codes);

private:
    static std::vector<const clsEvent*> Find(const clsDbXml& database, const std::vector<std::string>& codes);
    bool IsOthers(const clsEvent& event) const;
    clsDbXml& Source(bool fromExpired) { return fromExpired ? context_.expired : context_.events; }
    bool OwnerRefuses(const clsEvent& event, const std::string& textBefore, const std::string& textAfter);
    // Whether that event is in the expired database now, and no longer among the current ones.
    bool HasExpired(const clsEvent& event);
    // Reads what another program has saved while a dialog was open.
    void CatchUp();
    // The event with its dates brought up to date, as it is stored after an edit.
    clsEvent Updated(clsEvent event);
    // `before` is what it was. An event whose code another one has by now gets a new one, or else it would
    // take that one's place.
    bool StoreBack(clsEvent event, const clsEvent& before, bool fromExpired);

    Context context_;
};

}  // namespace kaz
