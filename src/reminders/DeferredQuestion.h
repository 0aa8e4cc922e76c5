#pragma once

#include "platform/Form.h"
#include "reminders/ReminderServices.h"

#include <functional>
#include <memory>
#include <string>

namespace kaz {

// A yes-or-no question that is put as soon as what runs now has ended. A question in the middle of a refresh
// tick would keep every later alarm waiting for its answer.
class DeferredQuestion : public Form {
public:
    // The window only lends its timer and is never shown. `answer` gets the user's answer; what it refers to
    // must live as long as the open windows do.
    DeferredQuestion(std::unique_ptr<Window> window, const ReminderWindowServices& services, std::string text,
                     std::function<void(bool yes)> answer);

    void Form_Unload() override;

private:
    void Timer1_Timer();

    ReminderWindowServices services_;
    std::string text_;
    std::function<void(bool yes)> answer_;
    bool closed_ = false;
};

}  // namespace kaz
