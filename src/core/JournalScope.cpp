#include "core/JournalScope.h"

#include "storage/ChangesBetween.h"

#include <utility>

namespace kaz {

JournalScope::JournalScope(Application& app, std::string what) : app_(app), what_(std::move(what)) {
    ErrorTrap trap(app_.log, "JournalScope", "JournalScope");
    trap([&] {
        if (app_.events) events_ = app_.events->AllEvents();
        if (app_.expired) expired_ = app_.expired->AllEvents();
    });
    silence_.emplace(app_.journal);
}

JournalScope::~JournalScope() {
    silence_.reset();
    ErrorTrap trap(app_.log, "~JournalScope", "JournalScope");
    trap([&] {
        if (app_.events)
            app_.journal.Write(app_.Owner(), what_, ChangesBetween(events_, app_.events->AllEvents(), false));
        if (app_.expired)
            app_.journal.Write(app_.Owner(), what_,
                               ChangesBetween(expired_, app_.expired->AllEvents(), true));
    });
}

}  // namespace kaz
