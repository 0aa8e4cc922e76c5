#pragma once

#include <windows.h>

#include <deque>
#include <mutex>
#include <string>

namespace kaz {

// Short news at the tray. The lasting icon there is the component's, so this one comes with the text and goes
// when the system has shown it. A click opens `fileToOpen`.
class TrayBalloon {
public:
    explicit TrayBalloon(std::wstring fileToOpen);
    ~TrayBalloon();
    TrayBalloon(const TrayBalloon&) = delete;
    TrayBalloon& operator=(const TrayBalloon&) = delete;

    // Any thread; it is shown by the thread that made this one, at its next message.
    void Show(std::wstring text);

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM first, LPARAM second);
    bool On(UINT message, WPARAM first, LPARAM second);
    void ShowNext();
    void Remove();

    std::wstring fileToOpen_;
    HWND window_ = nullptr;
    bool hasIcon_ = false;
    std::mutex mutex_;
    std::deque<std::wstring> waiting_;
};

}  // namespace kaz
