#include "support/UndoHistory.h"

#include <algorithm>
#include <iterator>

namespace kaz {

void UndoHistory::Add(std::unique_ptr<UndoStep> step) {
    undone_.clear();
    done_.push_back(std::move(step));
    Bound();
    Changed();
}

void UndoHistory::Clear() {
    done_.clear();
    undone_.clear();
    Changed();
}

void UndoHistory::Bound() {
    std::size_t steps = 0;
    std::size_t bytes = 0;
    auto kept = done_.end();
    while (kept != done_.begin()) {
        bytes += (*std::prev(kept))->Size();
        if (steps > 0 && (steps >= kMostSteps || bytes > kMostBytes)) break;
        ++steps;
        --kept;
    }
    done_.erase(done_.begin(), kept);
}

UndoHistory::Steps::const_iterator UndoHistory::Find(const Steps& steps, const UndoPlace* only) {
    const auto found = std::find_if(steps.rbegin(), steps.rend(),
                                    [&](const auto& step) { return !only || step->Place() == *only; });
    return found == steps.rend() ? steps.end() : std::prev(found.base());
}

const UndoStep* UndoHistory::Next(Way way, const UndoPlace* only) const {
    const Steps& steps = way == Way::Back ? done_ : undone_;
    const auto found = Find(steps, only);
    return found == steps.end() ? nullptr : found->get();
}

UndoOutcome UndoHistory::Take(Way way, const UndoPlace* only) {
    Steps& from = way == Way::Back ? done_ : undone_;
    Steps& to = way == Way::Back ? undone_ : done_;
    const auto found = Find(from, only);
    if (found == from.end()) return {};
    const std::size_t at = static_cast<std::size_t>(found - from.begin());
    UndoOutcome outcome = from[at]->Turn();
    std::unique_ptr<UndoStep> step = std::move(from[at]);
    from.erase(from.begin() + static_cast<std::ptrdiff_t>(at));
    for (const auto& [before, now] : outcome.newCodes)
        for (const Steps* steps : {&done_, &undone_})
            for (const auto& other : *steps)
                other->Recode(before, now);
    if (outcome.changed) to.push_back(std::move(step));
    Changed();
    return outcome;
}

}  // namespace kaz
