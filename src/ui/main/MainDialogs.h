#pragma once

#include "commands/EventCommands.h"

#include <functional>
#include <string>

namespace kaz {

// What the user wants to become of what is not saved, when the program is to end.
enum class UnsavedAnswer { TryAgain, SaveCopy, Lose, Cancel };

// The windows that the main window opens; it does not know how they are made.
struct MainDialogs {
    EventCommands::Editor editor;
    // Modal; they return when the window is closed.
    std::function<void()> options;
    std::function<void()> categories;
    std::function<void()> about;
    std::function<void()> restore;
    std::function<UnsavedAnswer(const std::string& text)> unsaved;
    // Beside the main window; one that is open already comes forward.
    std::function<void()> tasks;
    std::function<void(int month, int year)> month;
    std::function<void()> forecast;
    std::function<void()> testReminders;
    std::function<void(std::function<void(const std::string& code)> added)> words;
};

}  // namespace kaz
