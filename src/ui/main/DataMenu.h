#pragma once

#include "core/Application.h"

namespace kaz {

// What the user can look at of the program's own files: its log, the journal of changes, the backups.
class DataMenu {
public:
    // The application outlives the object.
    explicit DataMenu(Application& application) : app_(application) {}

    void ShowLog();
    void ShowChanges();
    void BackUp();
    void ViewBackups();

private:
    Application& app_;
};

}  // namespace kaz
