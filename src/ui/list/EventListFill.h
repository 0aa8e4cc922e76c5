#pragma once

#include "core/Application.h"
#include "ui/list/EventDescriber.h"
#include "ui/list/EventRows.h"

#include <cstdint>

namespace kaz {

// One filling of the main list: collects the rows from the databases, the sources in the order of the calls.
// The categories are those of the filter, 0 to 19, or clsLayers::kAll. What a failing source has added stays.
class EventListFill {
public:
    explicit EventListFill(Application& application);

    void AddLocal(std::int16_t category);
    // Nothing unless the program is networked.
    void AddShared(std::int16_t category);
    void AddExpired(std::int16_t category);

    EventRows TakeRows() { return std::move(rows_); }

private:
    void Add(const clsDbXml* database, EventSource source, std::int16_t category);

    Application& app_;
    VisibleEvents visible_;
    EventDescriber describer_;
    EventRows rows_;
};

}  // namespace kaz
