#pragma once

#include "core/Application.h"
#include "model/words/EventInWords.h"

#include <optional>
#include <string>
#include <string_view>

namespace kaz {

// A line in words, read as this user writes dates and with his categories, becomes one of his own events.
class LineCommand {
public:
    explicit LineCommand(Application& application) : app_(application) {}

    struct Look {
        bool isEvent = false;
        std::string text;  // what was understood, in two lines, or why nothing was; "" for an empty line
    };
    // Stores nothing.
    Look LookAt(std::string_view line) const;

    struct Added {
        std::optional<std::string> code;  // nothing when it was refused
        std::string told;                 // what was stored, in one line, or why nothing was
    };
    // As a new event from the editor is stored: with undo, journal and the rules of sharing.
    Added Add(std::string_view line) const;

private:
    WordsContext Context() const;

    Application& app_;
};

}  // namespace kaz
