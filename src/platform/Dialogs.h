#pragma once

#include "base/DateValue.h"

#include <optional>
#include <string>

namespace kaz {

// The small modal boxes. Each belongs to the window that is active when it is asked for.
class Dialogs {
public:
    virtual ~Dialogs() = default;
    virtual void Message(const std::string& text) = 0;
    virtual bool AskYesNo(const std::string& text) = 0;
    // Nothing when the user cancelled.
    virtual std::optional<std::string> InputBox(const std::string& title, const std::string& prompt,
                                                const std::string& initial) = 0;
    // `filter` in pairs, such as "WAV files (*.wav)|*.wav". Nothing when the user cancelled.
    virtual std::optional<std::string> OpenFile(const std::string& title, const std::string& filter) = 0;
    virtual std::optional<std::string> PickFolder(const std::string& title) = 0;
    virtual std::optional<DateValue> PickDate(const std::string& prompt, DateValue initial) = 0;
};

}  // namespace kaz
