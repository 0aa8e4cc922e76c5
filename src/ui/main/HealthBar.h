#pragma once

#include "forms/Window.h"
#include "support/Health.h"

#include <array>
#include <string>
#include <vector>

namespace kaz {

// The bar between the filter and the list of the main window, there as long as there is
// something that the user has to know: the heaviest notice, its buttons, and a way to the
// others. It takes its room from the list.
class HealthBar {
public:
    static constexpr int kButtons = 3;

    // Both outlive the bar.
    HealthBar(Window& window, const Health& health) : window_(window), health_(health) {}

    // Shows what the health says now: the notice that the user has turned to as long as it stands, unless a
    // heavier one has come.
    void Show();
    // Call after a change of the window's size or of the monitor's resolution.
    void Place();
    // To the next notice, from the last one to the first.
    void Next();
    // Does what the button says.
    void Press(int button) const;

private:
    std::size_t Position() const;
    struct Piece {
        int control;
        int width;
    };
    void ShowButtons();
    void PlaceRow(const std::vector<Piece>& row, int left, int top, int room);

    Window& window_;
    const Health& health_;
    std::string first_;  // the key of the heaviest notice when the bar was shown last
    std::string shown_;  // the key of the notice in the bar; empty when there is none
    std::array<std::string, kButtons> captions_;
};

}  // namespace kaz
