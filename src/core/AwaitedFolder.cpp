#include "core/AwaitedFolder.h"

#include "core/Application.h"
#include "core/DataWatch.h"
#include "core/EventFiles.h"
#include "core/NamedEvents.h"
#include "platform/Files.h"

namespace kaz {

namespace {
constexpr const char* kFolderNotice = "Data folder";
}

void AwaitedFolder::AfterLoad() {
    waiting_ = app_.events->State() == FileState::FolderAway;
    if (waiting_)
        Tell(false);
    else
        app_.health.Clear(kFolderNotice);
}

bool AwaitedFolder::Look() {
    if (!waiting_) return false;
    const bool isThere = FolderExists(app_.platform.files, app_.DataPath());
    // A program that synchronises the folder makes it first and fills it afterwards.
    if (!isThere || !EventFiles::AreIn(app_.platform.files, app_.DataPath())) {
        Tell(isThere);
        return false;
    }
    EventFiles(app_).LoadLate();
    waiting_ = app_.events->ReadFault().has_value();
    if (!waiting_) app_.health.Clear(kFolderNotice);
    return !waiting_;
}

void AwaitedFolder::BeginAnew() {
    waiting_ = false;
    app_.health.Clear(kFolderNotice);
    for (clsDbXml* database : {app_.events.get(), app_.expired.get()}) {
        database->ExpectNoFile();
        database->SaveDB();
    }
    app_.dataWatch->Tell();
}

void AwaitedFolder::Tell(bool isThere) {
    Health::Notice notice{kFolderNotice, Health::Weight::Alarm, "", {}, Health::Sign::FolderAway};
    if (isThere) {
        notice.text = "Your events are not in the folder " + app_.DataPath() +
                      " yet. KAZ shows them as soon as they are; until then nothing is saved there.";
        const std::size_t kept = app_.dataWatch->Kept(*app_.events);
        notice.actions.push_back({kept == 0
                                      ? "Begin with an empty list"
                                      : "Begin with the " + Counted(kept, "event") + " that KAZ has kept",
                                  [this] { BeginAnew(); }});
    } else {
        notice.text = "The folder of your events, " + app_.DataPath() +
                      ", is not there. KAZ looks for it and shows your events as soon as it is back.";
    }
    app_.health.Tell(std::move(notice));
}

}  // namespace kaz
