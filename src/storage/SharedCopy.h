#pragma once

#include "storage/SharedFolder.h"
#include "storage/clsDbXml.h"

namespace kaz {

// Publishes this user's shared events: rewrites the user's own file in the shared folder from the events
// database, then loads the others' files again.
class SharedCopy {
public:
    SharedCopy(const clsDbXml& events, clsDbXml& shared, const Stores& stores)
        : events_(events),
          shared_(shared),
          stores_(stores) {}
    // Failures are logged; the local events are not touched by any of them. True when the user's own file has
    // all that is shared.
    bool Run();

private:
    bool PublishExtras(const clsDbXml& own);

    const clsDbXml& events_;
    clsDbXml& shared_;
    Stores stores_;
};

}  // namespace kaz
