#include "floor/Find.h"

namespace bare {

const char* Find(const char* at, const char* end, std::string_view text) {
    const std::size_t place = std::string_view(at, static_cast<std::size_t>(end - at)).find(text);
    return place == std::string_view::npos ? nullptr : at + place;
}

}  // namespace bare
