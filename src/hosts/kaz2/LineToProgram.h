#pragma once

#include <windows.h>

#include <functional>
#include <string>

namespace kaz {

// What became of a line in words, such as "dentist tomorrow 15:30".
struct LineReply {
    bool added = false;
    std::wstring told;  // what was stored, or why nothing was
};

// A line in words from a second start to the program that runs, by WM_COPYDATA; the answer's text comes back
// to the asker's window in the same way, while he waits.
class LineToProgram {
public:
    // Asks the program with that window, for half a minute at most.
    static LineReply Send(HWND program, const std::wstring& line);

    using Add = std::function<LineReply(const std::wstring& line)>;
    // In the program: answers what `data` asks; false when that is no line.
    static bool Receive(HWND asker, const COPYDATASTRUCT& data, const Add& add);
};

}  // namespace kaz
