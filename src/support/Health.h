#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kaz {

// What the user has to know without having asked, such as that a file could not be saved. A notice stands
// until its reason has gone; nobody has to close it, and none is a box.
class Health {
public:
    enum class Weight { Note, Warning, Alarm };  // what is heavier is shown first
    // By what the tray's icon shows it at a glance. Without one, a note shows nothing and the others a
    // warning.
    enum class Sign { None, NotSaved, FolderAway, Missed, Quiet, Silent };

    struct Action {
        std::string caption;        // of a button, such as "Try again"
        std::function<void()> run;  // may tell and clear notices; what it refers to outlives the notice
    };
    struct Notice {
        std::string key;  // what it is about, such as "Events.xml not saved"; one notice for a key
        Weight weight = Weight::Warning;
        std::string text;  // in a person's words: what is wrong, where and why
        std::vector<Action> actions;
        Sign sign = Sign::None;
    };

    // Takes the place of the notice with the same key.
    void Tell(Notice notice);
    void Clear(std::string_view key);

    // The heaviest first, among equals the oldest.
    const std::vector<Notice>& Notices() const { return notices_; }
    const Notice* Find(std::string_view key) const;

    // Called after each change that can be seen: another text, another button, a notice more or less.
    void OnChange(std::function<void()> changed) { changed_ = std::move(changed); }

private:
    void Changed() const;

    std::vector<Notice> notices_;
    std::function<void()> changed_;
};

}  // namespace kaz
