#pragma once

#include "base/DateValue.h"
#include "forms/win32/DialogWindow.h"

namespace kaz {

// A month calendar with OK and Cancel.
class DateBox : private WindowListener {
public:
    explicit DateBox(HINSTANCE module);
    // The calendar opens at `initial` or, where it cannot show that, at today.
    std::optional<DateValue> Ask(const std::string& prompt, DateValue initial);

private:
    void OnRaised(int control, Raised what, int detail) noexcept override;
    void FitCalendar();

    DialogWindow window_;
    HWND calendar_;
};

}  // namespace kaz
