#pragma once

#include <windows.h>

#include <deque>
#include <functional>
#include <set>

namespace kaz {

// The user in front of modal boxes. Each box that appears gets the next step; steps only
// post, so that they cannot be caught inside a box themselves. A box without a step is
// closed, and the program ends when a box stays.
class ModalDriver {
public:
    using Step = std::function<void(HWND box)>;

    ModalDriver();
    ~ModalDriver();
    ModalDriver(const ModalDriver&) = delete;
    ModalDriver& operator=(const ModalDriver&) = delete;

    void Then(Step step);
    // Presses the button with that id.
    void Press(int button);
    bool Done() const { return steps_.empty() && surprises_ == 0; }

private:
    static void CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD);
    HWND NewBox();
    static BOOL CALLBACK Look(HWND window, LPARAM self);

    std::deque<Step> steps_;
    std::set<HWND> seen_;
    HWND next_ = nullptr;
    int surprises_ = 0;
    bool planned_ = false;
    UINT_PTR timer_;
    HANDLE ended_;
    HANDLE watchdog_;
};

}  // namespace kaz
