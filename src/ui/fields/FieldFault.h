#pragma once

#include "base/RuntimeError.h"

#include <string>
#include <utility>

namespace kaz {

// A field that the user has to correct before the window can save, and what to tell about it.
class FieldFault : public RuntimeError {
public:
    FieldFault(int control, std::string message)
        : RuntimeError(ErrorNumber::InvalidCall, std::move(message)),
          control_(control) {}

    int Control() const noexcept { return control_; }

private:
    int control_;
};

}  // namespace kaz
