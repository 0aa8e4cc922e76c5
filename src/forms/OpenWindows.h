#pragma once

#include "forms/Form.h"

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

namespace kaz {

// All open forms in the order of their opening. A form lives here from its showing to its unloading, whoever
// opened it.
class OpenWindows {
public:
    ~OpenWindows();

    void Add(std::shared_ptr<Form> form);
    // What F1 does in each form that is added from now on.
    void AnswerHelp(std::function<void()> help) { help_ = std::move(help); }
    // Unloads the form: Form_Unload runs and the form is dropped, at once or, while one of its handlers runs,
    // as soon as none does. A form that is not open is ignored.
    void Unload(const Form& form);
    // From the last opened to the first; forms opened by an unloading form are closed too, within a bound.
    void UnloadAll();
    // The form that was opened last under that name, null when there is none.
    std::shared_ptr<Form> Find(std::string_view name) const;
    std::size_t Count() const { return forms_.size(); }

private:
    void DropIdle();

    std::vector<std::shared_ptr<Form>> forms_;
    std::vector<std::shared_ptr<Form>> leaving_;
    std::function<void()> help_;
};

}  // namespace kaz
