#pragma once

#include "platform/Dialogs.h"

#include <deque>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace kaz {

// Keeps what was shown and plays the scripted answers; without a script the user says no or cancels.
class FakeDialogs : public Dialogs {
public:
    void Message(const std::string& text) override { messages.push_back(text); }
    using Dialogs::AskYesNo;
    bool AskYesNo(const std::string& text, Default choice) override {
        questions.push_back(text);
        defaultOfQuestion = choice;
        if (meanwhile) meanwhile();
        return Next(yesNo, false);
    }
    std::optional<std::string> InputBox(const std::string& title, const std::string& prompt,
                                        const std::string& initial) override {
        questions.push_back(title + "|" + prompt + "|" + initial);
        return Next(inputs, {});
    }
    std::optional<std::string> OpenFile(const std::string& title, const std::string& filter) override {
        questions.push_back(title + "|" + filter);
        return Next(files, {});
    }
    std::optional<std::string> SaveFile(const std::string& title, const std::string& filter,
                                        const std::string& name) override {
        questions.push_back(title + "|" + filter + "|" + name);
        return Next(files, {});
    }
    std::optional<std::string> PickFolder(const std::string& title) override {
        questions.push_back(title);
        return Next(folders, {});
    }
    std::optional<DateValue> PickDate(const std::string& prompt, DateValue initial) override {
        questions.push_back(prompt);
        initialDates.push_back(initial);
        return Next(dates, {});
    }

    std::vector<std::string> messages;
    std::vector<std::string> questions;  // what was asked, its parts joined by "|"
    std::vector<DateValue> initialDates;
    Default defaultOfQuestion = Default::Yes;  // of the last one

    std::function<void()> meanwhile;  // what happens while a question is open

    std::deque<bool> yesNo;
    std::deque<std::optional<std::string>> inputs, files, folders;
    std::deque<std::optional<DateValue>> dates;

private:
    template <class Answer>
    static Answer Next(std::deque<Answer>& script, Answer otherwise) {
        if (script.empty()) return otherwise;
        Answer answer = std::move(script.front());
        script.pop_front();
        return answer;
    }
};

}  // namespace kaz
