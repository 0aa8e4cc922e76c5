#pragma once

#include <cstddef>
#include <vector>

namespace kaz {

// A password, which leaves nothing behind in memory. It can be moved, not copied: there is one of it.
class Secret {
public:
    // Zeros, to be written over.
    explicit Secret(std::size_t room = 0) : text_(room + 1) {}
    Secret(Secret&&) = default;
    Secret& operator=(Secret&&) = delete;
    ~Secret() {
        // Volatile, or the compiler leaves out what nobody reads.
        for (volatile char& c : text_)
            c = '\0';
    }

    char* Data() { return text_.data(); }
    const char* Text() const { return text_.data(); }

private:
    std::vector<char> text_;
};

}  // namespace kaz
