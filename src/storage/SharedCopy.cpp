#include "storage/SharedCopy.h"

#include "base/Text.h"
#include "platform/Files.h"
#include "storage/Owner.h"
#include "storage/SideExtras.h"

#include <utility>

namespace kaz {

bool SharedCopy::Run() {
    bool published = false;
    ErrorTrap trap(stores_.log, "CopyToShared", "EventOperations");
    trap([&] {
        const SharedFolder folder(stores_.platform.files, stores_.settings, stores_.log);
        published = folder.Path().empty();
        if (published) return;
        const std::string me = CurrentOwner(stores_.settings);

        // Read as one's own file, not through the filter that is meant for those of others.
        // The earlier copies leave it in the same save that brings the new ones, so that
        // nobody ever reads a file without them.
        clsDbXml own(stores_);
        own.LoadDB(folder.FileOf(me));
        own.MarkRecordsByOwner(me);
        for (const clsEvent& event : events_.AllEvents()) {
            if (event.Deleted || !event.SharedEvent) continue;
            if (!StringsEqual(event.Owner(), me, stores_.platform.locale.Folding())) continue;
            trap([&] {
                clsEvent copy = event;
                copy.SharedLayerName = stores_.layers.Layer(event.Layer());
                own.StoreRecord(std::move(copy));
            });
        }
        published = own.SaveDB() && PublishExtras(own);
        shared_.LoadMultiple(folder.ListFile());
    });
    return published;
}

// Behind the events: in between they come once too often.
bool SharedCopy::PublishExtras(const clsDbXml& own) {
    const std::string& path = own.DBFilename();
    const std::string file = WithExtension(FileNameOf(path), "");
    ErrorTrap trap(stores_.log, "PublishExtras", "SharedCopy");
    return trap([&] {
        SideFile::Lines lines;
        for (const clsEvent& event : own.AllEvents())
            if (!event.Deleted)
                for (SideLine& line : ExtraLines(event, file))
                    lines.insert(std::move(line));
        WriteSideLines(stores_.platform.files, SideFile::PathFor(path), lines);
    });
}

}  // namespace kaz
