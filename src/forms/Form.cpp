#include "forms/Form.h"

#include <utility>

namespace kaz {

namespace {

// Below the ids of the resources.
constexpr int kLeaveTimer = 1;

}  // namespace

Form::Form(std::unique_ptr<Window> window, ErrorSink& errors, std::string name)
    : window_(std::move(window)),
      errors_(errors),
      name_(std::move(name)) {
    window_->SetListener(this);
}

Form::~Form() { window_->SetListener(nullptr); }

void Form::Add(int control, Raised what, const char* procedure, Handler handler) {
    entries_.push_back({control, what, procedure, std::move(handler)});
}

void Form::WhenIdle(std::function<void()> leave) {
    leave_ = std::move(leave);
    window_->StartTimer(kLeaveTimer, 1);
}

void Form::OnRaised(int control, Raised what, int detail) noexcept {
    if (what == Raised::Timer && control == kLeaveTimer && leave_) {
        if (Busy()) return;
        const auto leave = std::move(leave_);
        window_->StopTimer(kLeaveTimer);
        leave();
        return;
    }
    for (const Entry& entry : entries_) {
        if (entry.control != control || entry.what != what) continue;
        ++running_;
        ErrorTrap trap(errors_, entry.procedure, name_);
        trap([&] { entry.handler(detail); });
        --running_;
        return;
    }
    if (what != Raised::Help || !help_) return;
    ErrorTrap trap(errors_, "ShowHelp", name_);
    trap(help_);
}

}  // namespace kaz
