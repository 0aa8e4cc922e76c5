#pragma once

#include "platform/Screen.h"

namespace kaz {

class FakeScreen : public Screen {
public:
    bool IsTaken() const override { return taken; }

    bool taken = false;
};

}  // namespace kaz
