#pragma once

#include <string>

namespace kaz {

class Shell {
public:
    virtual ~Shell() = default;
    // Opens a file, folder, web or mail address with the program that the system associates
    // with it and returns at once. Throws FileNotFound, PathNotFound, PermissionDenied or
    // InvalidCall, with a reason in words, when the system refuses.
    virtual void Open(const std::string& target) = 0;
    // The same, but its window leaves the keyboard to the one that the user is typing in.
    virtual void OpenBehind(const std::string& target) = 0;
};

}  // namespace kaz
