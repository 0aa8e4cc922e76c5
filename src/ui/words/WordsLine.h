#pragma once

#include "core/Application.h"
#include "forms/Controls.h"
#include "resources/resource.h"

#include <functional>
#include <string>

namespace kaz {

// The line in which an event is written in words, and under it what was understood of it or why nothing was.
// It stands in more than one window, in each under the same ids.
class WordsLine {
public:
    // `added` is told the code of each new event. All outlive the line.
    WordsLine(Window& window, Application& application, std::function<void(const std::string& code)> added)
        : window_(window),
          app_(application),
          added_(std::move(added)) {}

    // Call when the window is loaded.
    void Prepare();
    // Call after each change of the text.
    void ShowUnderstood();
    // Stores the event, and empties the line. What was refused stays there, with the reason.
    bool Enter();
    // Empties the line; false when there is nothing in it.
    bool Empty();
    bool HasKeyboard() const { return window_.Focused() == IDC_txtWords; }
    void TakeKeyboard();

private:
    Window& window_;
    Application& app_;
    std::function<void(const std::string& code)> added_;
    TextBox txtWords{window_, IDC_txtWords};
    Label lblUnderstood{window_, IDC_lblUnderstood};
};

}  // namespace kaz
