#include "storage/EventCollection.h"

#include <algorithm>
#include <utility>

namespace kaz {

const clsEvent* EventCollection::Find(std::string_view code) const {
    const auto found = std::find_if(events_.begin(), events_.end(),
                                    [&](const clsEvent& event) { return event.IDCode == code; });
    return found == events_.end() ? nullptr : &*found;
}

void EventCollection::Store(clsEvent event) {
    const clsEvent* old = codes_.MayHold(events_, event.IDCode) ? Find(event.IDCode) : nullptr;
    if (old)
        events_.erase(events_.begin() + (old - events_.data()));
    else
        codes_.Added(event.IDCode);
    events_.push_back(std::move(event));
    ++version_;
}

}  // namespace kaz
