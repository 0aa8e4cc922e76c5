#pragma once

#include <windows.h>

#include <functional>
#include <string>

namespace kaz {

// Lets the thread's windows handle what waits for them.
void Pump();

void PaintNow(HWND window);

// The least time of the rounds, in milliseconds.
double Least(int rounds, const std::function<void()>& step);

// A line of the result. One for the system's own controls has the same name and "bare" behind it.
void Print(const std::string& name, double milliseconds);

}  // namespace kaz
