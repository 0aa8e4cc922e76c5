#include "forms/OpenWindows.h"

#include <algorithm>

namespace kaz {

namespace {
constexpr int kMostUnloads = 10000;
}

OpenWindows::~OpenWindows() = default;

void OpenWindows::Add(std::shared_ptr<Form> form) {
    DropIdle();
    form->AnswerHelp(help_);
    forms_.push_back(std::move(form));
}

void OpenWindows::Unload(const Form& form) {
    DropIdle();
    const auto found =
        std::find_if(forms_.begin(), forms_.end(), [&](const auto& open) { return open.get() == &form; });
    if (found == forms_.end()) return;
    leaving_.push_back(std::move(*found));
    forms_.erase(found);
    const std::shared_ptr<Form> kept = leaving_.back();
    kept->Form_Unload();
    if (kept->Busy())
        kept->WhenIdle([this] { DropIdle(); });
    else
        DropIdle();
}

void OpenWindows::UnloadAll() {
    for (int i = 0; i < kMostUnloads && !forms_.empty(); ++i) {
        const std::shared_ptr<Form> last = forms_.back();
        Unload(*last);
    }
    DropIdle();
}

std::shared_ptr<Form> OpenWindows::Find(std::string_view name) const {
    const auto found =
        std::find_if(forms_.rbegin(), forms_.rend(), [&](const auto& open) { return open->Name() == name; });
    return found == forms_.rend() ? nullptr : *found;
}

void OpenWindows::DropIdle() {
    std::erase_if(leaving_, [](const auto& form) { return !form->Busy(); });
}

}  // namespace kaz
