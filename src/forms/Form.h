#pragma once

#include "base/ErrorTrap.h"
#include "forms/Window.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace kaz {

class OpenWindows;

// The portable half of a window: what happens on which click, under an error trap that knows the form and the
// procedure. Handlers are named in the constructor of the form and nowhere else.
class Form : public WindowListener {
public:
    ~Form() override;
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    void OnRaised(int control, Raised what, int detail) noexcept final;

    const std::string& Name() const { return name_; }
    // Whether one of its handlers is running, so that it must not be destroyed yet.
    bool Busy() const { return running_ > 0; }
    // Calls `leave` once none of its handlers runs, by a message of its own: the form may be destroyed in it.
    void WhenIdle(std::function<void()> leave);
    // What F1 does, unless the form has a handler of its own for it.
    void AnswerHelp(std::function<void()> help) { help_ = std::move(help); }
    // What the program does when every window is closed at the end: saves what the form keeps.
    virtual void Form_Unload() {}

protected:
    Form(std::unique_ptr<Window> window, ErrorSink& errors, std::string name);

    kaz::Window& window() const { return *window_; }
    ErrorSink& errors() const { return errors_; }

    using Handler = std::function<void(int detail)>;
    template <class Derived>
    void On(int control, Raised what, const char* procedure, void (Derived::*handler)()) {
        Add(control, what, procedure, [this, handler](int) { (static_cast<Derived*>(this)->*handler)(); });
    }
    template <class Derived>
    void On(int control, Raised what, const char* procedure, void (Derived::*handler)(int)) {
        Add(control, what, procedure,
            [this, handler](int detail) { (static_cast<Derived*>(this)->*handler)(detail); });
    }
    // For the controls of an array, which share a procedure.
    void On(int control, Raised what, const char* procedure, std::function<void()> handler) {
        Add(control, what, procedure, [handler = std::move(handler)](int) { handler(); });
    }

private:
    struct Entry {
        int control;
        Raised what;
        const char* procedure;
        Handler handler;
    };
    void Add(int control, Raised what, const char* procedure, Handler handler);

    std::unique_ptr<Window> window_;
    ErrorSink& errors_;
    std::string name_;
    std::vector<Entry> entries_;
    std::function<void()> leave_;
    std::function<void()> help_;
    int running_ = 0;
};

}  // namespace kaz
