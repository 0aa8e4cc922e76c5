#pragma once

#include <string>

namespace kaz {

// Why the program cannot start, in words for the user.
struct StartFailure {
    std::wstring text;
};

}  // namespace kaz
