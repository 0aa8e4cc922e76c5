#pragma once

#include "core/Application.h"
#include "forms/Form.h"
#include "ui/words/WordsLine.h"

#include <functional>
#include <memory>
#include <string>

namespace kaz {

// The line in words in a small window of its own, for whoever is not in the main window. Closing it only
// hides it, so that what was typed is there again.
class frmWords : public Form {
public:
    static constexpr const char* kName = "frmWords";

    // The application outlives the form; `added` is told the code of each new event.
    frmWords(std::unique_ptr<kaz::Window> window, Application& application,
             std::function<void(const std::string& code)> added);

    void ShowWindow();
    void Form_Unload() override { window().Hide(); }

private:
    void cmdAdd_Click();
    void Form_QueryUnload(int how);

    WordsLine line_;
};

// One that is there already comes forward.
void ShowWords(Application& application, std::function<void(const std::string& code)> added);

}  // namespace kaz
