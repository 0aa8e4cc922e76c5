#pragma once

#include "storage/clsDbXml.h"

#include <string>
#include <unordered_set>

namespace kaz {

// Puts the events that one pass retires into the expired database, in memory.
class ExpiredShelf {
public:
    explicit ExpiredShelf(clsDbXml* expired) : expired_(expired) {}

    // The event keeps its code, unless another expired event has it already. One that is there from an
    // earlier attempt takes its own place. Throws InternalError without a database.
    void Add(const clsEvent& event);

private:
    bool IsAnother(const clsEvent& event) const;
    void ReadCodes();

    clsDbXml* expired_;
    bool codesRead_ = false;
    std::unordered_set<std::string> codes_;
};

}  // namespace kaz
