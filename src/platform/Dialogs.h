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
    // The default is what Enter chooses.
    enum class Default { Yes, No };
    virtual bool AskYesNo(const std::string& text, Default choice) = 0;
    bool AskYesNo(const std::string& text) { return AskYesNo(text, Default::Yes); }
    // Nothing when the user cancelled.
    virtual std::optional<std::string> InputBox(const std::string& title, const std::string& prompt,
                                                const std::string& initial) = 0;
    // `filter` in pairs, such as "WAV files (*.wav)|*.wav". Nothing when the user cancelled.
    virtual std::optional<std::string> OpenFile(const std::string& title, const std::string& filter) = 0;
    // Where a file is to be written; `name` is proposed. The user has been asked when there is such a file.
    virtual std::optional<std::string> SaveFile(const std::string& title, const std::string& filter,
                                                const std::string& name) = 0;
    virtual std::optional<std::string> PickFolder(const std::string& title) = 0;
    virtual std::optional<DateValue> PickDate(const std::string& prompt, DateValue initial) = 0;
};

}  // namespace kaz
