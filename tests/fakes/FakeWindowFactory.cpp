#include "fakes/FakeWindowFactory.h"

#include "base/RuntimeError.h"

#include <algorithm>
#include <utility>

namespace kaz {

std::unique_ptr<Window> FakeWindowFactory::Create(int dialog) {
    if (failures > 0) {
        --failures;
        throw RuntimeError(ErrorNumber::InternalError);
    }
    ++made;
    return std::make_unique<FakeWindow>(dialog, desktop_);
}

std::vector<FakeWindow*> FakeWindowFactory::All(int dialog) const {
    std::vector<FakeWindow*> found;
    for (FakeWindow* window : desktop_->windows)
        if (window->Dialog() == dialog) found.push_back(window);
    return found;
}

FakeWindow* FakeWindowFactory::Newest(int dialog) const {
    const auto found = All(dialog);
    return found.empty() ? nullptr : found.back();
}

FakeWindow* FakeWindowFactory::WithCaption(const std::string& caption) const {
    FakeWindow* found = nullptr;
    for (FakeWindow* window : desktop_->windows)
        if (window->Text(0) == caption) found = window;
    return found;
}

void FakeWindowFactory::Advance(int milliseconds) {
    while (milliseconds > 0) {
        // A tick can start and stop any timer and close any window, so the next
        // one is looked for anew each time.
        int step = milliseconds;
        for (const FakeWindow* window : desktop_->windows)
            for (const auto& [id, timer] : window->timers_)
                step = std::min(step, timer.left);
        milliseconds -= step;

        std::vector<std::pair<FakeWindow*, int>> due;
        for (FakeWindow* window : desktop_->windows)
            for (auto& [id, timer] : window->timers_)
                if ((timer.left -= step) <= 0) due.emplace_back(window, id);
        for (const auto& [window, id] : due) {
            const auto& living = desktop_->windows;
            if (std::find(living.begin(), living.end(), window) != living.end()) window->Tick(id);
        }
    }
}

}  // namespace kaz
