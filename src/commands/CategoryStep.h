#pragma once

#include "core/Application.h"
#include "support/UndoHistory.h"

#include <array>
#include <string>

namespace kaz {

// The names of all categories, as they were typed at once.
class CategoryStep : public UndoStep {
public:
    using CategoryNames = std::array<std::string, clsLayers::kCount>;

    static CategoryNames NamesOf(const clsLayers& layers);
    // Stores the names, which become the user's last step when they are others than before.
    static void Rename(Application& app, const CategoryNames& names);

    // `before` are the names that the next turn brings.
    CategoryStep(Application& app, CategoryNames before, CategoryNames now);

    UndoOutcome Turn() override;
    std::size_t Size() const override { return sizeof *this; }

private:
    static void Store(Application& app);

    Application& app_;
    CategoryNames before_;
    CategoryNames now_;
};

}  // namespace kaz
