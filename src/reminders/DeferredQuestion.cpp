#include "reminders/DeferredQuestion.h"

#include "resources/resource.h"

namespace kaz {

DeferredQuestion::DeferredQuestion(std::unique_ptr<Window> window, const ReminderWindowServices& services,
                                   std::string text, std::function<void(bool yes)> answer)
    : Form(std::move(window), services.errors, "DeferredQuestion"),
      services_(services),
      text_(std::move(text)),
      answer_(std::move(answer)) {
    On(IDT_Timer1, Raised::Timer, "Timer1_Timer", &DeferredQuestion::Timer1_Timer);
    this->window().StartTimer(IDT_Timer1, 1);
}

void DeferredQuestion::Form_Unload() {
    closed_ = true;
    window().StopTimer(IDT_Timer1);
}

void DeferredQuestion::Timer1_Timer() {
    window().StopTimer(IDT_Timer1);
    const bool yes = services_.dialogs.AskYesNo(text_);
    // The program can end while the question stands open.
    if (closed_) return;
    services_.openWindows.Unload(*this);
    answer_(yes);
}

}  // namespace kaz
