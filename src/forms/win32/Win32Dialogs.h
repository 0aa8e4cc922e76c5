#pragma once

#include "platform/Dialogs.h"

#include <windows.h>

namespace kaz {

// Boxes over the window in which the user works; none of them comes to the front of another program.
class Win32Dialogs : public Dialogs {
public:
    // `module` holds the title (IDS_TITLE) and the templates of the input and the date box.
    explicit Win32Dialogs(HINSTANCE module) : module_(module) {}

    void Message(const std::string& text) override;
    using Dialogs::AskYesNo;
    bool AskYesNo(const std::string& text, Default choice) override;
    std::optional<std::string> InputBox(const std::string& title, const std::string& prompt,
                                        const std::string& initial) override;
    std::optional<std::string> OpenFile(const std::string& title, const std::string& filter) override;
    std::optional<std::string> SaveFile(const std::string& title, const std::string& filter,
                                        const std::string& name) override;
    std::optional<std::string> PickFolder(const std::string& title) override;
    std::optional<DateValue> PickDate(const std::string& prompt, DateValue initial) override;

private:
    int Box(const std::string& text, UINT style) const;

    HINSTANCE module_;
};

}  // namespace kaz
