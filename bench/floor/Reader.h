#pragma once

#include "floor/Record.h"

#include <vector>

namespace bare {

// Three ways to the fields of a block. At the expected place: behind the field before, with a search from the
// block's start when it is not there. In order: by a search from the field before. Word for word: by a search
// from the block's start, without regard to case.
enum class Search { AtExpectedPlace, InOrder, WordForWord };

// The number of bytes in the last field of all blocks, so that no search is left out.
std::size_t FindAllFields(std::string_view text, Search search);

// All events of a file, read through a small buffer. The order of the fields is trusted, nothing is checked.
std::vector<Record> ReadFile(const char* name);

std::string ReadWhole(const char* name);

// "2026-03-02"; a time behind it does not matter.
int DayOf(std::string_view text);

}  // namespace bare
