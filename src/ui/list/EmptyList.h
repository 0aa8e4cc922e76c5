#pragma once

#include "core/Application.h"

#include <cstdint>
#include <string>

namespace kaz {

// What a list without rows says instead: to who has no events yet, what this is and what to do first; to
// others, why none shows. `category` is the one that is chosen, `narrowed` tells whether something is typed
// into the search box.
std::string WhyEmpty(const Application& application, std::int16_t category, bool narrowed);

}  // namespace kaz
