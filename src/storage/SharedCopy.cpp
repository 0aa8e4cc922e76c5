#include "storage/SharedCopy.h"

#include "base/Text.h"
#include "storage/Owner.h"

namespace kaz {

bool SharedCopy::Run() {
    bool published = false;
    ErrorTrap trap(context_.services.log, "CopyToShared", "EventOperations");
    trap([&] {
        const SharedFolder folder(context_.services.files, context_.services.settings, context_.services.log);
        published = folder.Path().empty();
        if (published) return;
        const std::string me = CurrentOwner(context_.services.settings);

        // Read as one's own file, not through the filter that is meant for those of others.
        // The earlier copies leave it in the same save that brings the new ones, so that
        // nobody ever reads a file without them.
        clsDbXml own(context_.services);
        own.LoadDB(folder.FileOf(me));
        own.MarkRecordsByOwner(me);
        for (const clsEvent& event : context_.events.AllEvents()) {
            if (event.Deleted || !event.SharedEvent) continue;
            if (!StringsEqual(event.Owner(), me, context_.services.locale.Folding())) continue;
            trap([&] {
                clsEvent copy = event;
                copy.SharedLayerName = context_.services.layers.Layer(event.Layer());
                own.StoreRecord(std::move(copy));
            });
        }
        published = own.SaveDB();
        context_.shared.LoadMultiple(folder.ListFile());
    });
    return published;
}

}  // namespace kaz
