#pragma once

#include "storage/SharedFolder.h"
#include "storage/clsDbXml.h"

namespace kaz {

// Publishes this user's shared events: rewrites the user's own file in the shared folder from the events
// database, then loads the others' files again.
class SharedCopy {
public:
    struct Context {
        const clsDbXml& events;
        clsDbXml& shared;
        StorageServices services;
    };

    explicit SharedCopy(const Context& context) : context_(context) {}
    // Failures are logged; the local events are not touched by any of them. True when the user's own file has
    // all that is shared.
    bool Run();

private:
    Context context_;
};

}  // namespace kaz
