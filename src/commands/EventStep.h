#pragma once

#include "core/Application.h"
#include "storage/ChangedEvent.h"
#include "support/UndoHistory.h"

#include <string>
#include <string_view>
#include <vector>

namespace kaz {

// A command on events, taken back event by event: those that have been changed or deleted by anybody since
// stay as they are.
class EventStep : public UndoStep {
public:
    // What the user has just done to events becomes his last step. `what` is a noun, such as "deletion"; the
    // step's name goes on with how many events, or with the text of the only one, or of the first, when the
    // others are parts of it.
    enum class Of { Each, First };
    static void Record(Application& app, std::string_view what, std::vector<ChangedEvent> changes,
                       Of of = Of::Each);

    // Of events that a change did not find as it expected them, for the user; "" without any.
    static std::string LeftText(const std::vector<clsEvent>& left);

    EventStep(Application& app, std::string what, std::string name, std::vector<ChangedEvent> changes);

    UndoOutcome Turn() override;
    std::size_t Size() const override { return size_; }
    void Recode(const std::string& before, const std::string& now) override;

private:
    Application& app_;
    std::string what_;
    bool isUndone_ = false;
    std::vector<ChangedEvent> changes_;  // those that the next turn makes
    std::size_t size_;
};

}  // namespace kaz
