#pragma once

#include "core/Application.h"
#include "forms/Window.h"

#include <functional>
#include <string>
#include <vector>

namespace kaz {

// The key of the whole computer that opens the line in words: the setting "WordsKey", none until the user has
// chosen one.
class WordsKey {
public:
    // What the options offer.
    static const std::vector<std::string>& Choices();

    // `openOptions` is what the notice offers when another program has the key. All outlive the object.
    WordsKey(Window& window, Application& application, std::function<void()> openOptions)
        : window_(window),
          app_(application),
          openOptions_(std::move(openOptions)) {}

    // As the setting is now; a notice says so when another program has it.
    void Apply();

private:
    Window& window_;
    Application& app_;
    std::function<void()> openOptions_;
};

}  // namespace kaz
