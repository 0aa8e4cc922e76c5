#pragma once

#include <string>

namespace kaz {

class Shell {
public:
    virtual ~Shell() = default;
    // Opens a file, folder, web or mail address with the program that the system associates
    // with it and returns at once. Throws FileNotFound, PathNotFound, PermissionDenied or
    // InvalidCall when the system refuses.
    virtual void Open(const std::string& target) = 0;
};

}  // namespace kaz
