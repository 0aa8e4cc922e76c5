#pragma once

#include <windows.h>

#include <vector>

namespace kaz {

// One modal showing of a window. The windows that the user works in are disabled meanwhile, and a hidden one
// with an icon in the tray, whose menu could end the program; a window that came up by itself (a reminder)
// stays usable, since it may come at any time and has to be put to sleep.
class ModalRun {
public:
    explicit ModalRun(HWND window);
    ~ModalRun() { End(IDCANCEL); }
    ModalRun(const ModalRun&) = delete;
    ModalRun& operator=(const ModalRun&) = delete;

    // The window over which the modal one lies; null when there is none.
    HWND Owner() const { return owner_; }

    // Runs a message loop until End and returns End's result; when the program is told to quit, the result is
    // IDCANCEL and the outer loop hears of it too.
    int Loop();
    // Enables the others again. The first call counts.
    void End(int result);
    // Says that the window's object is going; whoever runs the loop must not touch it afterwards.
    void Forget() { forgotten_ = true; }
    bool Forgotten() const { return forgotten_; }

private:
    HWND window_;
    HWND owner_ = nullptr;
    std::vector<HWND> disabled_;
    bool ended_ = false;
    bool forgotten_ = false;
    int result_ = IDCANCEL;
};

// The window of this thread over which a box belongs: the active one or else the uppermost visible one that
// the user works in; null when there is none. `except` is left out.
HWND WorkWindow(HWND except = nullptr);

}  // namespace kaz
