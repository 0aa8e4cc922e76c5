#pragma once

namespace kaz {

class Screen {
public:
    virtual ~Screen() = default;
    // Whether the user must not be disturbed: a presentation is running, or another program fills the screen.
    virtual bool IsTaken() const = 0;
};

}  // namespace kaz
