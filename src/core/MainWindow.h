#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace kaz {

class Application;

// What the main window tells the component, in the order in which it declares them.
class MainWindowEvents {
public:
    virtual ~MainWindowEvents() = default;
    virtual void fMain_ShutDownKAZ() = 0;
    virtual void fMain_Rescan() = 0;
    virtual void fMain_WindowClosed() = 0;
};

// What became of a line in words.
struct LineAnswer {
    bool added = false;
    std::string told;  // what was stored, or why nothing was
};

// What the component needs of the main window. It is loaded hidden, its refresh timer running.
class MainWindow {
public:
    virtual ~MainWindow() = default;
    // Rebuilds the list for a category index 0 to 19, or 20 for all.
    virtual void FillEvents(std::int16_t category) = 0;
    virtual void EditOptions() = 0;
    // Stores the event that the line says.
    virtual LineAnswer AddInWords(const std::string& line) = 0;
    virtual bool IsShown() const = 0;
    virtual void ShowWindow() = 0;
    // Restores the shown window to its normal state and brings it to the top.
    virtual void BringForward() = 0;
    virtual void HideWindow() = 0;
    // Saves its size and gives up its window; nothing else may be called afterwards.
    virtual void Unload() = 0;
};

// Makes the main window of the user interface, which the core does not know.
using MainWindowFactory = std::function<std::shared_ptr<MainWindow>(Application&, MainWindowEvents&)>;

}  // namespace kaz
