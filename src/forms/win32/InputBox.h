#pragma once

#include "forms/win32/DialogWindow.h"
#include "platform/Dialogs.h"

namespace kaz {

// One line of text with OK and Cancel.
class InputBox : private WindowListener {
public:
    // `dialogs` tells what is wrong with an answer.
    InputBox(HINSTANCE module, Dialogs& dialogs);
    std::optional<std::string> Ask(const std::string& title, const std::string& prompt,
                                   const std::string& initial);

private:
    void OnRaised(int control, Raised what, int detail) noexcept override;
    void TakeAnswer();

    DialogWindow window_;
    Dialogs& dialogs_;
    std::string answer_;
};

}  // namespace kaz
