#pragma once

#include "model/clsEvent.h"
#include "storage/StorageServices.h"

#include <string>

namespace kaz {

// What becomes of each event that is read from a file.
class EventIntake {
public:
    // `foreign`: the file was written by another user. Of it come in only the events that are meant for this
    // user, with the category of this user's that has the same name.
    EventIntake(const StorageServices& services, bool foreign);

    // False for an event that does not come in.
    bool Admit(clsEvent& event) const;

private:
    bool AdmitForeign(clsEvent& event) const;

    StorageServices services_;
    bool foreign_;
    std::string user_;
};

}  // namespace kaz
