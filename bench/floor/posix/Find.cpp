#include "floor/Find.h"

#include <cstring>

namespace bare {

const char* Find(const char* at, const char* end, std::string_view text) {
    return static_cast<const char*>(memmem(at, static_cast<std::size_t>(end - at), text.data(), text.size()));
}

}  // namespace bare
