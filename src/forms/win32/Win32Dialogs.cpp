#include "forms/win32/Win32Dialogs.h"

#include "forms/win32/DateBox.h"
#include "forms/win32/InputBox.h"
#include "forms/win32/ModalRun.h"
#include "forms/win32/PathBoxes.h"
#include "resources/resource.h"
#include "win32/ActivationContext.h"
#include "win32/Text.h"

namespace kaz {

int Win32Dialogs::Box(const std::string& text, UINT style) const {
    const ActivationContext context(module_);
    wchar_t title[64] = L"";
    LoadStringW(module_, IDS_TITLE, title, static_cast<int>(std::size(title)));
    return MessageBoxW(WorkWindow(), ToWide(text).c_str(), title, style);
}

void Win32Dialogs::Message(const std::string& text) { Box(text, MB_OK | MB_ICONINFORMATION); }

bool Win32Dialogs::AskYesNo(const std::string& text, Default choice) {
    const UINT button = choice == Default::No ? MB_DEFBUTTON2 : MB_DEFBUTTON1;
    return Box(text, MB_YESNO | MB_ICONQUESTION | button) == IDYES;
}

std::optional<std::string> Win32Dialogs::InputBox(const std::string& title, const std::string& prompt,
                                                  const std::string& initial) {
    return kaz::InputBox(module_, *this).Ask(title, prompt, initial);
}

std::optional<std::string> Win32Dialogs::OpenFile(const std::string& title, const std::string& filter) {
    const ActivationContext context(module_);
    return AskForFile(ToWide(title), ToWide(filter));
}

std::optional<std::string> Win32Dialogs::SaveFile(const std::string& title, const std::string& filter,
                                                  const std::string& name) {
    const ActivationContext context(module_);
    return AskWhereToSave(ToWide(title), ToWide(filter), ToWide(name));
}

std::optional<std::string> Win32Dialogs::PickFolder(const std::string& title) {
    const ActivationContext context(module_);
    return AskForFolder(ToWide(title));
}

std::optional<DateValue> Win32Dialogs::PickDate(const std::string& prompt, DateValue initial) {
    return DateBox(module_).Ask(prompt, initial);
}

}  // namespace kaz
