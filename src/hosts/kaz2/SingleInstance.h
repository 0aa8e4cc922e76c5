#pragma once

#include "win32/Handles.h"

#include <string>

namespace kaz {

// At most one running program for each data folder, whatever way the folder is spelled.
class SingleInstance {
public:
    explicit SingleInstance(const std::wstring& folder);
    ~SingleInstance();
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;

    // True when this is the only one, which it then is until its end. Otherwise the one that runs has been
    // asked to come forward, unless nobody is there who wants to see it. One that is starting or ending just
    // now is waited for, some seconds at most.
    bool IsOnly(bool silently);

    // The window of the one that runs, null when there is none.
    HWND Other() const { return FindWindowW(kWindowClass, name_.c_str()); }
    // Waits for the end of the one that runs, some seconds at most; false when it goes on.
    bool WaitForEnd();

    // The class and the name of the window that receives the request.
    static constexpr wchar_t kWindowClass[] = L"KAZ2Host";
    const std::wstring& WindowName() const { return name_; }
    // The request's message number.
    static UINT ComeForwardMessage();

private:
    bool OtherIsThere(bool silently) const;

    std::wstring name_;
    KernelHandle mutex_;
    bool owned_ = false;
};

}  // namespace kaz
