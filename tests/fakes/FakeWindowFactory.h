#pragma once

#include "fakes/FakeWindow.h"
#include "forms/WindowFactory.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace kaz {

// Makes fake windows and finds those that are still alive; a window lives as long as its form.
class FakeWindowFactory : public WindowFactory {
public:
    std::unique_ptr<Window> Create(int dialog) override;

    // The living windows of a template, in the order of their making.
    std::vector<FakeWindow*> All(int dialog) const;
    // The newest living window of a template, null when there is none.
    FakeWindow* Newest(int dialog) const;
    // The newest living window with that caption, null when there is none.
    FakeWindow* WithCaption(const std::string& caption) const;

    // What the user will do in the next modal windows, one script each.
    void OnModal(ModalScript script) { desktop_->modalScripts.push_back(std::move(script)); }
    bool AllModalsShown() const { return desktop_->modalScripts.empty(); }

    // Lets time pass: the timers of all windows tick when they are due, the earliest first.
    void Advance(int milliseconds);

    int failures = 0;  // so many of the next windows cannot be made
    int made = 0;

private:
    std::shared_ptr<FakeDesktop> desktop_ = std::make_shared<FakeDesktop>();
};

}  // namespace kaz
