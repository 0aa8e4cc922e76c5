#pragma once

#include "platform/Screen.h"

namespace kaz {

class Win32Screen : public Screen {
public:
    bool IsTaken() const override;
};

}  // namespace kaz
