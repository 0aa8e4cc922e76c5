#pragma once

#include <windows.h>

namespace kaz {

// The keyboard of a dialog window: what navigates in it, and the accelerators of its template's id.
class DialogKeys {
public:
    void Load(HINSTANCE module, int dialog);

    // Uses up a key message that navigates or is an accelerator.
    bool Translate(HWND window, MSG& message);
    // What a key has raised must not be answered before the message hook has ended: its handler may open a
    // modal window, and the hook would be on the stack until that is closed.
    bool IsTranslating() const { return translating_; }

private:
    HACCEL accelerators_ = nullptr;  // the module's, which frees it
    bool translating_ = false;
};

}  // namespace kaz
