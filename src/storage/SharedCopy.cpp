#include "storage/SharedCopy.h"

#include "base/Text.h"
#include "storage/Owner.h"

namespace kaz {

void SharedCopy::Run() {
    ErrorTrap trap(context_.log, "CopyToShared", "EventOperations");
    trap([&] {
        const SharedFolder folder(context_.files, context_.settings, context_.log);
        if (folder.Path().empty()) return;
        const std::string me = CurrentOwner(context_.settings);

        // The earlier copies leave the file in the same save that brings the new ones, so that nobody ever
        // reads a file without them.
        context_.shared.LoadDB(folder.FileOf(me));
        context_.shared.MarkRecordsByOwner(me);
        for (const clsEvent& event : context_.events.AllEvents()) {
            if (event.Deleted || !event.SharedEvent) continue;
            if (!StringsEqual(event.Owner(), me, context_.locale.Folding())) continue;
            trap([&] {
                clsEvent copy = event;
                copy.SharedLayerName = context_.layers.Layer(event.Layer());
                context_.shared.StoreRecord(std::move(copy));
            });
        }
        context_.shared.SaveDB();
        context_.shared.LoadMultiple(folder.ListFile());
    });
}

}  // namespace kaz
