#pragma once

#include "base/LocaleData.h"
#include "forms/Controls.h"
#include "model/EventExtras.h"

#include <optional>

namespace kaz {

// One row of the window for what an event has besides: a second warning, or none.
class WarningControls {
public:
    static constexpr int kRows = 3;

    // `row` counts from 0.
    WarningControls(Window& window, const LocaleData& locale, int row);

    void Show(const std::optional<SecondWarning>& warning);
    // Nothing for a row without one. Throws FieldFault.
    std::optional<SecondWarning> Take() const;
    // Enables what the chosen kind needs, and proposes something where nothing is typed.
    void FollowKind();
    // Writes out a time in a short form.
    void CompleteTime();

private:
    const LocaleData& locale_;
    TextBox txtNumber;
    ListControl cmbKind;
    TextBox txtTime;
};

}  // namespace kaz
