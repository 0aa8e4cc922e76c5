#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace kaz {

// Where a step was taken, so that a window can take back what was done in it.
enum class UndoPlace : std::uint8_t { Events, Categories, Tasks };

// What taking a step back, or taking it again, has come to.
struct UndoOutcome {
    bool changed = false;  // else nothing of the step could be done any more
    std::string told;      // what could not be done, for the user; "" when all of it was
    struct Event {
        std::string code;
        bool expired = false;
    };
    std::vector<Event> events;  // that are there now
    int task = -1;              // the position of the one that changed
    // Events that had to come back under another code.
    std::vector<std::pair<std::string, std::string>> newCodes;
};

// One command of the user that can be taken back.
class UndoStep {
public:
    // `name` goes on behind "Undo ", such as "deletion of 3 events".
    UndoStep(UndoPlace place, std::string name) : place_(place), name_(std::move(name)) {}
    virtual ~UndoStep() = default;
    UndoStep(const UndoStep&) = delete;
    UndoStep& operator=(const UndoStep&) = delete;

    UndoPlace Place() const { return place_; }
    const std::string& Name() const { return name_; }
    // Takes the step back when it was taken, and takes it again when it was taken back.
    virtual UndoOutcome Turn() = 0;
    // What it keeps in memory, in bytes.
    virtual std::size_t Size() const = 0;
    // An event has another code from now on.
    virtual void Recode(const std::string& /*before*/, const std::string& /*now*/) {}

private:
    UndoPlace place_;
    std::string name_;
};

// The user's last commands, to be taken back from the last one on. It ends with the program.
class UndoHistory {
public:
    static constexpr std::size_t kMostSteps = 100;
    static constexpr std::size_t kMostBytes = std::size_t{64} * 1024 * 1024;

    // A new step; what was taken back before it cannot be taken again. The oldest steps go when there are
    // more than kMostSteps, or when all together keep more than kMostBytes; the newest always stays.
    void Add(std::unique_ptr<UndoStep> step);
    void Clear();
    // Called after each change of what can be taken back.
    void OnChange(std::function<void()> changed) { changed_ = std::move(changed); }

    enum class Way : std::uint8_t { Back, Again };
    // What would be next, of one place only where one is given; null when there is nothing.
    const UndoStep* Next(Way way, const UndoPlace* only = nullptr) const;
    // Takes it. What it throws leaves the history as it was.
    UndoOutcome Take(Way way, const UndoPlace* only = nullptr);

private:
    using Steps = std::vector<std::unique_ptr<UndoStep>>;
    static Steps::const_iterator Find(const Steps& steps, const UndoPlace* only);
    void Bound();
    void Changed() const {
        if (changed_) changed_();
    }

    Steps done_;  // the newest is the last
    Steps undone_;
    std::function<void()> changed_;
};

}  // namespace kaz
