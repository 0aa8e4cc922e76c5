#pragma once

#include "platform/Paper.h"

#include <string>
#include <vector>

namespace kaz {

// The text in lines that fit into the width, broken at blanks, and inside a word only when that alone is too
// wide. At least one line; with `most` lines or fewer, where what was left out shows as "..." at the end.
std::vector<std::string> WrapText(const Paper& paper, std::string_view text, PaperFont font, int width,
                                  std::size_t most = SIZE_MAX);

// The text, or as much of it as fits with "..." behind it.
std::string ShortenText(const Paper& paper, std::string_view text, PaperFont font, int width);

}  // namespace kaz
