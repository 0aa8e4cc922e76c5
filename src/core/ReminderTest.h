#pragma once

#include "base/DateValue.h"

#include <optional>
#include <string>
#include <vector>

namespace kaz {

class Application;

// Tries whether reminders would reach the user, and says what it found in a person's words. What it does for
// that (a sound, a file in the data folder that goes again) leaves nothing behind.
class ReminderTest {
public:
    enum class Result { Fine, Note, Wrong };
    struct Finding {
        Result result;
        std::string text;
    };

    // The application outlives the object.
    explicit ReminderTest(Application& application) : app_(application) {}

    // One finding of each: sound, data folder, backup, what stands in the bar, next alarm.
    std::vector<Finding> Run();

private:
    Finding Sound();
    Finding Folder();
    Finding Backup();
    Finding NextAlarm();
    void AddNotices(std::vector<Finding>& findings);

    Application& app_;
};

}  // namespace kaz
